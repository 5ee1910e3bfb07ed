#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "mdf/Mdf.h"
#include "platform/base/TextArena.h"
#include "records/Mf4Blocks.h"
#include "records/Record.h"

namespace tarnlog {

/// A channel: where its value stands in a record and what it means.
struct Mf4Channel {
  std::uint64_t place = 0;
  mdf::ChannelKind kind = mdf::ChannelKind::Value;
  mdf::DataKind type = mdf::DataKind::Unsigned;
  std::uint32_t bitOffset = 0;
  std::uint32_t byteOffset = 0;
  std::uint32_t bits = 0;
  bool allInvalid = false;
  std::optional<std::uint32_t> invalidationBit;
  double factor = 1;
  double offset = 0;
  std::uint64_t variable = 0;     ///< place of the group that has the values of variable length
  std::uint64_t variableEnd = 0;  ///< not 0: they stand behind `variable`, up to here
  RecordColumn column;            ///< without ECU and request
};

/// Reads the channel's blocks. Raises a TarnError with their place when it is of a kind that cannot be read.
Mf4Channel readChannel(const Mf4Blocks& blocks, const Mf4Block& block);
/// Raises one when the channel reaches beyond a record of these sizes.
void checkFits(const Mf4Channel& channel, std::uint32_t dataBytes, std::uint32_t invalidationBytes);

bool isValid(const Mf4Channel& channel, const char* record, std::uint32_t dataBytes);
/// Of a channel of a fixed length. A text is copied into `texts`.
RecordValue fixedValue(const Mf4Channel& channel, const char* record, TextArena& texts);
/// The offset that stands in the record of a channel of variable length.
std::uint64_t variableOffset(const Mf4Channel& channel, const char* record);
/// A text or bytes, the latter as hexadecimal text.
RecordValue textValue(mdf::DataKind type, std::string_view bytes, TextArena& texts);

}  // namespace tarnlog
