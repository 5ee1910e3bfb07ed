#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "acquisition/SampleSink.h"
#include "platform/base/ByteBuffer.h"
#include "samples/JsonText.h"

namespace tarnlog {

/// Takes lines for somebody, and never waits for him.
class LineTarget {
 public:
  virtual ~LineTarget() = default;
  /// Takes whole lines, all of these or none. False, or raising: none.
  virtual bool take(std::string_view lines) = 0;
};

/// Writes what an acquisition gets as JSON lines (UTF-8, one object each, "type" first), for other programs
/// to read as it comes. Times are UTC, nanoseconds since 1970, on the wall clock of the beginning: setting
/// the clock later does not change them.
///
///     {"type":"begin","t":...,"acquisition":"...","zone":60,"facts":{...},"requests":[...]}
///     {"type":"answer","t":...,"sent":...,"ecu":"Engine","request":"Speeds","seq":7,"values":{"V":8}}
///     {"type":"lost","lines":120}
///
/// A cycle's lines are handed over together, those of several fast cycles at least every 20 ms. Lines that
/// the target does not take are counted, and told in the stream where they are missing. Once warm, an answer
/// allocates nothing.
class JsonLinesSink : public SampleSink {
 public:
  /// True with 0: lines get lost from now on. False: no longer, so many were.
  using LossHandler = std::function<void(bool losing, std::uint64_t lines)>;

  /// The target outlives the sink.
  explicit JsonLinesSink(LineTarget& target) : target_(target) {}

  void setLossHandler(LossHandler handler) { lossHandler_ = std::move(handler); }

  void begin(const SampleBeginning& beginning) override;
  void context(const SampleContext& context) override;
  void answer(const SampleAnswer& answer) override;
  void failure(const SampleFailure& failure) override;
  void state(AcquisitionState state, std::int64_t at) override;
  void cycle(const SampleCycle& cycle) override;
  void recordingBegan(const SampleRecording& recording) override;
  void mark(const SampleMark& mark) override;
  void recordingEnded(std::int64_t at, std::uint64_t rows) override;
  void gap(std::int64_t from, std::int64_t till) override;
  void clockStep(std::int64_t at, std::int64_t nanoseconds) override;
  void end(std::int64_t at) override;

 private:
  struct Item {
    const ferrox3::DataItem* item;
    std::string key;  ///< what stands before its value
  };
  struct Request {
    std::string names;  ///< of ECU and request, as members
    std::vector<Item> items;
  };

  template <class Fill>
  void line(std::string_view type, Fill fill);
  template <class Value>
  void member(std::string_view name, const Value& value);
  void time(std::string_view name, std::int64_t at);
  std::int64_t utc(std::int64_t at) const { return utc_ + (at - at_) * 1000; }
  void describe(const SampleBeginning& beginning);
  void describe(const SampleRequest& request);
  void describe(const ferrox3::DataItem& item);
  void facts(const std::vector<ferrox3::Fact>& facts);
  void values(const Request& request);
  void value(const ferrox3::DataItem& item);
  void handOver();
  bool taken(std::string_view lines);
  void lose();

  LineTarget& target_;
  LossHandler lossHandler_;
  std::int64_t at_ = 0;   ///< monotonic, of the beginning
  std::int64_t utc_ = 0;  ///< the same moment
  std::size_t factsTold_ = 0;
  std::vector<Request> requests_;
  std::int64_t newest_ = 0;   ///< answer
  std::int64_t waiting_ = 0;  ///< since then, lines are kept; 0: none are
  std::int64_t cycleBegan_ = 0;
  JsonMoments moments_;
  ByteBuffer out_;
  ByteBuffer withLoss_;      ///< kept for its capacity
  std::uint64_t lines_ = 0;  ///< in `out_`
  std::uint64_t lost_ = 0;   ///< and not told in the stream yet
};

}  // namespace tarnlog
