#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "host/link/Link.h"
#include "host/vehicle/description/VehicleDescription.h"
#include "host/vehicle/session/EcuChannel.h"

namespace tarnlog::host {

/// Requests of one ECU that can be asked for together: PIDs of service 01, up to six at once, as ISO 15031-5
/// allows on CAN; or data identifiers of service 22 (ISO 14229-1), as many as the ECU takes. The first member
/// that is sent requests all that are together with it; each other one then uses its part of that response,
/// once.
///
/// How long an identifier's data are is learned from the answers that it gives alone, so that a part is used
/// only where the next one begins where it must. An ECU that takes fewer at once says so (negative response
/// codes 13 and 14): half as many are tried. What keeps missing, or is refused alone, is requested by itself,
/// and so are all if the ECU does not support several per request. What may have been a disturbance is tried
/// again after a while, each time after a longer one.
class IdentifierBundle {
 public:
  enum class Kind : std::uint8_t { none, pids, identifiers };
  /// What the request asks for, if it is one PID that ObdPids.h knows, or one identifier, and nothing else.
  static Kind kindOf(const RequestDescription& request, const EcuChannel& ecu);

  /// The requests must be of that kind and, like the ECU, outlive the bundle.
  IdentifierBundle(EcuChannel& ecu, Kind kind, const std::vector<const RequestDescription*>& members);

  enum class Taken : std::uint8_t {
    taken,       ///< the response is what it would be if the member had been asked for alone
    alone,       ///< the member has to be asked for alone
    silent,      ///< the ECU did not answer, although it answered such requests before
    unreachable  ///< nothing reaches the ECU
  };
  /// The response to a member. Failures of the link are TarnErrors.
  Taken take(const RequestDescription& request, Link::Bytes& response);
  /// Of the request that asked for the member taken last.
  const Conversation::Times& times() const { return times_; }
  /// A member was asked for alone.
  void askedAlone(const RequestDescription& request, Conversation::Outcome outcome,
                  std::span<const std::uint8_t> response);
  /// The member will be asked for: tells the ECU's conversation so, once for all that are together. False
  /// where it has to be asked for alone.
  bool askAhead(const RequestDescription& request);
  /// Drops what was received; what was learned is used from now on.
  void forget();

 private:
  enum class Share : std::uint8_t { due, arrived, missing };
  struct Member {
    const RequestDescription* request;
    std::optional<std::size_t> bytes;    ///< of data, without the identifier; none: not known yet
    std::optional<std::size_t> group{};  ///< those it is together with; none: alone
    Share share = Share::due;
    std::size_t place = 0;  ///< offset of the identifier in the response, when it arrived
    bool cameBefore = false;
    int missed = 0;                             ///< in a row
    bool apart = false;                         ///< requested by itself from now on
    std::size_t most = kMostIdentifiersAtOnce;  ///< members of its group
    bool refused = false;                       ///< when it was asked for alone

    std::span<const std::uint8_t> identifier() const { return std::span(request->frame).subspan(1); }
  };
  /// What one request asks for.
  struct Group {
    Link::Bytes frame{};
    std::size_t members = 0;
    std::chrono::milliseconds timeout{};
    bool toldAhead = false;
    Link::Bytes response{};
    Conversation::Times times{};
  };

  Member& memberOf(const RequestDescription& request);
  bool isUsable() const;
  std::size_t most() const;
  void layOut();
  void addGroup(const std::vector<Member*>& together);
  /// `taken` when the shares of the group are known.
  Taken ask(std::size_t group);
  std::size_t split(std::size_t group);
  Member* arrivingAt(std::size_t group, std::span<const std::uint8_t> bytes);
  void judge(std::size_t group, Conversation::Outcome outcome, std::size_t came);
  void noteMissing(std::size_t group);
  void halve(std::size_t group);
  void halveMembers(std::size_t group);
  void judgeSuspect(bool worksAlone);
  void limit();
  void forgive();

  EcuChannel& ecu_;
  Kind kind_;
  std::vector<Member> members_;
  std::vector<Group> groups_;
  Conversation::Times times_;
  std::size_t laidOutFor_ = 0;              ///< members at once
  std::size_t largest_ = 0;                 ///< group that was answered
  std::optional<std::size_t> unreached_{};  ///< group; what is asked alone tells whether it is too long
  bool changed_ = true;                     ///< since it was laid out
  bool worked_ = false;
  int failures_ = 0;
  bool usable_ = true;
  bool suspected_ = false;  ///< of not working; what is asked alone tells whether the ECU works at all
  std::optional<Moment> forgiven_{};  ///< when what disturbances may have limited is tried again
  std::chrono::seconds patience_{};
};

}  // namespace tarnlog::host
