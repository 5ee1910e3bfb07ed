#include "host/link/stream/TextTap.h"

#include <fmt/format.h>

#include <iterator>
#include <utility>

namespace tarnlog::host {

TextTap::TextTap(std::unique_ptr<ByteStream> stream) : stream_(std::move(stream)) {
  stream_->setIdleHook([this] { idle(); });
}

void TextTap::close() {
  stream_->close();
  endLine(true, sent_);
  endLine(false, received_);
}

void TextTap::write(std::span<const std::uint8_t> bytes) {
  tell(true, sent_, bytes);
  stream_->write(bytes);
}

std::size_t TextTap::read(std::span<std::uint8_t> into, Moment deadline) {
  const std::size_t count = stream_->read(into, deadline);
  tell(false, received_, into.first(count));
  return count;
}

void TextTap::tell(bool sent, std::string& line, std::span<const std::uint8_t> bytes) const {
  constexpr std::size_t kLongest = 200;
  if (link_ == nullptr || !link_->textWanted()) return;
  for (const std::uint8_t byte : bytes) {
    if (byte >= 0x20 && byte < 0x7F)
      line += static_cast<char>(byte);
    else if (byte != '\r' && byte != '\n')
      fmt::format_to(std::back_inserter(line), "\\x{:02X}", byte);
    if (byte == '\r' || byte == '\n' || byte == '>' || line.size() >= kLongest) endLine(sent, line);
  }
}

void TextTap::endLine(bool sent, std::string& line) const {
  if (!line.empty() && link_ != nullptr) link_->tellText(sent, line);
  line.clear();
}

}  // namespace tarnlog::host
