#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "records/Mf4Blocks.h"
#include "records/Mf4Channel.h"
#include "records/Record.h"

namespace tarnlog {

/// A channel group: what its records look like.
struct Mf4Group {
  /// What its records are: samples, or what a recorder notes beside them.
  enum class Role : std::uint8_t { Samples, Texts, Marks, Gaps, Failures, ClockSteps };

  std::uint64_t place = 0;
  std::uint64_t recordId = 0;
  std::uint64_t records = 0;  ///< as the file tells; 0 in an unfinished one
  std::uint32_t dataBytes = 0;
  std::uint32_t invalidationBytes = 0;
  Role role = Role::Samples;
  std::string name;
  std::string ecu;
  Mf4Channel master;
  std::vector<Mf4Channel> channels;  ///< without the master
  std::size_t leading = 0;           ///< of these channels: time of the request and sequence, no data
  std::size_t column = 0;            ///< position in `RecordHead::groups`

  std::size_t recordBytes() const { return std::size_t{dataBytes} + invalidationBytes; }
  std::string request() const;
};

/// A data group: groups whose records stand in one block.
struct Mf4DataGroup {
  std::uint8_t idBytes = 0;
  std::uint64_t from = 0;  ///< the records
  std::uint64_t till = 0;
  std::vector<Mf4Group> groups;
};

/// All of an MDF 4 file but its records.
struct Mf4Layout {
  bool finished = true;
  std::uint64_t lacking = 0;  ///< bytes that its data should have and the file has not
  RecordHead head;
  std::vector<Mf4DataGroup> dataGroups;
  std::vector<RecordNote> events;  ///< in the order of their times; texts are in `eventTexts`
  std::vector<std::string> eventTexts;
  bool historyLacks = false;  ///< what was noted when the file was closed cannot be read
  std::string eventTrouble;   ///< why there may be more events; empty when there are not
};

/// Whether a file begins as an MDF file, of whatever version, does.
bool isMdf(const ReadableFile& file);

/// Raises a TarnError with the block's name and place when the file is none, ends before its data, or uses
/// what cannot be read.
Mf4Layout readLayout(const ReadableFile& file);

}  // namespace tarnlog
