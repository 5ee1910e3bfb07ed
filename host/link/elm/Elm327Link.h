#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/link/Link.h"
#include "host/link/LinkClock.h"
#include "host/link/elm/ElmAdapter.h"
#include "host/link/elm/ElmConsole.h"
#include "host/link/elm/ElmFrameCounts.h"
#include "host/link/elm/ElmFrames.h"
#include "host/link/stream/ByteStream.h"

namespace tarnlog::host {

/// An ELM327 adapter, or one of its many relatives. What an adapter does not know is gone on without.
///
/// Opening connects, resets and sets up the adapter; the first request makes it look for the car's bus, which
/// takes up to a minute. A failure that only a new start can mend (adapter gone, no ECU on the bus, adapter
/// reset by itself) is a TarnError; after it the link is to be closed and opened again.
class Elm327Link : public Link {
 public:
  /// `protocol` is what ATSP takes, '1' to '9' or 'A' to 'C'; none lets the adapter search. The clock must
  /// outlive the link.
  Elm327Link(std::unique_ptr<ByteStream> stream, std::optional<char> protocol, LinkClock& clock);

  /// Does nothing when it is open.
  void open() override;
  void close() override;
  void send(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  bool receive(Bytes& response, std::chrono::milliseconds timeout) override;
  std::string silence() const override;
  /// TarnError when nobody answers.
  std::vector<LinkTarget> findEcus() override;
  bool takesSeveralPids(const LinkTarget& target) const override;

  /// The adapter's name, as it gave it when it was opened.
  const std::string& adapterName() const { return adapterName_; }

 private:
  /// What is known of reaching one ECU.
  struct Reach {
    bool answered = false;         ///< since the link was made
    bool functional = false;       ///< only what is sent to all ECUs reaches it
    bool triedFunctional = false;  ///< that was tried
    bool apart = false;            ///< it was asked alone, and alone it answered
  };
  /// How many ECUs answer what is sent to all, where the adapter shows no headers.
  enum class Unnamed : std::uint8_t {
    unseen,  ///< no answer without a header has come
    some,
    one,
    several  ///< their answers cannot be told apart: each is asked alone, or not at all
  };
  /// One request and what has come of it.
  struct Exchange {
    LinkTarget target;
    Bytes request;
    ElmAddress address;
    std::int64_t asked = 0;
    int expectedFrames = 0;  ///< asked of the adapter; 0: it waits for more until its time is over
    int repeats = 0;
    int troubles = 0;           ///< of the bus
    bool withoutDigit = false;  ///< repeated because the number of frames may have been the fault
    bool restarted = false;     ///< repeated with a new communication on the K line
    bool askedTwice = false;    ///< repeated because the ECU was silent
    bool anything = false;      ///< any line came
    bool barePrompt = false;    ///< a prompt came before any line
    bool answered = false;
    bool others = false;      ///< only other ECUs answered
    int unnamed = 0;          ///< answers of ECUs that are not shown
    Bytes foreign;            ///< came, and answers something else
    bool pending = false;     ///< the newest answer says "response pending"
    bool wasPending = false;  ///< any did
    bool atWork = false;      ///< the adapter searches or starts a bus
    std::optional<ElmLine> notice;
  };

  template <class Step>
  auto guarded(Step&& step);
  void finishAnswer();
  bool promptComes(std::int64_t patience);
  void begin(const LinkTarget& target, std::span<const std::uint8_t> request);
  void ask(bool countFrames);

  bool nextMessage(ElmMessage& message, std::int64_t deadline);
  bool isAtWork() const;
  void take(ElmLine line);
  void takeData(const ElmLine& line);
  void noteAnswer(const ElmMessage& message);
  void noteUnnamed();
  void noteSearch();
  bool mayMix() const;
  bool isMixed() const;
  bool answersAlone(const LinkTarget& target);
  std::vector<LinkTarget> findEcusApart();
  /// The prompt came: learns from it, and fails where only a new start helps.
  void settle();
  /// True when the request was sent once more, so that something may still come.
  bool retry(std::int64_t deadline);
  bool retrySilence(std::int64_t deadline);
  bool retryByDefault();
  bool repeat(bool countFrames);
  bool listenAfterPending(std::int64_t deadline);

  LinkClock& clock_;
  ElmConsole console_;
  ElmAdapter adapter_;
  ElmAssembler assembler_;
  ElmFrameCounts frameCounts_;
  std::string adapterName_;
  bool open_ = false;
  bool awaitsPrompt_ = false;
  int silences_ = 0;  ///< exchanges without any answer, one after another
  std::map<std::int32_t, Reach> reach_;
  Unnamed unnamed_ = Unnamed::unseen;
  std::optional<std::int32_t> unnamedEcu_;  ///< whom answers without a header were taken for
  bool byDefault_ = false;       ///< OBD requests go to whom the adapter asks when it is told nobody
  bool triedByDefault_ = false;  ///< that was tried
  Exchange exchange_;
  std::string text_;  ///< of the request; kept for its capacity
  std::deque<ElmMessage> messages_;
};

}  // namespace tarnlog::host
