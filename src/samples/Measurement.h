#pragma once

#include <vector>

#include "samples/MdfSink.h"
#include "samples/QualityCounter.h"

namespace tarnlog {

/// What is measured beside the records: the quality of each recording, and the files that hold every answer.
class Measurement {
 public:
  explicit Measurement(MdfSinkSetup setup) : files_(withQuality(std::move(setup), quality_)) {}
  Measurement(const Measurement&) = delete;
  Measurement& operator=(const Measurement&) = delete;

  /// In the order in which they are to hear: files are closed with the quality that was counted by then.
  std::vector<SampleSink*> sinks() { return {&quality_, &files_}; }
  QualityCounter& quality() { return quality_; }
  MdfSink& files() { return files_; }

 private:
  static MdfSinkSetup withQuality(MdfSinkSetup setup, const QualityCounter& quality) {
    setup.quality = &quality;
    return setup;
  }

  QualityCounter quality_;
  MdfSink files_;
};

}  // namespace tarnlog
