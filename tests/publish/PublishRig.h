#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/SystemFileSystem.h"
#include "publish/PublishSink.h"
#include "samples/MdfSink.h"
#include "tests/support/AcqRig.h"
#include "tests/support/Broker.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::test {

/// Pauses of a few milliseconds.
inline PublishSetup quickSetup(const std::string& to) {
  PublishSetup setup;
  setup.terms.to = parseBrokerAddress(to);
  setup.terms.vehicle = "Car";
  setup.live = true;
  setup.firstPause = std::chrono::milliseconds(10);
  setup.longestPause = std::chrono::milliseconds(50);
  setup.patience = std::chrono::milliseconds(300);
  return setup;
}

struct PublishParts {
  PublishParts(const std::string& folder, const PublishSetup& setup) : publisher(setup) {
    sink.setFolderRule([folder](const std::string&) { return folder; });
    sink.setFinished([this](const std::string& path) { path_ = path; });
  }

  SystemFileSystem disk;
  SteppedClock fileClock;
  MdfSink sink{
      {.files = disk, .clock = fileClock, .locale = {}, .programVersion = "1", .whole = [] { return true; }}};
  Publisher publisher;
  PublishSink published{sink, publisher};
  std::string path_;  ///< of the measurement file, when it is finished
};

/// A recorder whose measurement file is published while it is written.
class PublishRig : public PublishParts, public AcqRig {
 public:
  PublishRig(const std::string& folder, const PublishSetup& setup, std::uint8_t idsBefore = 0)
      : PublishParts(folder, setup), AcqRig({&sink, &published}, idsBefore) {}

  /// Records a second request.
  void pedal() {
    ScriptedRequest& request = session.addEcu("Brakes", "ABS", 0x28).addRequest("21 81");
    add(request.addData("Pedal", ferrox3::kInteger).withLabels({{"Released", 0}, {"Pressed", 1}}));
  }
  /// So many polling cycles, 20 ms apart.
  void cycles(int count) {
    for (; count > 0; --count) {
      clock.step(20);
      speed.setValue(++cycle_ / 4.0);
      timer.fire();
    }
  }
  void stop() {
    acq.AskStopAcqNow();
    while (acq.AcqState() != TarnAcq::kIdle) timer.fire();
  }
  /// Nothing more comes: waits until all is published, or for so long.
  bool finish(std::chrono::milliseconds patience = std::chrono::seconds(60)) {
    publisher.end(patience);
    return becomes([this] { return publisher.isOver(); }) && publisher.isWhole();
  }
  std::string notices() {
    for (const Publisher::Notice& notice : publisher.takeNotices()) {
      notices_ += notice.text + "\n";
      troubled_ = notice.trouble;
    }
    return notices_;
  }
  bool isTroubled() { return notices(), troubled_; }

 private:
  int cycle_ = 0;
  std::string notices_;
  bool troubled_ = false;
};

}  // namespace tarnlog::test
