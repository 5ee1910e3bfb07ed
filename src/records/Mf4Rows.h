#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/base/TextArena.h"
#include "records/Mf4Layout.h"

namespace tarnlog {

/// A record of a channel group. Texts lie in the row itself.
struct Mf4Row {
  const Mf4Group* group = nullptr;
  double time = 0;
  std::uint64_t number = 0;         ///< among all records of its data group
  std::vector<RecordValue> values;  ///< of the group's channels, those before its data too
  TextArena texts;
};

/// What is wrong with the records of a data group.
struct Mf4Damage {
  std::uint64_t cutAt = 0;  ///< place of the last record, when it is not whole
  std::uint64_t cutBytes = 0;
  std::uint64_t foreignAt = 0;  ///< place of a record whose id no group has: nothing behind it is read
  std::uint64_t foreignId = 0;
  std::uint64_t lostTexts = 0;  ///< values of variable length that are not where they should be
  std::uint64_t timeless = 0;   ///< records without a time
};

/// The values of variable length that came last: the records that use them come right behind them.
class Mf4Texts {
 public:
  void add(std::string_view bytes);
  std::optional<std::string_view> at(std::uint64_t offset) const;

 private:
  struct Text {
    std::uint64_t offset;
    std::string bytes;
  };
  std::deque<Text> kept_;
  std::uint64_t end_ = 0;
  std::size_t bytes_ = 0;
};

/// The records of a data group, in the order of the file.
class Mf4Rows {
 public:
  /// Those of `only`, or of all its groups of samples and notes. Reads so many bytes at a time. File and
  /// group must outlive this.
  Mf4Rows(const ReadableFile& file, const Mf4DataGroup& data, std::size_t block,
          const Mf4Group* only = nullptr);

  /// False behind the last whole one.
  bool next(Mf4Row& row);
  /// The same, but of the row only its group and time.
  bool nextTime(Mf4Row& row);

  /// The data group has more of them now.
  void goOn();

  const Mf4Damage& damage() const { return damage_; }
  /// Records that were read, by position of the group; those without a time too.
  const std::vector<std::uint64_t>& counts() const { return counts_; }

 private:
  const Mf4Group* nextRecord();
  const char* bytesAt(std::size_t offset, std::size_t count);
  bool takeText(std::size_t position);
  std::optional<std::size_t> positionOf(std::uint64_t id) const;
  bool setTime(Mf4Row& row, const Mf4Group& group);
  RecordValue value(const Mf4Channel& channel, const Mf4Group& group, TextArena& texts);
  RecordValue variableValue(const Mf4Channel& channel, TextArena& texts);
  bool readSignalData(const Mf4Channel& channel, std::uint64_t offset);
  std::nullptr_t end();

  const ReadableFile& file_;
  const Mf4DataGroup& data_;
  const Mf4Group* only_;
  std::uint64_t place_;  ///< of the next record
  std::uint64_t blockPlace_ = 0;
  std::vector<char> block_;
  std::size_t blockSize_ = 0;
  const char* record_ = nullptr;
  std::uint64_t number_ = 0;
  std::unordered_map<std::uint64_t, std::size_t> positions_;  ///< by record id
  std::unordered_map<std::uint64_t, Mf4Texts> texts_;         ///< by place of their group
  std::vector<std::uint64_t> counts_;
  std::string longText_;
  Mf4Damage damage_;
};

}  // namespace tarnlog
