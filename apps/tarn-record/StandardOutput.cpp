#include "apps/tarn-record/StandardOutput.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "apps/common/TerminalText.h"
#include "apps/tarn-record/OutputFile.h"
#include "platform/text/Told.h"

namespace tarnlog::record {

void print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) < text.size() || std::fflush(stdout) != 0)
    throw std::runtime_error(Told::tr("standard output: {}", std::strerror(errno)));
}

void report(const std::string& output, const std::string& text) {
  const std::string shown = printableText(text);
  if (isStandardOutput(output))
    std::fputs(shown.c_str(), stderr);
  else
    print(shown);
}

std::optional<std::size_t> terminalWidth() {
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

}  // namespace tarnlog::record
