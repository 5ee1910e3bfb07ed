#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// ASAM MDF 4.10, as far as a recording of polled values needs it. All numbers are little-endian. A file
/// begins with the identification; every other block begins at a multiple of 8:
///
///   "##XX", u32 0, u64 length, u64 number of links, i64 links..., data
///
/// The length counts all of this; links are positions in the file, 0 for none.
namespace tarnlog::mdf {

inline constexpr std::string_view kFinished = "MDF     ";
inline constexpr std::string_view kUnfinished = "UnFinMF ";
inline constexpr std::string_view kVersionText = "4.10    ";
inline constexpr std::uint16_t kVersion = 410;

/// Places in the identification.
inline constexpr std::size_t kVersionTextAt = 8;
inline constexpr std::size_t kProgramAt = 16;  ///< 8 bytes
inline constexpr std::size_t kVersionAt = 28;
inline constexpr std::size_t kUnfinishedFlagsAt = 60;
inline constexpr std::size_t kCustomFlagsAt = 62;
inline constexpr std::size_t kIdentificationSize = 64;

/// What is not set yet in an unfinished file.
inline constexpr std::uint16_t kNoRecordCounts = 0x01;
inline constexpr std::uint16_t kNoDataLength = 0x04;
inline constexpr std::uint16_t kNoTextBytes = 0x20;  ///< the sums of the variable-length groups

inline constexpr std::size_t kBlockHead = 24;  ///< bytes before the links
inline constexpr std::size_t kAlignment = 8;
inline constexpr std::size_t kHeaderAt = kIdentificationSize;  ///< where the HD stands

/// Which blocks there are: id, number of links (at least, where there may be more), bytes of data (likewise).
struct BlockKind {
  std::string_view id;
  std::size_t links = 0;
  std::size_t data = 0;
};
inline constexpr BlockKind kHeader{"##HD", 6, 32};
inline constexpr BlockKind kHistory{"##FH", 2, 16};
inline constexpr BlockKind kDataGroup{"##DG", 4, 8};
inline constexpr BlockKind kChannelGroup{"##CG", 6, 32};
inline constexpr BlockKind kChannel{"##CN", 8, 72};
inline constexpr BlockKind kConversion{"##CC", 4, 24};
inline constexpr BlockKind kSource{"##SI", 3, 8};
inline constexpr BlockKind kEvent{"##EV", 5, 32};
inline constexpr BlockKind kText{"##TX", 0, 0};
inline constexpr BlockKind kXml{"##MD", 0, 0};
inline constexpr BlockKind kData{"##DT", 0, 0};

/// Positions of links.
namespace link {
enum Header : std::uint8_t {
  kFirstDataGroup,
  kFirstHistory,
  kHierarchy,
  kAttachment,
  kFirstEvent,
  kHeaderComment
};
enum History : std::uint8_t { kNextHistory, kHistoryComment };
enum DataGroup : std::uint8_t { kNextDataGroup, kFirstChannelGroup, kDataBlock, kDataGroupComment };
enum ChannelGroup : std::uint8_t {
  kNextChannelGroup,
  kFirstChannel,
  kGroupName,
  kGroupSource,
  kReduction,
  kGroupComment
};
enum Channel : std::uint8_t {
  kNextChannel,
  kComponent,
  kChannelName,
  kChannelSource,
  kChannelConversion,
  kChannelData,  ///< the group that holds the values of variable length
  kChannelUnit,
  kChannelComment
};
enum Conversion : std::uint8_t {
  kConversionName,
  kConversionUnit,
  kConversionComment,
  kInverse,
  kFirstReference
};
enum Source : std::uint8_t { kSourceName, kSourcePath, kSourceComment };
enum Event : std::uint8_t { kNextEvent, kParent, kRange, kEventName, kEventComment };
}  // namespace link

/// Places in the data of a block.
namespace at {
inline constexpr std::size_t kGroupRecordId = 0;
inline constexpr std::size_t kGroupRecords = 8;
inline constexpr std::size_t kGroupFlags = 16;
inline constexpr std::size_t kGroupDataBytes = 24;
inline constexpr std::size_t kGroupInvalidationBytes = 28;
inline constexpr std::size_t kChannelKind = 0;
inline constexpr std::size_t kChannelSync = 1;
inline constexpr std::size_t kChannelType = 2;
inline constexpr std::size_t kChannelBitOffset = 3;
inline constexpr std::size_t kChannelByteOffset = 4;
inline constexpr std::size_t kChannelBits = 8;
inline constexpr std::size_t kChannelFlags = 12;
inline constexpr std::size_t kChannelInvalidationBit = 16;
inline constexpr std::size_t kChannelMinimum = 24;
inline constexpr std::size_t kChannelMaximum = 32;
inline constexpr std::size_t kConversionKind = 0;
inline constexpr std::size_t kConversionReferences = 4;
inline constexpr std::size_t kConversionValues = 6;
inline constexpr std::size_t kConversionFirstValue = 24;
}  // namespace at

enum class TimeFlag : std::uint8_t { None = 0, Local = 1, OffsetsValid = 2 };

inline constexpr std::uint16_t kVariableLengthGroup = 1;  ///< flag of a CG

enum class ChannelKind : std::uint8_t { Value = 0, VariableLength = 1, Master = 2 };
enum class SyncKind : std::uint8_t { None = 0, Time = 1 };
enum class DataKind : std::uint8_t { Unsigned = 0, Signed = 2, Float = 4, Latin1 = 6, Utf8 = 7, Bytes = 10 };
inline constexpr std::uint32_t kHasInvalidationBit = 2;  ///< flags of a CN
inline constexpr std::uint32_t kRangeValid = 8;

enum class ConversionKind : std::uint8_t { None = 0, Linear = 1, ValueToText = 7, RangeToText = 8 };

enum class SourceKind : std::uint8_t { Ecu = 1 };
enum class BusKind : std::uint8_t { None = 0, Can = 2, KLine = 6, Ethernet = 7 };

enum class EventKind : std::uint8_t { Interrupted = 2, StartTrigger = 3, StopTrigger = 4, Marker = 6 };
enum class EventRange : std::uint8_t { Point = 0, Begin = 1, End = 2 };
enum class EventCause : std::uint8_t { Tool = 2, User = 4 };

}  // namespace tarnlog::mdf
