#include "host/link/elm/ElmConsole.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tarnlog::host {

using namespace std::chrono_literals;

namespace {
constexpr const char* kGone = "the adapter is gone: ";
/// How long a wait may last although somebody wants to end.
constexpr auto kStopPatience = 1s;

/// It says nothing about the adapter.
class Stopped : public TarnError {
 public:
  using TarnError::TarnError;
};
}  // namespace

bool ElmReply::has(ElmNotice notice) const {
  return std::any_of(lines.begin(), lines.end(), [&](const ElmLine& line) { return line.notice == notice; });
}

std::string_view ElmReply::text() const { return lines.empty() ? std::string_view() : lines.front().text; }

ElmConsole::ElmConsole(std::unique_ptr<ByteStream> stream, LinkClock& clock)
    : stream_(std::move(stream)), clock_(clock) {}

void ElmConsole::setWaiting(std::function<void()> idleHook, std::function<bool()> stopQuestion) {
  stopAsked_ = std::move(stopQuestion);
  stream_->setIdleHook([this, hook = std::move(idleHook)] {
    hook();
    breakOffWhenAsked();
  });
}

void ElmConsole::waitAlone() {
  stopAsked_ = nullptr;
  stream_->setIdleHook(nullptr);
}

template <class Step>
auto ElmConsole::reached(const char* failure, Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const Stopped&) {
    throw;
  } catch (const TarnError& error) {
    throw AdapterGone(error.number(), "Elm327Link", failure + error.description());
  }
}

void ElmConsole::open() {
  reader_.clear();
  said_.clear();
  begin();
  reached("the adapter cannot be reached: ", [this] { stream_->open(); });
}

void ElmConsole::breakOffWhenAsked() const {
  if (stopAsked_ && clock_.now() > begun_ + kStopPatience && stopAsked_())
    throw Stopped(1, "Elm327Link", "stopped while the adapter was awaited");
}

void ElmConsole::close() {
  // A search may go on for a minute.
  if (!std::exchange(atRest_, true)) skipOnFailure([this] { interrupt(); });
  stream_->close();
}

/// A blank means nothing to an adapter at rest.
void ElmConsole::interrupt() {
  constexpr std::array<std::uint8_t, 1> kBlank{' '};
  reached(kGone, [&] { stream_->write(kBlank); });
}

void ElmConsole::rest(std::chrono::milliseconds patience) {
  if (atRest_) return;
  interrupt();
  const Moment deadline = in(patience);
  while (const auto item = next(deadline))
    if (item->prompt) return;
}

bool ElmConsole::setRate(int bitsPerSecond) {
  reader_.clear();
  return stream_->setRate(bitsPerSecond);
}

bool ElmConsole::fill(Moment deadline) {
  const std::size_t count = reached(kGone, [&] { return stream_->read(bytes_, deadline); });
  reader_.feed(std::span(bytes_).first(count));
  constexpr std::size_t kMostSaid = 200;
  for (std::size_t i = 0; i < count && said_.size() < kMostSaid; ++i) said_ += static_cast<char>(bytes_[i]);
  anything_ = anything_ || count > 0;
  return count > 0;
}

void ElmConsole::drop(std::chrono::milliseconds quiet, std::chrono::milliseconds longest) {
  const Moment end = clock_.now() + longest;
  while (fill(std::min(end, clock_.now() + quiet)) && clock_.now() < end) {
  }
  reader_.clear();
}

void ElmConsole::write(std::string_view text) {
  sent_ = text;
  output_ = text;
  output_ += '\r';
  const auto* const first = reinterpret_cast<const std::uint8_t*>(output_.data());
  reached(kGone, [&] { stream_->write({first, output_.size()}); });
  noteRequest(text);
  atRest_ = false;
}

/// Requests are digits; the adapter's own commands begin with "AT".
void ElmConsole::noteRequest(std::string_view text) {
  if (text.size() < 2) return;
  unsigned service = 0;
  const auto read = std::from_chars(text.data(), text.data() + 2, service, 16);
  if (read.ec == std::errc() && read.ptr == text.data() + 2) ++servicesSent_[service];
}

std::optional<ElmConsole::Item> ElmConsole::next(Moment deadline) {
  for (;;) {
    while (const auto item = reader_.next()) {
      if (item->prompt) {
        atRest_ = true;
        return Item{true, {}};
      }
      ElmLine line = parseElmLine(item->text);
      // An echo that cannot be switched off.
      if (line.text != sent_ && !line.text.empty()) return Item{false, std::move(line)};
    }
    // Something may come without end, and never a whole line.
    if (!fill(deadline) || clock_.now() > deadline) return std::nullopt;
  }
}

ElmReply ElmConsole::command(std::string_view text, std::chrono::milliseconds patience) {
  constexpr std::size_t kMostLines = 64;
  drop(0ms, 0ms);
  anything_ = false;
  write(text);
  const Moment deadline = clock_.now() + patience;
  ElmReply reply;
  while (auto item = next(deadline)) {
    reply.prompted = item->prompt;
    if (reply.prompted) break;
    if (reply.lines.size() < kMostLines) reply.lines.push_back(std::move(item->line));
    if (clock_.now() > deadline) break;
  }
  reply.anything = anything_;
  return reply;
}

}  // namespace tarnlog::host
