#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/link/Link.h"
#include "host/link/stream/ByteStream.h"

namespace tarnlog::host {

/// Another connection, over which text goes: a link's text hook is told each line of it. A prompt (">") ends
/// a line, too.
class TextTap : public ByteStream {
 public:
  explicit TextTap(std::unique_ptr<ByteStream> stream);
  /// The link uses the tap, and outlives it.
  void tellTo(const Link& link) { link_ = &link; }

  void open() override { stream_->open(); }
  void close() override;
  void write(std::span<const std::uint8_t> bytes) override;
  std::size_t read(std::span<std::uint8_t> into, Moment deadline) override;
  int rate() const override { return stream_->rate(); }
  bool setRate(int bitsPerSecond) override { return stream_->setRate(bitsPerSecond); }

 private:
  void tell(bool sent, std::string& line, std::span<const std::uint8_t> bytes) const;
  void endLine(bool sent, std::string& line) const;

  std::unique_ptr<ByteStream> stream_;
  const Link* link_ = nullptr;
  std::string sent_;  ///< what has come of a line
  std::string received_;
};

}  // namespace tarnlog::host
