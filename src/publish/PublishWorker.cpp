#include "publish/PublishWorker.h"

#include <fcntl.h>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/Descriptor.h"
#include "publish/PublishTexts.h"

namespace tarnlog {

namespace {

using std::chrono::milliseconds;
using Steady = std::chrono::steady_clock;

constexpr std::string_view kNote = ".published";
constexpr milliseconds kLookAround{200};
constexpr std::chrono::seconds kSaveEvery{5};

/// What the broker says for us when we are gone without a word.
std::optional<MqttMessage> willOf(const PublishSetup& setup) {
  if (!setup.live) return std::nullopt;
  return MqttMessage{PublishTopics(setup.terms.to.topic, setup.terms.vehicle).state(), stateText("gone"),
                     true};
}

bool isBeingWritten(const std::string& path) {
  bool writes = false;
  skipOnFailure([&] { writes = !Descriptor(path, O_RDONLY | O_CLOEXEC).lock(); });
  return writes;
}

std::vector<std::string> notesIn(const std::filesystem::path& folder) {
  std::vector<std::string> notes;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    if (entry->path().extension() == kNote) notes.push_back(entry->path().string());
  std::ranges::sort(notes);
  return notes;
}

PublishTerms termsOf(const PublishedUntil& place, const PublishTerms& ours) {
  PublishTerms terms{.to = ours.to, .vehicle = place.vehicle, .selection = {}};
  for (const std::string& each : place.data) terms.selection.data.push_back(parsePublishedDatum(each));
  terms.selection.every = milliseconds(place.every);
  return terms;
}

}  // namespace

PublishWorker::PublishWorker(const PublishSetup& setup, std::shared_ptr<PublishMailbox> mailbox)
    : setup_(setup),
      mailbox_(std::move(mailbox)),
      client_(setup.terms.to, setup.access, willOf(setup), setup.patience),
      backOff_(setup.firstPause, setup.longestPause) {}

void PublishWorker::run() {
  try {
    while (goOn()) {
    }
    leave();
  } catch (const std::exception& error) {
    tell(std::string(error.what()) + "; nothing more is published", true);
    mailbox_->setOver(false);
  }
}

bool PublishWorker::goOn() {
  takeOrders();
  connectWhenDue(Steady::now());
  if (client_.state() == MqttClient::State::Open) {
    if (!wasOpen_) introduce();
    sendMore();
  }
  client_.step(mailbox_->wakeDescriptor(), kLookAround);
  const Time now = Steady::now();
  settle(now);
  watchConnection(now);
  if (now - saved_ > kSaveEvery) save(false);
  retire();
  return !mayEnd(now);
}

void PublishWorker::takeOrders() {
  const PublishMailbox::Orders orders = mailbox_->takeOrders();
  if (!orders.live.empty()) follow(orders);
  for (const std::string& path : orders.added) add(path, termsFor(path));
  if (orders.end && !end_) {
    due_ = {};
    failures_ = 0;
  }
  end_ = orders.end;
}

/// Of a file that is whole.
PublishTerms PublishWorker::termsFor(const std::string& path) {
  PublishTerms terms = setup_.terms;
  if (!setup_.asNoted) return terms;
  skipOnFailure([&] {
    PublishedNote note = PublishedNote::parse(files_.readAll(PublishedNote::pathOf(path)));
    const auto place = std::ranges::find(note.places, terms.to.text(), &PublishedUntil::to);
    if (place == note.places.end()) return;
    const std::string vehicle = terms.vehicle;
    const bool again = terms.again;
    terms = termsOf(*place, terms);
    if (!vehicle.empty()) terms.vehicle = vehicle;
    terms.again = again;
  });
  return terms;
}

/// The note is made before anything else, so that nothing is forgotten when we are killed.
void PublishWorker::follow(const PublishMailbox::Orders& orders) {
  if (orders.live != livePath_) {
    closeLive();
    livePath_ = orders.live;
    try {
      live_ = std::make_shared<Publication>(files_, orders.live, setup_.terms, setup_.live);
      live_->save();
      introduce(live_);
      addUnfinished(orders.live);
    } catch (const std::exception& error) {
      tell(error.what(), true);
    }
  }
  if (live_) live_->growTo(orders.till);
  if (orders.closed) closeLive();
}

void PublishWorker::closeLive() {
  if (!live_) return;
  if (skipOnFailure([&] { live_->close(); }))
    others_.push_front(std::move(live_));
  else
    tell(livePath_ + " cannot be read any more", true);
  live_.reset();
}

bool PublishWorker::isKnown(const std::string& path) const {
  return (live_ && live_->path() == path) ||
         std::ranges::any_of(others_, [&](const auto& other) { return other->path() == path; });
}

void PublishWorker::add(const std::string& path, const PublishTerms& terms) {
  if (isKnown(path)) return;
  try {
    auto publication = std::make_shared<Publication>(files_, path, terms, false);
    publication->close();
    others_.push_back(std::move(publication));
  } catch (const std::exception& error) {
    lost_ = true;
    tell(error.what(), true);
  }
}

/// What was recorded while the broker was away, or by a recorder that was killed.
void PublishWorker::addUnfinished(const std::string& live) {
  for (const std::string& path : notesIn(std::filesystem::path(live).parent_path())) {
    const std::string measurement = path.substr(0, path.size() - kNote.size()) + ".mf4";
    if (measurement == live || !files_.fileExists(measurement) || isBeingWritten(measurement)) continue;
    skipOnFailure([&] {
      PublishedNote note = PublishedNote::parse(files_.readAll(path));
      const auto place = std::ranges::find(note.places, setup_.terms.to.text(), &PublishedUntil::to);
      if (place != note.places.end() && !place->complete) add(measurement, termsOf(*place, setup_.terms));
    });
  }
}

/// Not before there is something to publish.
void PublishWorker::connectWhenDue(Time now) {
  if (client_.state() != MqttClient::State::Closed || now < due_ || saidGoodbye_ || allDone()) return;
  isTrying_ = true;
  try {
    client_.connect();
  } catch (const TarnError& error) {
    client_.close(error.description());
  }
}

/// Over a new connection: what subscribers have to know, and again what was not acknowledged.
void PublishWorker::introduce() {
  wasOpen_ = true;
  progress_ = Steady::now();
  std::deque<Sent> before = std::exchange(sent_, {});
  sentBytes_ = 0;
  for (const auto& other : others_) other->setIntroduced(false);
  if (live_) introduce(live_);
  for (Sent& sent : before)
    if (sent.outgoing.sequence != 0) push(std::move(sent));
}

void PublishWorker::introduce(const std::shared_ptr<Publication>& publication) {
  publication->setIntroduced(wasOpen_);
  if (!wasOpen_) return;
  for (MqttMessage& message : publication->introduction()) push({{std::move(message), 0}, publication});
}

void PublishWorker::push(Sent sent) {
  if (sent_.empty()) progress_ = Steady::now();
  sentBytes_ += sent.outgoing.message.payload.size();
  sent.id = sent.acknowledged ? std::nullopt : client_.publish(sent.outgoing.message);
  if (!sent.id && !sent.acknowledged && client_.state() == MqttClient::State::Open) {
    tell(sent.outgoing.message.topic + ": cannot be published: the name or the value is too long", true);
    sent.acknowledged = true;
    lost_ = true;
  }
  sent_.push_back(std::move(sent));
}

void PublishWorker::sendMore() {
  Sent sent;
  while (client_.state() == MqttClient::State::Open && sent_.size() < kMostMessages &&
         sentBytes_ < kMostBytes && !client_.isCongested() && goToNext(sent))
    push(std::move(sent));
}

/// What is recorded now goes first.
bool PublishWorker::goToNext(Sent& sent) {
  if (live_ && goToNext(live_, sent)) return true;
  for (const auto& other : std::deque(others_))
    if (goToNext(other, sent)) return true;
  return false;
}

/// A file that cannot be read on ends only its own publication.
bool PublishWorker::goToNext(const std::shared_ptr<Publication>& publication, Sent& sent) {
  sent = {};
  sent.of = publication;
  try {
    if (!publication->isIntroduced()) introduce(publication);
    return publication->next(sent.outgoing);
  } catch (const std::exception& error) {
    tell(publication->path() + ": " + error.what(), true);
    drop(publication.get());
    return false;
  }
}

void PublishWorker::settle(Time now) {
  for (const MqttClient::Acknowledgement& each : client_.takeAcknowledgements()) acknowledge(each);
  while (!sent_.empty() && sent_.front().acknowledged) {
    const Sent& first = sent_.front();
    progress_ = now;
    sentBytes_ -= first.outgoing.message.payload.size();
    if (first.of) first.of->acknowledged(first.outgoing.sequence);
    sent_.pop_front();
  }
  if (client_.state() == MqttClient::State::Open && wasOpen_ && !sent_.empty() &&
      now - progress_ > setup_.patience)
    client_.close("the broker acknowledges nothing");
}

void PublishWorker::acknowledge(const MqttClient::Acknowledgement& acknowledgement) {
  const auto sent = std::ranges::find(sent_, std::optional(acknowledgement.id), &Sent::id);
  if (sent == sent_.end() || sent->acknowledged) return;
  if (acknowledgement.refused) return refused(*sent);
  sent->acknowledged = true;
  if (sent->outgoing.sequence == 0) return;
  failures_ = 0;
  backOff_.succeeded();
  if (!std::exchange(trouble_, {}).empty()) tell("goes on", false);
}

/// What is recorded now is tried again, in case that somebody mends it; older files do not hold it up.
void PublishWorker::refused(Sent& sent) {
  const std::string why = sent.outgoing.message.topic + ": " + client_.why();
  if (!sent.of) {
    sent.acknowledged = true;
  } else if (sent.of != live_) {
    tell(why + "; " + sent.of->path() + " is left", true);
    drop(sent.of.get());
  } else if (client_.state() == MqttClient::State::Open) {
    client_.close(why);
  }
}

void PublishWorker::drop(const Publication* publication) {
  const auto isIt = [&](const std::shared_ptr<Publication>& other) { return other.get() == publication; };
  lost_ = true;
  for (Sent& sent : sent_)
    if (isIt(sent.of)) {
      sent.acknowledged = true;
      sent.of.reset();
    }
  if (isIt(live_)) live_.reset();
  std::erase_if(others_, isIt);
}

void PublishWorker::watchConnection(Time now) {
  if (client_.state() != MqttClient::State::Closed || !std::exchange(isTrying_, false)) return;
  wasOpen_ = false;
  due_ = now + backOff_.failed();
  ++failures_;
  if (std::exchange(trouble_, client_.why()) != client_.why())
    tell(client_.why() + "; it is tried again, and the answers wait in their file", true);
}

void PublishWorker::retire() {
  const auto done = [&](const std::shared_ptr<Publication>& publication) {
    if (!publication->isComplete()) return false;
    skipOnFailure([&] { publication->save(); });
    if (!setup_.live)
      tell(fmt::format("{}: {} answers published", publication->path(), publication->published()), false);
    return true;
  };
  std::erase_if(others_, done);
}

void PublishWorker::save(bool all) {
  saved_ = Steady::now();
  const auto write = [&](const std::shared_ptr<Publication>& publication) {
    if (!skipOnFailure([&] { publication->save(); }) && all)
      tell(PublishedNote::pathOf(publication->path()) + " cannot be written: it will be published again",
           true);
  };
  if (live_) write(live_);
  for (const auto& other : others_) write(other);
}

bool PublishWorker::mayEnd(Time now) {
  if (!end_) return false;
  if (now >= *end_ || failures_ >= setup_.triesAtEnd) return true;
  if (!allDone()) return false;
  if (!setup_.live || saidGoodbye_ || client_.state() != MqttClient::State::Open) return true;
  sayGoodbye();
  return false;
}

void PublishWorker::sayGoodbye() {
  saidGoodbye_ = true;
  const PublishTopics topics(setup_.terms.to.topic, setup_.terms.vehicle);
  push({{{topics.state(), stateText("ended"), true}, 0}, {}});
}

void PublishWorker::leave() {
  client_.disconnect();
  closeLive();
  save(true);
  for (const auto& other : others_)
    tell(other->path() + " is not published whole; \"tarn-record publish\" sends the rest", true);
  mailbox_->setOver(others_.empty() && !lost_);
}

void PublishWorker::tell(const std::string& text, bool trouble) {
  mailbox_->tell({setup_.terms.to.text() + ": " + text, trouble});
}

}  // namespace tarnlog
