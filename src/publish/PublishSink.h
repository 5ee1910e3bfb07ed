#pragma once

#include "acquisition/SampleSink.h"
#include "publish/Publisher.h"
#include "samples/MdfSink.h"

namespace tarnlog {

/// Tells a publisher how far the measurement file of the whole acquisition is written. It is to hear of
/// samples behind the sink that writes the file. All must outlive it.
class PublishSink : public SampleSink {
 public:
  PublishSink(const MdfSink& file, Publisher& publisher) : file_(file), publisher_(publisher) {}

  void cycle(const SampleCycle& /*cycle*/) override { look(); }
  void state(AcquisitionState /*state*/, std::int64_t /*at*/) override { look(); }
  void end(std::int64_t /*at*/) override { publisher_.close(); }

 private:
  void look() {
    if (const auto file = file_.wholeFile()) publisher_.follow(file->first, file->second);
  }

  const MdfSink& file_;
  Publisher& publisher_;
};

}  // namespace tarnlog
