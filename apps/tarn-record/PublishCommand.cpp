#include "apps/tarn-record/PublishCommand.h"

#include <poll.h>

#include <cstdio>

#include "apps/common/BadInput.h"
#include "apps/common/Signals.h"
#include "apps/common/TerminalText.h"
#include "publish/MeasurementAnswers.h"
#include "publish/Publisher.h"

namespace tarnlog::record {

namespace {

constexpr int kTries = 5;
constexpr int kLookAround = 100;  // milliseconds

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
  pollfd signal{Signals::wakeDescriptor(), POLLIN, 0};
  while (!publisher.isOver()) {
    ::poll(&signal, 1, kLookAround);
    sayAll(publisher);
    if (Signals::stopRequested()) publisher.end(std::chrono::seconds(0));
  }
  sayAll(publisher);
  return publisher.isWhole() ? kDone : kFailed;
}

}  // namespace tarnlog::record
