#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "publish/BrokerAccess.h"
#include "publish/BrokerAddress.h"

struct mosquitto;

namespace tarnlog {

/// What is sent to a broker.
struct MqttMessage {
  std::string topic;
  std::string payload;
  bool retained = false;
};

/// A connection to a broker, by MQTT 5 or, where that is refused, 3.1.1. Messages are sent with quality of
/// service 1: the broker acknowledges each. Nothing here waits but `step`; looking up the broker's name may
/// take long.
class MqttClient {
 public:
  enum class State : std::uint8_t { Closed, Connecting, Open };
  struct Acknowledgement {
    int id = 0;
    bool refused = false;  ///< the broker has not taken it: see `why`
  };

  /// The broker publishes `will` when the connection is lost. It has `patience` to let us in. Raises a
  /// TarnError when a file of `access` cannot be used.
  MqttClient(BrokerAddress address, BrokerAccess access, std::optional<MqttMessage> will,
             std::chrono::milliseconds patience);
  ~MqttClient();
  MqttClient(const MqttClient&) = delete;
  MqttClient& operator=(const MqttClient&) = delete;

  /// Begins to connect.
  void connect();
  /// The id that its acknowledgement will have. None when this message can never be sent, or when the
  /// connection is closed now.
  std::optional<int> publish(const MqttMessage& message);
  /// Waits until the broker sends something or `wake` can be read, at most so long, and does what is to be
  /// done.
  void step(int wake, std::chrono::milliseconds longest);
  /// Says good-bye, so that the will is not published, and closes.
  void disconnect();
  /// Closes without a word.
  void close(const std::string& why);

  State state() const { return state_; }
  /// Why it is closed or refuses something, for the user.
  const std::string& why() const { return why_; }
  /// Those that came since this was called last.
  std::vector<Acknowledgement> takeAcknowledgements() { return std::exchange(acknowledgements_, {}); }
  /// Something is to be sent, but the connection does not take it now.
  bool isCongested() const;

 private:
  struct Free {
    void operator()(mosquitto* client) const;
  };
  struct Callbacks;

  void make();
  void require(int result, const std::string& what) const;
  void useTls();
  int version() const;
  void check(int result);
  void answered(int reason);

  BrokerAddress address_;
  BrokerAccess access_;
  std::optional<MqttMessage> will_;
  std::chrono::milliseconds patience_;
  bool old_ = false;     ///< the broker knows no MQTT 5
  bool new_ = false;     ///< it does
  int endedAtOnce_ = 0;  ///< in a row
  std::unique_ptr<mosquitto, Free> client_;
  State state_ = State::Closed;
  std::chrono::steady_clock::time_point begun_{};
  std::string why_;
  std::string logged_;  ///< by the library, about what went wrong last
  std::vector<Acknowledgement> acknowledgements_;
};

}  // namespace tarnlog
