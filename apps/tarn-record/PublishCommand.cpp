#include "apps/tarn-record/PublishCommand.h"

#include <poll.h>

#include <chrono>
#include <cstdio>
#include <optional>

#include "apps/common/BadInput.h"
#include "apps/common/Signals.h"
#include "apps/common/TerminalText.h"
#include "publish/MeasurementAnswers.h"
#include "publish/Publisher.h"

namespace tarnlog::record {

namespace {

constexpr int kTries = 5;
constexpr int kLookAround = 20;  // milliseconds
constexpr std::chrono::seconds kAfterStop{2};

void say(const std::string& text) {
  std::fputs(("tarn-record: publish: " + printableLine(text) + "\n").c_str(), stderr);
}

void sayAll(Publisher& publisher) {
  for (const Publisher::Notice& notice : publisher.takeNotices()) say(notice.text);
}

}  // namespace

/// What an earlier run was told to publish of a file is published of it now, too, where nobody says
/// otherwise.
int publishFiles(const PublishCommandOptions& options) {
  PublishSetup setup = publishSetup(options.publish, say);
  setup.terms.again = options.again;
  setup.asNoted = options.publish.data.empty() && !options.publish.every;
  setup.triesAtEnd = kTries;
  for (const std::string& file : options.files) const MeasurementAnswers readable(file);
  Signals::install();
  Publisher publisher(setup);
  for (const std::string& file : options.files) publisher.add(file);
  publisher.end(std::chrono::hours(24 * 365));
  std::optional<std::chrono::steady_clock::time_point> latest;
  while (!publisher.isOver() && (!latest || std::chrono::steady_clock::now() < *latest)) {
    ::poll(nullptr, 0, kLookAround);
    sayAll(publisher);
    if (!Signals::stopRequested() || latest) continue;
    publisher.end(std::chrono::seconds(0));
    latest = std::chrono::steady_clock::now() + kAfterStop;
  }
  sayAll(publisher);
  return publisher.isWhole() ? kDone : kFailed;
}

}  // namespace tarnlog::record
