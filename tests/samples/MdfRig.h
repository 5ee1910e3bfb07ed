#pragma once

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "samples/MdfSink.h"
#include "tests/support/AcqRig.h"
#include "tests/support/MdfStrictReader.h"

namespace tarnlog::test {

/// Writes measurement files into files of its own, at a moment of its own.
struct MdfParts {
  MemoryFileSystem mdfFiles;
  SteppedClock mdfClock;
  std::vector<std::string> closed;
  MdfSink sink{{.files = mdfFiles, .clock = mdfClock, .locale = {}, .programVersion = "1.0", .whole = [] {
                  return true;
                }}};

  MdfParts() {
    sink.setFinished([this](const std::string& path) { closed.push_back(path); });
  }
};

/// A recorder on a vehicle of two ECUs with data of all kinds, whose link takes a millisecond and a quarter
/// to send or to answer. All that the link delivered is kept as text.
class MdfRig : public MdfParts, public SampleSink, public AcqRig {
 public:
  MdfRig() : AcqRig({&sink, this}) {
    for (const ScriptedData* const item : {&temperature, &pedal, &part, &bytes, &ratio}) add(*item);
    session.script.whileWaiting = [this] { clock.stepMicroseconds(1250); };
    session.known = {{"VIN", "WVW<1>"}, {"adapter", "ELM"}};
    set(0);
  }

  /// The values of the cycle with this number.
  void set(int cycle) {
    speed.withRaw({.factor = 0.25, .offset = 0, .bits = 12}, 4000 - cycle);
    temperature.withRaw({.factor = 1, .offset = -40, .bits = 8, .isSigned = true}, -cycle);
    pedal.setValue(std::int32_t{cycle % 3});
    part.setValue("part " + std::to_string(cycle));
    bytes.setValue(ferrox3::Bytes(static_cast<std::size_t>(cycle % 4), 0x41));
    ratio.setValue(cycle / 3.0);
    if (cycle % 4 == 3) temperature.setNotAvailable();
    if (cycle % 4 == 3) part.setValue(std::numeric_limits<double>::quiet_NaN());
  }
  /// So many cycles, so many milliseconds apart.
  void cycles(int count, Milliseconds apart = 20) {
    for (; count > 0; --count) {
      clock.step(apart);
      set(++cycle_);
      timer.fire();
    }
  }

  MdfContent content(const std::string& path) const {
    return MdfStrictReader(mdfFiles.files.at(path)).read();
  }
  static std::string seconds(std::int64_t microseconds) {
    return numberText(static_cast<double>(microseconds) / 1e6);
  }

  void begin(const SampleBeginning& beginning) override {
    began = beginning.at;
    requests = beginning.requests;
  }
  void answer(const SampleAnswer& answer) override {
    std::string row = seconds(answer.received - began) + " " + seconds(answer.sent - began) + " " +
                      std::to_string(answer.sequence);
    for (const ferrox3::DataItem* const item : requests[answer.request].items) row += " " + textOf(*item);
    delivered.resize(requests.size());
    delivered[answer.request].push_back(row);
  }

  /// The records of a group, as what was delivered.
  static std::vector<std::string> rows(const MdfContent::Group& group) {
    std::vector<std::string> rows(group.records);
    for (const MdfContent::Channel& channel : group.channels)
      for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] += (rows[i].empty() ? "" : " ") + channel.values[i];
    return rows;
  }

  ScriptedRequest& slow = session.addEcu("Brakes", "ABS", 0x28).addRequest("21 81");
  ScriptedData& temperature = status.addData("Temperature", ferrox3::kDouble, "°C");
  ScriptedData& pedal =
      slow.addData("Pedal", ferrox3::kInteger).withLabels({{"Released", 0}, {"Pressed", 1}});
  ScriptedData& part = slow.addData("Part", ferrox3::kString);
  ScriptedData& bytes = slow.addData("Bytes", ferrox3::kByteArray);
  ScriptedData& ratio = slow.addData("Ratio");
  std::int64_t began = 0;
  std::vector<SampleRequest> requests;
  std::vector<std::vector<std::string>> delivered;

 private:
  static std::string numberText(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
  }
  static std::string textOf(const ferrox3::DataItem& item) {
    const auto* const number = std::get_if<double>(&item.value());
    if (number != nullptr) return std::isnan(*number) ? "-" : numberText(*number);
    const auto* const array = std::get_if<ferrox3::Bytes>(&item.value());
    return array != nullptr ? std::string(array->begin(), array->end()) : item.valueText();
  }

  int cycle_ = 0;
};

}  // namespace tarnlog::test
