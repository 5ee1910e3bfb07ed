#include "apps/tarn-record/PublishCommand.h"

#include <fmt/format.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <optional>

#include "apps/common/BadInput.h"
#include "apps/common/Signals.h"
#include "apps/common/TerminalText.h"
#include "platform/text/Told.h"
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

void sayAll(Publisher& publisher, Loudness loudness) {
  for (const Publisher::Notice& notice : publisher.takeNotices())
    if (notice.trouble || loudness != Loudness::Quiet) say(notice.text);
}

/// What is published, and how.
void sayTerms(const PublishSetup& setup, const std::vector<std::string>& files) {
  say(Told::tr("{} files go to {}", files.size(), setup.terms.to.text()));
  for (const PublishedDatum& datum : setup.terms.selection.data)
    say(Told::tr("only {}, every {} ms", datum.name,
                 datum.every.value_or(setup.terms.selection.every).count()));
  if (setup.asNoted) say(Told::tr("all that earlier runs were told to publish"));
}

}  // namespace

/// What an earlier run was told to publish of a file is published of it now, too, where nobody says
/// otherwise.
int publishFiles(const PublishCommandOptions& options) {
  PublishSetup setup = publishSetup(options.publish, [&](const std::string& unwise) {
    if (options.loudness != Loudness::Quiet) say(unwise);
  });
  setup.terms.again = options.again;
  setup.asNoted = options.publish.data.empty() && !options.publish.every;
  setup.triesAtEnd = kTries;
  for (const std::string& file : options.files) const MeasurementAnswers readable(file);
  if (options.loudness == Loudness::Verbose) sayTerms(setup, options.files);
  Signals::install();
  Publisher publisher(setup);
  for (const std::string& file : options.files) publisher.add(file);
  publisher.end(std::chrono::hours(24 * 365));
  std::optional<std::chrono::steady_clock::time_point> latest;
  while (!publisher.isOver() && (!latest || std::chrono::steady_clock::now() < *latest)) {
    ::poll(nullptr, 0, kLookAround);
    sayAll(publisher, options.loudness);
    if (!Signals::stopRequested() || latest) continue;
    publisher.end(std::chrono::seconds(0));
    latest = std::chrono::steady_clock::now() + kAfterStop;
  }
  sayAll(publisher, options.loudness);
  return publisher.isWhole() ? kDone : kFailed;
}

}  // namespace tarnlog::record
