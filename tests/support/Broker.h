#pragma once

#include <fcntl.h>
#include <mosquitto.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

namespace tarnlog::test {

/// Lets other processes and threads go on; true when the question is answered with yes in time.
inline bool becomes(const std::function<bool()>& yes,
                    std::chrono::seconds longest = std::chrono::seconds(60)) {
  const auto end = std::chrono::steady_clock::now() + longest;
  while (!yes()) {
    if (std::chrono::steady_clock::now() > end) return false;
    ::poll(nullptr, 0, 2);
  }
  return true;
}

/// A broker of its own on this machine, which keeps what its subscribers have not got yet.
class Broker {
 public:
  static constexpr const char* kProgram = "/usr/sbin/mosquitto";
  static bool isInstalled() { return std::filesystem::exists(kProgram); }

  /// `more` is added to its configuration.
  explicit Broker(std::string folder, const std::string& more = "allow_anonymous true\n")
      : folder_(std::move(folder)), port_(freePort()) {
    std::ofstream(folder_ + "/broker.conf")
        << "listener " << port_ << " 127.0.0.1\npersistence true\npersistence_location " << folder_
        << "/\nmax_queued_messages 0\nmax_inflight_messages 1000\nuser root\n"
        << more;
    start();
  }
  Broker(const Broker&) = delete;
  Broker& operator=(const Broker&) = delete;
  ~Broker() { stop(); }

  void start() {
    const std::string configuration = folder_ + "/broker.conf";
    const char* const arguments[] = {kProgram, "-c", configuration.c_str(), nullptr};
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 1, (folder_ + "/broker.log").c_str(),
                                     O_WRONLY | O_CREAT | O_APPEND, 0600);
    posix_spawn_file_actions_adddup2(&files, 1, 2);
    posix_spawn(&process_, kProgram, &files, nullptr, const_cast<char* const*>(arguments), environ);
    posix_spawn_file_actions_destroy(&files);
    becomes([this] { return accepts(); });
  }
  /// From now on it keeps for the Subscriber what comes.
  void keepForSubscriber() const;
  void stop() { end(SIGTERM); }
  void kill() { end(SIGKILL); }
  /// It reads nothing any more, as if the network were cut.
  void freeze() const { ::kill(process_, SIGSTOP); }
  void goOn() const { ::kill(process_, SIGCONT); }

  std::uint16_t port() const { return port_; }
  std::string address(const std::string& scheme = "mqtt") const {
    return scheme + "://localhost:" + std::to_string(port_) + "/fleet";
  }

 private:
  static sockaddr_in local(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
  }
  static std::uint16_t freePort() {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = local(0);
    socklen_t size = sizeof address;
    ::bind(socket, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(socket);
    return ntohs(address.sin_port);
  }
  bool accepts() const {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = local(port_);
    const bool accepted = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return accepted;
  }
  void end(int signal) {
    if (process_ <= 0) return;
    ::kill(process_, signal);
    ::kill(process_, SIGCONT);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
  }

  std::string folder_;
  std::uint16_t port_;
  pid_t process_ = 0;
};

/// Takes all that is published below "fleet", over restarts of the broker.
class Subscriber {
 public:
  explicit Subscriber(std::uint16_t port) {
    mosquitto_lib_init();
    client_ = mosquitto_new("subscriber", false, this);
    mosquitto_connect_callback_set(
        client_, [](mosquitto* client, void*, int) { mosquitto_subscribe(client, nullptr, "fleet/#", 1); });
    mosquitto_subscribe_callback_set(client_, [](mosquitto*, void* self, int, int, const int*) {
      static_cast<Subscriber*>(self)->subscribed_ = true;
    });
    mosquitto_message_callback_set(client_, [](mosquitto*, void* self, const mosquitto_message* message) {
      static_cast<Subscriber*>(self)->take(*message);
    });
    mosquitto_reconnect_delay_set(client_, 1, 1, false);
    mosquitto_connect(client_, "127.0.0.1", port, 5);
    becomes([this] { return step(), subscribed_; });
  }
  Subscriber(const Subscriber&) = delete;
  Subscriber& operator=(const Subscriber&) = delete;
  ~Subscriber() { mosquitto_destroy(client_); }

  /// Takes what has come.
  void step() {
    for (int i = 0; i < 200; ++i) {
      const std::size_t before = taken_;
      if (mosquitto_loop(client_, 0, 1000) != MOSQ_ERR_SUCCESS) mosquitto_reconnect(client_);
      if (taken_ == before) return;
    }
  }
  bool gets(std::size_t wanted) {
    return becomes([&] { return step(), times.size() >= wanted; });
  }

  std::map<std::string, std::string> newest;          ///< by topic
  std::map<std::pair<std::string, long>, int> times;  ///< how often each answer came
  int answers = 0;

 private:
  static std::string member(const std::string& text, const std::string& name) {
    const std::size_t at = text.find("\"" + name + "\":");
    return at == std::string::npos ? "" : text.substr(at + name.size() + 3);
  }
  void take(const mosquitto_message& message) {
    ++taken_;
    const std::string text(static_cast<const char*>(message.payload),
                           static_cast<std::size_t>(message.payloadlen));
    newest[message.topic] = text;
    const std::string sequence = member(text, "seq");
    if (sequence.empty()) return;
    ++answers;
    ++times[{member(text, "acquisition").substr(1, 32), std::stol(sequence)}];
  }

  mosquitto* client_;
  std::size_t taken_ = 0;
  bool subscribed_ = false;
};

inline void Broker::keepForSubscriber() const { const Subscriber once(port_); }

}  // namespace tarnlog::test
