#include "publish/MqttClient.h"

#include <mosquitto.h>
#include <poll.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <string_view>
#include <utility>

#include "platform/base/TarnError.h"

namespace tarnlog {

namespace {

constexpr int kKeepAlive = 30;  // seconds
constexpr int kSendMaximum = 0xFFFF;
constexpr int kQualityOfService = 1;
constexpr int kFirstRefusal = 0x80;  ///< of the reason codes of MQTT 5

/// Reason codes of a CONNACK, MQTT 3.1.1 and 5.
constexpr int kOldVersionRefused = 1;
constexpr int kOldBadLogin = 4;
constexpr int kOldNotAuthorised = 5;
constexpr int kVersionRefused = 0x84;
constexpr int kBadLogin = 0x86;
constexpr int kNotAuthorised = 0x87;

/// Once a process; nothing needs to be given back at its end.
void initialiseLibrary() {
  static std::once_flag done;
  std::call_once(done, [] { mosquitto_lib_init(); });
}

std::string refusal(int reason, int version) {
  if (reason == kOldBadLogin || reason == kOldNotAuthorised || reason == kBadLogin ||
      reason == kNotAuthorised)
    return "the broker does not let us in: expected another user, password or certificate";
  return std::string("the broker refuses the connection: ") +
         (version == MQTT_PROTOCOL_V5 ? mosquitto_reason_string(reason) : mosquitto_connack_string(reason));
}

/// Nobody is there to be asked for it.
int noPassphrase(char* /*buffer*/, int /*size*/, int /*writes*/, void* /*object*/) { return 0; }

}  // namespace

struct MqttClient::Callbacks {
  static MqttClient& of(void* object) { return *static_cast<MqttClient*>(object); }

  static void connected(mosquitto* /*client*/, void* object, int reason, int /*flags*/,
                        const mosquitto_property* /*properties*/) {
    of(object).answered(reason);
  }
  static void disconnected(mosquitto* /*client*/, void* object, int reason,
                           const mosquitto_property* /*properties*/) {
    if (reason >= kFirstRefusal)
      of(object).close(std::string("the broker ended the connection: ") + mosquitto_reason_string(reason));
  }
  static void published(mosquitto* /*client*/, void* object, int id, int reason,
                        const mosquitto_property* /*properties*/) {
    MqttClient& self = of(object);
    const bool refused = reason >= kFirstRefusal;
    if (refused) self.why_ = std::string("the broker does not take this: ") + mosquitto_reason_string(reason);
    self.acknowledgements_.push_back({id, refused});
  }
  static void logged(mosquitto* /*client*/, void* object, int level, const char* text) {
    if ((level & (MOSQ_LOG_ERR | MOSQ_LOG_WARNING)) != 0) of(object).logged_ = text;
  }
};

void MqttClient::Free::operator()(mosquitto* client) const { mosquitto_destroy(client); }

MqttClient::MqttClient(BrokerAddress address, BrokerAccess access, std::optional<MqttMessage> will,
                       std::chrono::milliseconds patience)
    : address_(std::move(address)), access_(std::move(access)), will_(std::move(will)), patience_(patience) {
  initialiseLibrary();
  make();
}

MqttClient::~MqttClient() = default;

/// Brokers that know no MQTT 5 say so or, against the standard, end the connection without a word. They do
/// not tell what they refuse of what is published, so 3.1.1 is used only where nothing else is left.
int MqttClient::version() const {
  constexpr int kMostEndedAtOnce = 3;
  return old_ || (!new_ && endedAtOnce_ >= kMostEndedAtOnce) ? MQTT_PROTOCOL_V311 : MQTT_PROTOCOL_V5;
}

void MqttClient::require(int result, const std::string& what) const {
  if (result == MOSQ_ERR_SUCCESS) return;
  const std::string reason = logged_.empty() ? mosquitto_strerror(result) : logged_;
  throw TarnError(1, "MqttClient", address_.text() + ": " + what + ": " + reason);
}

/// A client for each connection: nothing that the one before has sent is sent again behind our back.
void MqttClient::make() {
  client_.reset(mosquitto_new(nullptr, true, this));
  if (!client_) throw TarnError(1, "MqttClient", std::strerror(errno));
  mosquitto_connect_v5_callback_set(client_.get(), &Callbacks::connected);
  mosquitto_disconnect_v5_callback_set(client_.get(), &Callbacks::disconnected);
  mosquitto_publish_v5_callback_set(client_.get(), &Callbacks::published);
  mosquitto_log_callback_set(client_.get(), &Callbacks::logged);
  mosquitto_int_option(client_.get(), MOSQ_OPT_PROTOCOL_VERSION, version());
  mosquitto_int_option(client_.get(), MOSQ_OPT_SEND_MAXIMUM, kSendMaximum);
  mosquitto_int_option(client_.get(), MOSQ_OPT_TCP_NODELAY, 1);
  if (!access_.user.empty())
    require(mosquitto_username_pw_set(client_.get(), access_.user.c_str(),
                                      access_.password.empty() ? nullptr : access_.password.c_str()),
            "user and password");
  if (address_.encrypted) useTls();
  if (will_)
    require(mosquitto_will_set(client_.get(), will_->topic.c_str(), static_cast<int>(will_->payload.size()),
                               will_->payload.data(), kQualityOfService, will_->retained),
            "topic");
}

void MqttClient::useTls() {
  const auto file = [](const std::string& path) { return path.empty() ? nullptr : path.c_str(); };
  const bool ofSystem = access_.authority.empty();
  if (ofSystem) mosquitto_int_option(client_.get(), MOSQ_OPT_TLS_USE_OS_CERTS, 1);
  require(mosquitto_tls_set(client_.get(), file(access_.authority), ofSystem ? "/etc/ssl/certs" : nullptr,
                            file(access_.certificate), file(access_.key), noPassphrase),
          "files of the certificates");
}

void MqttClient::connect() {
  acknowledgements_.clear();
  logged_.clear();
  make();
  begun_ = std::chrono::steady_clock::now();
  state_ = State::Connecting;
  check(mosquitto_connect_async(client_.get(), address_.host.c_str(), address_.port, kKeepAlive));
}

void MqttClient::answered(int reason) {
  new_ = new_ || (reason == 0 && version() == MQTT_PROTOCOL_V5);
  endedAtOnce_ = 0;
  if (reason == 0) {
    state_ = State::Open;
    why_.clear();
  } else if (!old_ && (reason == kOldVersionRefused || reason == kVersionRefused)) {
    old_ = true;
    close("the broker knows MQTT 3.1.1 only");
  } else {
    close(refusal(reason, version()));
  }
}

void MqttClient::check(int result) {
  if (result == MOSQ_ERR_SUCCESS || state_ == State::Closed) return;
  std::string why = result == MOSQ_ERR_ERRNO ? std::strerror(errno) : mosquitto_strerror(result);
  if (result == MOSQ_ERR_EAI || result == MOSQ_ERR_LOOKUP) why = "the broker's name cannot be looked up";
  if (result == MOSQ_ERR_TLS && !logged_.empty()) why = "TLS: " + logged_;
  if (result == MOSQ_ERR_QOS_NOT_SUPPORTED) why = "the broker acknowledges nothing (quality of service 1)";
  const bool atOnce = state_ == State::Connecting && result == MOSQ_ERR_CONN_LOST;
  if (atOnce) why = "the broker ends the connection at once";
  endedAtOnce_ = atOnce ? endedAtOnce_ + 1 : 0;
  close(why);
}

void MqttClient::close(const std::string& why) {
  state_ = State::Closed;
  why_ = why;
}

std::optional<int> MqttClient::publish(const MqttMessage& message) {
  if (state_ != State::Open) return std::nullopt;
  int id = 0;
  const int result = mosquitto_publish_v5(client_.get(), &id, message.topic.c_str(),
                                          static_cast<int>(message.payload.size()), message.payload.data(),
                                          kQualityOfService, message.retained, nullptr);
  if (result == MOSQ_ERR_SUCCESS) return id;
  if (result != MOSQ_ERR_OVERSIZE_PACKET && result != MOSQ_ERR_PAYLOAD_SIZE) check(result);
  return std::nullopt;
}

bool MqttClient::isCongested() const { return state_ == State::Open && mosquitto_want_write(client_.get()); }

void MqttClient::step(int wake, std::chrono::milliseconds longest) {
  if (state_ == State::Closed) client_.reset();
  const int socket = client_ ? mosquitto_socket(client_.get()) : -1;
  const bool writes = socket >= 0 && mosquitto_want_write(client_.get());
  std::array<pollfd, 2> ready{pollfd{socket, static_cast<short>(writes ? POLLIN | POLLOUT : POLLIN), 0},
                              pollfd{wake, POLLIN, 0}};
  ::poll(ready.data(), ready.size(), static_cast<int>(longest.count()));
  if (!client_) return;
  if (socket < 0) return check(MOSQ_ERR_CONN_LOST);
  if ((ready[0].revents & POLLOUT) != 0) check(mosquitto_loop_write(client_.get(), 1));
  if (state_ != State::Closed && (ready[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0)
    check(mosquitto_loop_read(client_.get(), 1));
  if (state_ != State::Closed) check(mosquitto_loop_misc(client_.get()));
  if (state_ == State::Connecting && std::chrono::steady_clock::now() - begun_ > patience_)
    close("the broker does not answer");
}

void MqttClient::disconnect() {
  if (state_ == State::Open) mosquitto_disconnect(client_.get());
  state_ = State::Closed;
  client_.reset();
}

}  // namespace tarnlog
