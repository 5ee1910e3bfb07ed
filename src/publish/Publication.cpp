#include "publish/Publication.h"

#include <algorithm>
#include <mutex>
#include <tuple>
#include <utility>

#include "platform/base/TarnError.h"
#include "publish/PublishTexts.h"
#include "records/RecordNames.h"

namespace tarnlog {

namespace {

/// Several publications of a process may write one.
std::mutex& noteMutex() {
  static std::mutex mutex;
  return mutex;
}

PublishedNote noteBeside(const FileSystem& files, const std::string& measurement,
                         const std::string& acquisition) {
  const std::string path = PublishedNote::pathOf(measurement);
  PublishedNote note;
  if (files.fileExists(path)) skipOnFailure([&] { note = PublishedNote::parse(files.readAll(path)); });
  note.setAcquisition(acquisition);
  return note;
}

std::string vehicleOf(const MeasurementAnswers& answers, const std::string& given) {
  if (!given.empty()) return given;
  const std::string vin = answers.fact("VIN");
  return vin.empty() ? answers.fact("vehicle") : vin;
}

}  // namespace

Publication::Publication(FileSystem& files, std::string path, const PublishTerms& terms, bool live)
    : files_(files),
      path_(std::move(path)),
      live_(live),
      answers_(path_),
      acquisition_(answers_.fact("acquisition id")),
      topics_(terms.to.topic, vehicleOf(answers_, terms.vehicle)) {
  select(terms.selection);
  const PublishedUntil before = noteBeside(files, path_, acquisition_).at(terms.to.text());
  until_ = {terms.to.text(), vehicleOf(answers_, terms.vehicle), {}, terms.selection.every.count()};
  for (const PublishedDatum& datum : terms.selection.data) until_.data.push_back(textOf(datum));
  const auto choice = [](const PublishedUntil& until) {
    return std::tie(until.vehicle, until.data, until.every);
  };
  // Other data were not published before.
  if (!terms.again && choice(before) == choice(until_)) until_.acknowledged = before.acknowledged;
  begun_ = lastSent_ = until_.acknowledged;
}

void Publication::select(const PublishSelection& selection) {
  std::vector<bool> found(selection.data.size());
  for (const RecordGroup& group : answers_.head().groups) {
    std::vector<Datum>& selected = selected_.emplace_back();
    answerTopics_.push_back(topics_.answers(group.ecu, group.request));
    for (std::size_t i = 0; i < group.columns.size(); ++i) {
      const auto called = [&](const PublishedDatum& datum) { return isCalled(group.columns[i], datum.name); };
      const auto datum = std::ranges::find_if(selection.data, called);
      if (datum != selection.data.end())
        found[static_cast<std::size_t>(datum - selection.data.begin())] = true;
      if (selection.data.empty())
        selected.push_back({i, PublishPace(selection.every)});
      else if (datum != selection.data.end())
        selected.push_back({i, PublishPace(datum->every.value_or(selection.every))});
    }
  }
  const auto missing = std::ranges::find(found, false);
  if (missing == found.end()) return;
  throw TarnError(1, "Publication",
                  path_ + ": no datum " +
                      selection.data[static_cast<std::size_t>(missing - found.begin())].name +
                      " in it: expected ECU/REQUEST/DATA");
}

void Publication::close() {
  // Its end is known only now.
  const SystemReadableFile whole(path_);
  answers_.growTo(readLayout(whole).dataGroups.at(0).till);
  closed_ = true;
  exhausted_ = false;
}

std::vector<MqttMessage> Publication::introduction(bool retained) const {
  std::vector<MqttMessage> messages;
  if (live_ && !closed_) messages.push_back(state(stateNow()));
  for (std::size_t i = 0; i < selected_.size(); ++i) {
    if (selected_[i].empty()) continue;
    const RecordGroup& group = answers_.head().groups[i];
    std::vector<std::size_t> columns;
    for (const Datum& datum : selected_[i]) columns.push_back(datum.column);
    messages.push_back(
        {topics_.description(group.ecu, group.request), descriptionText(group, columns), retained});
  }
  return messages;
}

MqttMessage Publication::state(const char* name) const {
  return {topics_.state(), stateText(name, acquisition_, answers_.recording()), true};
}

bool Publication::selectDue() {
  due_.clear();
  for (Datum& datum : selected_[answers_.group()])
    if (datum.pace.isDue(answers_.time())) due_.push_back(datum.column);
  return !due_.empty();
}

bool Publication::next(Outgoing& outgoing) {
  constexpr int kMostAtOnce = 10'000;
  exhausted_ = false;
  for (int i = 0; i < kMostAtOnce; ++i) {
    if (!answers_.next()) {
      exhausted_ = true;
      return false;
    }
    if (answers_.kind() != MeasurementAnswers::Kind::Answer) {
      if (!live_) continue;
      outgoing = {state(stateNow()), 0};
      return true;
    }
    if (!selectDue() || answers_.sequence() <= begun_) continue;
    lastSent_ = answers_.sequence();
    outgoing = {{answerTopics_[answers_.group()], answerText(answers_, acquisition_, due_)}, lastSent_};
    return true;
  }
  return false;
}

void Publication::acknowledged(std::uint64_t sequence) {
  if (sequence == 0) return;
  until_.acknowledged = sequence;
  ++published_;
  changed_ = true;
}

/// What others noted meanwhile about other places stays.
void Publication::save() {
  if (until_.complete != isComplete()) changed_ = true;
  if (!changed_) return;
  until_.complete = isComplete() && !answers_.isDamaged();
  const std::lock_guard lock(noteMutex());
  PublishedNote note = noteBeside(files_, path_, acquisition_);
  note.at(until_.to) = until_;
  files_.replace(PublishedNote::pathOf(path_), note.text());
  changed_ = false;
}

}  // namespace tarnlog
