#include "apps/tarn-record/RunConsole.h"

#include <unistd.h>

#include <chrono>
#include <vector>

#include "apps/common/TerminalText.h"

namespace tarnlog::record {

namespace {

constexpr std::chrono::seconds kLogPatience{1};

bool isTerminal(int descriptor) { return ::isatty(descriptor) != 0; }

}  // namespace

RunConsole::RunConsole(const Clock& clock, Loudness loudness, char decimalSeparator)
    : clock_(clock),
      loudness_(loudness),
      paths_(STDOUT_FILENO, NonWaitingStream::kNoBound),
      errors_(STDERR_FILENO),
      progress_(clock_, errors_, loudness != Loudness::Quiet && isTerminal(STDERR_FILENO), decimalSeparator) {
}

void RunConsole::note(std::string_view line) {
  if (loudness_ != Loudness::Quiet) progress_.print(line);
}

void RunConsole::detail(std::string_view line) {
  if (loudness_ == Loudness::Verbose) progress_.print(line);
}

void RunConsole::path(const std::string& path) {
  if (pathsMoved_)
    note(path);
  else
    paths_.write((isTerminal(STDOUT_FILENO) ? printableLine(path) : path) + "\n");
}

/// The line of progress is the table's last one then. Lines on the same terminal stand above it.
void RunConsole::showTable(LiveTable& table) {
  table_ = &table;
  screen_.emplace(STDOUT_FILENO);
  if (isTerminal(STDERR_FILENO))
    progress_.printAbove([this] {
      screen_->erase();
      table_->drawAgain();
    });
}

void RunConsole::show(const TarnAcq& acq, const ConsoleScreen& screen) {
  paths_.flush();
  progress_.show(acq, screen);
  if (table_ != nullptr) drawTable(acq, screen);
}

void RunConsole::drawTable(const TarnAcq& acq, const ConsoleScreen& screen) {
  if (!screen_->ready() || !table_->due()) return;
  const LiveScreen::Size size = screen_->size();
  std::vector<std::string> lines = table_->draw(size.width - 1, size.height - 1);
  if (lines.empty()) return;
  lines.push_back(firstCharacters(progress_.text(acq, screen), size.width - 1));
  screen_->draw(lines);
}

void RunConsole::finish() {
  progress_.end();
  if (screen_) screen_->erase();
  paths_.wait();
  errors_.wait(kLogPatience);
}

}  // namespace tarnlog::record
