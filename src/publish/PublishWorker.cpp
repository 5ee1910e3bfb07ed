#include "publish/PublishWorker.h"

#include <fcntl.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/base/TarnError.h"
#include "platform/files/Descriptor.h"
#include "platform/text/Told.h"
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
    tell(Told::tr("{}; nothing more is published", error.what()), true);
    client_.disconnect();
    mailbox_->setOver(false);
  }
}

bool PublishWorker::goOn() {
  takeOrders();
  openWaiting();
  connectWhenDue(Steady::now());
  if (client_.state() == MqttClient::State::Open) {
    if (!wasOpen_) introduce();
    sendMore();
  }
  client_.step(mailbox_->wakeDescriptor(), isSearching_ ? milliseconds(0) : kLookAround);
  const Time now = Steady::now();
  settle(now);
  watchConnection(now);
  if (now - saved_ > kSaveEvery) saveAll();
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

void PublishWorker::follow(const PublishMailbox::Orders& orders) {
  if (orders.live != livePath_) {
    closeLive();
    livePath_ = orders.live;
    isNew_ = true;
  }
  if (isNew_ && !(live_ && live_->path() == livePath_)) openLive();
  try {
    if (live_) live_->growTo(orders.till);
  } catch (const std::exception& error) {
    tellOnce(livePath_ + ": " + error.what());
    return;
  }
  if (orders.closed) closeLive();
}

/// The note is made before anything else, so that nothing is forgotten when we are killed. What cannot be
/// opened now is tried again.
void PublishWorker::openLive() {
  try {
    live_ = std::make_shared<Publication>(files_, livePath_, setup_.terms, setup_.live);
    save(*live_);
    addUnfinished(livePath_);
    isNew_ = false;
  } catch (const std::exception& error) {
    live_.reset();
    tellOnce(livePath_ + ": " + error.what() + "; nothing of it is published yet");
  }
}

void PublishWorker::closeLive() {
  if (isNew_ && !live_ && !livePath_.empty()) add(livePath_, setup_.terms);
  isNew_ = false;
  if (!live_) return;
  try {
    live_->close();
    others_.push_front(std::move(live_));
  } catch (const std::exception& error) {
    lost_ = true;
    tell(Told::tr("{}: {}; the rest of it is not published", livePath_, error.what()), true);
  }
  live_.reset();
}

bool PublishWorker::isKnown(const std::string& path) const {
  return (live_ && live_->path() == path) ||
         std::ranges::any_of(others_, [&](const auto& other) { return other->path() == path; }) ||
         std::ranges::find(waiting_, path, &Waiting::path) != waiting_.end();
}

void PublishWorker::add(const std::string& path, const PublishTerms& terms) {
  if (!isKnown(path)) waiting_.push_back({path, terms});
}

/// One at a time: there may be many.
void PublishWorker::openWaiting() {
  while (others_.empty() && !waiting_.empty()) {
    const Waiting next = std::move(waiting_.front());
    waiting_.pop_front();
    try {
      if (isBeingWritten(next.path))
        throw TarnError(1, "PublishWorker", next.path + ": is being recorded, and published by its recorder");
      auto publication = std::make_shared<Publication>(files_, next.path, next.terms, false);
      publication->close();
      others_.push_back(std::move(publication));
    } catch (const std::exception& error) {
      lost_ = true;
      tell(error.what(), true);
    }
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
  // A recorder's older files must not describe what it publishes now.
  const bool retained = !setup_.live || publication == live_;
  for (MqttMessage& message : publication->introduction(retained))
    push({{std::move(message), 0}, publication});
}

void PublishWorker::push(Sent sent) {
  if (sent_.empty()) progress_ = Steady::now();
  sentBytes_ += sent.outgoing.message.payload.size();
  sent.id = sent.acknowledged ? std::nullopt : client_.publish(sent.outgoing.message);
  if (!sent.id && !sent.acknowledged && client_.state() == MqttClient::State::Open) {
    tellOnce(sent.outgoing.message.topic +
             ": is left out: the broker does not take messages as long as this");
    sent.acknowledged = true;
    lost_ = true;
  }
  sent_.push_back(std::move(sent));
}

void PublishWorker::sendMore() {
  Sent sent;
  isSearching_ = false;
  while (client_.state() == MqttClient::State::Open && sent_.size() < kMostMessages &&
         sentBytes_ < kMostBytes && !client_.isCongested() && goToNext(sent))
    push(std::move(sent));
}

/// What is recorded now goes first.
bool PublishWorker::goToNext(Sent& sent) {
  if (live_ && goToNext(live_, sent)) return true;
  return !others_.empty() && goToNext(others_.front(), sent);
}

/// A file that cannot be read on ends only its own publication.
bool PublishWorker::goToNext(const std::shared_ptr<Publication>& publication, Sent& sent) {
  sent = {};
  sent.of = publication;
  try {
    const bool found = publication->next(sent.outgoing);
    if (found && !publication->isIntroduced()) introduce(publication);
    isSearching_ = isSearching_ || (!found && publication->isSearching());
    return found;
  } catch (const std::exception& error) {
    const std::shared_ptr<Publication> failed = sent.of;
    tell(failed->path() + ": " + error.what(), true);
    drop(failed.get());
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
    client_.close(Told::tr("the broker acknowledges nothing"));
}

void PublishWorker::acknowledge(const MqttClient::Acknowledgement& acknowledgement) {
  const auto sent = std::ranges::find(sent_, std::optional(acknowledgement.id), &Sent::id);
  if (sent == sent_.end() || sent->acknowledged) return;
  if (acknowledgement.refused) return refused(*sent);
  sent->acknowledged = true;
  if (sent->outgoing.sequence == 0) return;
  failures_ = 0;
  backOff_.succeeded();
  if (!std::exchange(trouble_, {}).empty()) tell(Told::tr("goes on"), false);
}

/// What is recorded now is tried again, in case that somebody mends it; older files do not hold it up.
void PublishWorker::refused(Sent& sent) {
  const std::string why = sent.outgoing.message.topic + ": " + client_.why();
  if (!sent.of) {
    sent.acknowledged = true;
  } else if (sent.of != live_) {
    tell(Told::tr("{}; {} is left", why, sent.of->path()), true);
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
    tell(Told::tr("{}; it is tried again, and the answers wait in their file", client_.why()), true);
}

void PublishWorker::retire() {
  const auto done = [&](const std::shared_ptr<Publication>& publication) {
    if (!publication->isComplete()) return false;
    save(*publication);
    if (publication->isDamaged()) {
      lost_ = true;
      tell(Told::tr("{}: is damaged: what stands behind is not published", publication->path()), true);
    }
    if (!setup_.live)
      tell(Told::tr("{}: answers published: {}", publication->path(), publication->published()), false);
    return true;
  };
  std::erase_if(others_, done);
}

void PublishWorker::saveAll() {
  saved_ = Steady::now();
  if (live_) save(*live_);
  for (const auto& other : others_) save(*other);
}

void PublishWorker::save(Publication& publication) {
  try {
    publication.save();
  } catch (const std::exception& error) {
    tellOnce(Told::tr("{}; the file will be published again", error.what()));
  }
}

bool PublishWorker::mayEnd(Time now) {
  if (!end_) return false;
  if (now >= *end_ || failures_ >= setup_.triesAtEnd) return true;
  if (!allDone()) return saidGoodbye_ && client_.state() == MqttClient::State::Closed;
  if (!setup_.live || saidGoodbye_ || client_.state() != MqttClient::State::Open) return true;
  sayGoodbye();
  return false;
}

void PublishWorker::sayGoodbye() {
  saidGoodbye_ = true;
  const PublishTopics topics(setup_.terms.to.topic, setup_.terms.vehicle);
  push({{{topics.state(), stateText("ended"), true}, 0}, {}});
}

/// The client is gone before anybody may think that this is over: the library must not be used while the
/// process ends.
void PublishWorker::leave() {
  if (setup_.live && !saidGoodbye_ && client_.state() == MqttClient::State::Open) sayGoodbye();
  client_.disconnect();
  closeLive();
  saveAll();
  for (const auto& other : others_) tellRest(other->path());
  for (const Waiting& waiting : waiting_) tellRest(waiting.path);
  mailbox_->setOver(others_.empty() && waiting_.empty() && !lost_);
}

void PublishWorker::tellRest(const std::string& path) {
  tell(Told::tr("{}: is not published whole; \"tarn-record publish\" sends the rest", path), true);
}

/// What may be so again and again.
void PublishWorker::tellOnce(const std::string& text) {
  if (told_.insert(text).second) tell(text, true);
}

void PublishWorker::tell(const std::string& text, bool trouble) {
  mailbox_->tell({setup_.terms.to.text() + ": " + text, trouble});
}

}  // namespace tarnlog
