#pragma once

#include <array>
#include <bitset>
#include <chrono>
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
#include "host/link/elm/ElmWait.h"
#include "host/link/stream/ByteStream.h"

namespace tarnlog::host {

/// An ELM327 adapter, or a compatible one. Where an adapter does not know a command, or an ECU seems
/// silent, something else is tried instead: kFallBacks lists what.
///
/// Opening connects, resets and sets up the adapter; the first request makes it look for the car's bus, which
/// takes up to a minute. A failure after which the link must be opened again (adapter gone, no ECU on the
/// bus, adapter reset by itself) is a TarnError.
class Elm327Link : public Link {
 public:
  /// `protocol` is what ATSP takes, '1' to '9' or 'A' to 'C'; none lets the adapter search. On a serial line
  /// the adapter is asked to go at a faster rate while the link is open, unless `mayBeFaster` is false. The
  /// clock must outlive the link.
  Elm327Link(std::unique_ptr<ByteStream> stream, std::optional<char> protocol, LinkClock& clock,
             bool mayBeFaster = true);
  Elm327Link(const Elm327Link&) = delete;
  Elm327Link& operator=(const Elm327Link&) = delete;
  /// Leaves the adapter as closing does.
  ~Elm327Link() override;

  std::string silence() const override;
  bool takesSeveralPids(const LinkTarget& target) const override;
  /// As many as fit into one frame of CAN.
  std::size_t mostIdentifiers(const LinkTarget& target) const override;

  std::string adapterName() const override { return adapterName_; }
  const ServiceCounts& servicesSent() const override { return console_.servicesSent(); }

 protected:
  void doOpen() override;
  void doClose() override;
  bool doSend(const LinkTarget& target, std::span<const std::uint8_t> request) override;
  Received doReceive(Bytes& response, std::chrono::milliseconds timeout) override;
  /// TarnError when nobody answers.
  std::vector<LinkTarget> doFindEcus() override;

 private:
  /// For the adapter, in addition to the time that the ECU has.
  static constexpr std::chrono::milliseconds kAdapterTime{500};

  /// What is known of reaching one ECU.
  struct Reach {
    bool answered = false;         ///< since the link was constructed; closing keeps it
    bool functional = false;       ///< requests to it use functional addressing
    bool triedFunctional = false;  ///< that was tried
    bool apart = false;            ///< a physically addressed test request was answered
    ElmWait wait{};
  };
  /// How many ECUs answer, as far as that is known where the adapter shows no headers.
  enum class Unnamed : std::uint8_t {
    unseen,  ///< no answer without a header has come
    some,    ///< how many is not known
    one,
    several  ///< OBD requests to one of them use physical addressing, or fail
  };
  /// What came of an attempt that was not answered.
  enum class Came : std::uint8_t { silence, unknownCommand, busTrouble, damage };
  /// What is done instead. The functions that do it are described in the table, kFallBacks.
  enum Instead : std::uint8_t {
    usualTimeout,
    withoutFrameCount,
    functionalAddressing,
    noAddress,
    newCommunication,
    longerTimeout,
    onceMore,
    neverFrameCounts,
    again,
    untilBusWorks,
    slowerLine,
    distrustFrameCount,
    kFallBackCount
  };
  struct FallBack {
    Came came;
    Instead instead;
    bool (Elm327Link::*helps)(Moment deadline) const;
    void (Elm327Link::*prepare)(Moment deadline);
  };
  static const std::array<FallBack, kFallBackCount> kFallBacks;

  /// One time that the request was sent.
  struct Attempt {
    Moment asked{};
    Moment heard{};           ///< the last line of the ECU
    int expectedFrames = 0;   ///< sent with the request; 0: the adapter waits for its time-out
    bool anything = false;    ///< any line came
    bool barePrompt = false;  ///< a prompt came before any line
    bool answered = false;
    bool others = false;      ///< another ECU answered
    int unnamed = 0;          ///< responses without a header, of service 01
    Bytes foreign;            ///< the last response that does not match the request
    bool pending = false;     ///< the newest answer says "response pending"
    bool wasPending = false;  ///< any did
    std::optional<ElmLine> notice;
  };
  /// One request and what has come of it.
  struct Exchange {
    LinkTarget target;
    Bytes request;
    ElmAddress address;
    int repeats = 0;
    int troubles = 0;     ///< of the bus
    bool atWork = false;  ///< the adapter searches or starts a bus
    std::bitset<kFallBackCount> tried;
    Attempt attempt;
  };

  void startAnew();
  void finishAnswer();
  bool promptComes(std::chrono::milliseconds patience);
  void begin(const LinkTarget& target, std::span<const std::uint8_t> request);
  void ask(bool countFrames);
  void useAddress();
  void fitTimeout();
  void dropLateLines();
  int frameCountFor(bool countFrames);
  void writeRequest();

  bool nextMessage(ElmMessage& message, Moment deadline);
  bool takeNext(Moment& deadline);
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
  void noteWait();
  void noteLine(bool whole);
  bool isLineTooFast() const;
  void distrustLine();

  /// True when the request was sent once more, so that something may still come.
  bool retry(Moment deadline);
  Came whatCame() const;
  void giveUp(Came came);
  bool repeat();
  bool wasShortened(Moment deadline) const;
  bool wasCounted(Moment deadline) const;
  bool mayAskFunctionally(Moment deadline) const;
  bool mayForgetAddress(Moment deadline) const;
  bool mayNeedCommunication(Moment deadline) const;
  bool mayNeedTime(Moment deadline) const;
  bool mayBeDisturbed(Moment deadline) const;
  bool isFirst(Moment deadline) const;
  bool mayBusRecover(Moment deadline) const;
  bool mayBeTooFast(Moment deadline) const;
  bool always(Moment deadline) const;
  void lengthenTimeout(Moment deadline);
  void justAsk(Moment deadline);
  void askFunctionally(Moment deadline);
  void forgetAddress(Moment deadline);
  void startCommunication(Moment deadline);
  void giveTime(Moment deadline);
  void stopCounting(Moment deadline);
  void noteTrouble(Moment deadline);
  void slowDown(Moment deadline);
  void distrustCount(Moment deadline);
  bool neverAnswered() const;
  std::int64_t stepsUntil(Moment deadline) const;
  bool listenAfterPending(Moment deadline);

  LinkClock& clock_;
  ElmConsole console_;
  ElmAdapter adapter_;
  ElmAssembler assembler_;
  ElmFrameCounts frameCounts_;
  std::string adapterName_;
  bool awaitsPrompt_ = false;
  int silences_ = 0;  ///< attempts without any answer, one after another
  int lineFaults_ = 0;
  Moment waitingSince_{};  ///< somebody waits for what the adapter says
  std::map<std::int32_t, Reach> reach_;
  Unnamed unnamed_ = Unnamed::unseen;
  bool provenAlone_ = false;                ///< one request without a frame count got exactly one response
  std::optional<std::int32_t> unnamedEcu_;  ///< whom answers without a header were taken for
  bool byDefault_ = false;                  ///< OBD requests use the adapter's default header
  bool triedByDefault_ = false;             ///< that was tried
  Exchange exchange_;
  std::string text_;  ///< of the request; kept for its capacity
  std::deque<ElmMessage> messages_;
};

}  // namespace tarnlog::host
