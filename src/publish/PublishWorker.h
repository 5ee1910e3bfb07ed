#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files/SystemFileSystem.h"
#include "publish/BrokerAccess.h"
#include "publish/MqttClient.h"
#include "publish/Publication.h"
#include "publish/PublishBackOff.h"
#include "publish/PublishMailbox.h"

namespace tarnlog {

struct PublishSetup {
  PublishTerms terms;
  BrokerAccess access;
  /// Where a file's note tells what of it is published, this is published, and not what the terms say.
  bool asNoted = false;
  /// A recorder's: the vehicle's state is published, and what other recordings in the folder were not
  /// published whole. `terms.vehicle` is given then.
  bool live = false;
  std::chrono::milliseconds firstPause{1000};  ///< before the broker is tried again
  std::chrono::milliseconds longestPause{60'000};
  int triesAtEnd = 1;  ///< of a broker that cannot be reached when the end is there
  std::chrono::milliseconds patience{
      30'000};  ///< with a broker that does not let us in, or acknowledges nothing
};

/// Publishes measurement files, on a thread of its own: the one that is being recorded as it grows and, while
/// nothing of it waits, others. Sees nothing but the mailbox and the files.
///
/// So many messages are on the way that the broker has not acknowledged; after a loss of the connection they
/// are sent again. What is behind them waits in the file.
class PublishWorker {
 public:
  static constexpr std::size_t kMostMessages = 1000;
  static constexpr std::size_t kMostBytes = 1 << 20;

  /// Raises a TarnError when a file of the access cannot be used.
  PublishWorker(const PublishSetup& setup, std::shared_ptr<PublishMailbox> mailbox);

  /// Until all is published, or the time of the end is there.
  void run();

 private:
  using Time = PublishMailbox::Time;
  struct Sent {
    Publication::Outgoing outgoing;
    std::shared_ptr<Publication> of;
    std::optional<int> id{};  ///< none: not sent over this connection
    bool acknowledged = false;
  };

  bool goOn();
  /// A file that is opened when its turn comes.
  struct Waiting {
    std::string path;
    PublishTerms terms;
  };

  void takeOrders();
  void follow(const PublishMailbox::Orders& orders);
  void openLive();
  void closeLive();
  void openWaiting();
  PublishTerms termsFor(const std::string& path);
  void add(const std::string& path, const PublishTerms& terms);
  void addUnfinished(const std::string& live);
  void connectWhenDue(Time now);
  void introduce();
  void introduce(const std::shared_ptr<Publication>& publication);
  bool isKnown(const std::string& path) const;
  void sendMore();
  bool goToNext(Sent& sent);
  bool goToNext(const std::shared_ptr<Publication>& publication, Sent& sent);
  void push(Sent sent);
  void settle(Time now);
  void acknowledge(const MqttClient::Acknowledgement& acknowledgement);
  void refused(Sent& sent);
  void drop(const Publication* publication);
  void watchConnection(Time now);
  void retire();
  void save(Publication& publication);
  void saveAll();
  bool allDone() const { return !live_ && others_.empty() && waiting_.empty() && sent_.empty(); }
  bool mayEnd(Time now);
  void sayGoodbye();
  void leave();
  void tell(const std::string& text, bool trouble);
  void tellOnce(const std::string& text);
  void tellRest(const std::string& path);

  PublishSetup setup_;
  std::shared_ptr<PublishMailbox> mailbox_;
  SystemFileSystem files_;
  MqttClient client_;
  PublishBackOff backOff_;
  std::shared_ptr<Publication> live_;
  std::string livePath_;
  bool isNew_ = false;                               ///< that one is still to be opened
  bool isSearching_ = false;                         ///< for something to send, and not through
  std::deque<std::shared_ptr<Publication>> others_;  ///< whole files, at most two
  std::deque<Waiting> waiting_;
  std::deque<Sent> sent_;
  std::size_t sentBytes_ = 0;
  bool isTrying_ = false;  ///< to connect, or connected
  bool wasOpen_ = false;
  bool saidGoodbye_ = false;
  bool lost_ = false;    ///< a file, or a message, could not be published at all
  int failures_ = 0;     ///< since the last acknowledgement
  std::string trouble_;  ///< as it was told; empty: all is well
  Time due_{};           ///< to connect
  Time progress_{};      ///< last acknowledgement, or when something was sent while nothing was under way
  Time saved_{};
  std::optional<Time> end_;
  std::set<std::string> told_;
};

}  // namespace tarnlog
