#include "apps/tarnlog/LivePublishing.h"

#include <poll.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace tarnlog {

namespace {

constexpr int kTriesWithoutEnd = 1'000'000;
constexpr std::chrono::hours kWhileOpen{24 * 365};
constexpr std::chrono::seconds kAtClosing{1};

std::string factOf(const SampleBeginning& beginning, std::string_view name) {
  const auto found = std::ranges::find(beginning.facts, name, &ferrox3::Fact::name);
  return found == beginning.facts.end() ? std::string() : found->text;
}

}  // namespace

LivePublishing::LivePublishing(SettingsStore& settings, PublishOptions given)
    : choice_(settings), given_(std::move(given)) {}

PublishOptions LivePublishing::options() const {
  if (!given_.to.empty()) return given_;
  PublishOptions options;
  options.to = choice_.to();
  options.access = choice_.access();
  return options;
}

/// What an earlier acquisition has left is published by this one's publisher.
void LivePublishing::begin(const SampleBeginning& beginning) {
  sink_.reset();
  publisher_.reset();
  if (file_ == nullptr || !isWanted()) return;
  try {
    openPublisher(beginning);
  } catch (const std::exception& error) {
    tell_(error.what(), true);
  }
}

void LivePublishing::openPublisher(const SampleBeginning& beginning) {
  const std::string vin = factOf(beginning, "VIN");
  PublishSetup setup = livePublishSetup(options(), vin.empty() ? factOf(beginning, "vehicle") : vin,
                                        [this](const std::string& what) { tell_(what, true); });
  checkPublished(setup.terms.selection, beginning.parameters);
  setup.triesAtEnd = kTriesWithoutEnd;
  publisher_.emplace(setup);
  sink_.emplace(*file_, *publisher_);
}

void LivePublishing::cycle(const SampleCycle& cycle) {
  if (sink_) sink_->cycle(cycle);
}

void LivePublishing::state(AcquisitionState state, std::int64_t at) {
  if (sink_) sink_->state(state, at);
}

void LivePublishing::end(std::int64_t at) {
  if (!sink_) return;
  sink_->end(at);
  publisher_->end(kWhileOpen);
}

void LivePublishing::tellNews() {
  if (!publisher_) return;
  for (const Publisher::Notice& notice : publisher_->takeNotices()) tell_(notice.text, notice.trouble);
}

void LivePublishing::finish() {
  if (!publisher_) return;
  publisher_->end(kAtClosing);
  const auto latest = std::chrono::steady_clock::now() + 2 * kAtClosing;
  while (!publisher_->isOver() && std::chrono::steady_clock::now() < latest) ::poll(nullptr, 0, 10);
  tellNews();
}

}  // namespace tarnlog
