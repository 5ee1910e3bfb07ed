#include "records/Mf4Channel.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "platform/text/TextEncoding.h"

namespace tarnlog {

namespace {

using mdf::ChannelKind;
using mdf::ConversionKind;
using mdf::DataKind;

constexpr std::uint32_t kAllInvalid = 1;  ///< flag of a CN
constexpr std::uint32_t kMostBits = 64;
constexpr std::string_view kSignalData = "##SD";

[[noreturn]] void refuseKind(const Mf4Block& block, std::string_view id, const char* what, unsigned kind,
                             const char* expected) {
  refuseBlock(block.place, id, std::string(what) + " " + std::to_string(kind) + ", expected " + expected);
}

bool isText(DataKind type) {
  return type == DataKind::Latin1 || type == DataKind::Utf8 || type == DataKind::Bytes;
}

ChannelKind channelKind(const Mf4Block& block) {
  const auto kind = block.field<std::uint8_t>(mdf::at::kChannelKind);
  if (kind > 2) refuseKind(block, "##CN", "channel of kind", kind, "0, 1 or 2");
  const auto sync = block.field<mdf::SyncKind>(mdf::at::kChannelSync);
  if (kind == 2 && sync != mdf::SyncKind::Time)
    refuseKind(block, "##CN", "master of kind", static_cast<unsigned>(sync), "1 (time)");
  if (block.link(mdf::link::kComponent) != 0)
    refuseBlock(block.place, "##CN", "has components, expected none");
  return static_cast<ChannelKind>(kind);
}

DataKind dataKind(const Mf4Block& block) {
  const auto type = block.field<std::uint8_t>(mdf::at::kChannelType);
  switch (static_cast<DataKind>(type)) {
    case DataKind::Unsigned:
    case DataKind::Signed:
    case DataKind::Float:
    case DataKind::Latin1:
    case DataKind::Utf8:
    case DataKind::Bytes:
      return static_cast<DataKind>(type);
  }
  refuseKind(block, "##CN", "data of type", type, "0, 2, 4, 6, 7 or 10");
}

void checkBits(const Mf4Channel& channel) {
  const auto refuse = [&](const char* expected) {
    refuseBlock(channel.place, "##CN",
                std::to_string(channel.bits) + " bits at bit " + std::to_string(channel.bitOffset) +
                    ", expected " + expected);
  };
  const bool number = !isText(channel.type);
  const bool variable = channel.kind == ChannelKind::VariableLength;
  if (variable && number) refuse("a text or bytes of variable length");
  if (variable || !number) {
    if (channel.bitOffset != 0 || channel.bits % 8 != 0 || (variable && channel.bits != kMostBits))
      refuse("whole bytes");
  } else if (channel.type == DataKind::Float) {
    if (channel.bitOffset != 0 || (channel.bits != 32 && channel.bits != 64)) refuse("32 or 64 whole ones");
  } else if (channel.bits == 0 || channel.bitOffset > 7 || channel.bitOffset + channel.bits > kMostBits) {
    refuse("1 to 64 within 8 bytes");
  }
}

/// Each value, or each two for ranges, has a text; the last text is for all others.
void readLabels(const Mf4Blocks& blocks, const Mf4Block& block, std::size_t valuesPerLabel,
                const std::vector<double>& values, Mf4Channel& channel) {
  for (std::size_t i = 0; (i + 1) * valuesPerLabel <= values.size(); ++i) {
    const std::uint64_t text = block.link(mdf::link::kFirstReference + i);
    if (text != 0 && blocks.id(text) != mdf::kText.id)
      refuseBlock(block.place, "##CC", "refers to another conversion, expected a text");
    const double from = values[i * valuesPerLabel];
    channel.column.labels.push_back({from, values[(i + 1) * valuesPerLabel - 1], blocks.text(text)});
  }
  const std::uint64_t others = block.link(mdf::link::kFirstReference + channel.column.labels.size());
  if (others != 0 && blocks.id(others) != mdf::kText.id)
    refuseBlock(block.place, "##CC", "refers to another conversion, expected a text");
}

void readConversion(const Mf4Blocks& blocks, const Mf4Block& block, Mf4Channel& channel) {
  const auto kind = block.field<std::uint8_t>(mdf::at::kConversionKind);
  const auto count = block.field<std::uint16_t>(mdf::at::kConversionValues);
  if (block.data.size() < mdf::at::kConversionFirstValue + count * sizeof(double))
    refuseBlock(block.place, "##CC", "is too short for its values");
  std::vector<double> values;
  for (std::size_t i = 0; i < count; ++i)
    values.push_back(block.field<double>(mdf::at::kConversionFirstValue + i * sizeof(double)));
  switch (static_cast<ConversionKind>(kind)) {
    case ConversionKind::None:
      return;
    case ConversionKind::Linear:
      if (count < 2) refuseBlock(block.place, "##CC", "has no offset and factor");
      channel.offset = values[0];
      channel.factor = values[1];
      channel.column.scaled = channel.type != DataKind::Float;
      return;
    case ConversionKind::ValueToText:
      return readLabels(blocks, block, 1, values, channel);
    case ConversionKind::RangeToText:
      return readLabels(blocks, block, 2, values, channel);
  }
  refuseKind(block, "##CC", "conversion of kind", kind, "0, 1, 7 or 8");
}

/// The values stand among the records of a group, or in a block of their own where records are sorted.
void findVariable(const Mf4Blocks& blocks, std::uint64_t place, Mf4Channel& channel) {
  if (place == 0) refuseBlock(channel.place, "##CN", "has no values of variable length");
  const std::string id = blocks.id(place);
  channel.variable = place;
  if (id == mdf::kChannelGroup.id) return;
  if (id != kSignalData) refuseBlock(place, id, "expected values of variable length in a CG or SD");
  channel.variable = place + mdf::kBlockHead;
  const std::uint64_t size = blocks.file().size();
  channel.variableEnd = std::max(channel.variable, place + std::min(blocks.length(place), size - place));
}

std::uint64_t rawBits(const Mf4Channel& channel, const char* record) {
  std::uint64_t raw = 0;
  std::memcpy(&raw, record + channel.byteOffset, (channel.bitOffset + channel.bits + 7) / 8);
  raw >>= channel.bitOffset;
  return channel.bits == kMostBits ? raw : raw & ((std::uint64_t{1} << channel.bits) - 1);
}

double signedNumber(std::uint64_t raw, std::uint32_t bits) {
  const std::uint32_t unused = kMostBits - bits;
  return static_cast<double>(static_cast<std::int64_t>(raw << unused) >> unused);
}

double rawNumber(const Mf4Channel& channel, const char* record) {
  if (channel.type == DataKind::Float) {
    const char* const at = record + channel.byteOffset;
    return channel.bits == 32 ? static_cast<double>(mdf::get<float>(at)) : mdf::get<double>(at);
  }
  const std::uint64_t raw = rawBits(channel, record);
  return channel.type == DataKind::Signed ? signedNumber(raw, channel.bits) : static_cast<double>(raw);
}

std::string hexText(std::string_view bytes) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (!text.empty()) text += ' ';
    text += {kDigits[byte >> 4U], kDigits[byte & 0xFU]};
  }
  return text;
}

}  // namespace

Mf4Channel readChannel(const Mf4Blocks& blocks, const Mf4Block& block) {
  Mf4Channel channel;
  channel.place = block.place;
  channel.kind = channelKind(block);
  channel.type = dataKind(block);
  channel.bitOffset = block.field<std::uint8_t>(mdf::at::kChannelBitOffset);
  channel.byteOffset = block.field<std::uint32_t>(mdf::at::kChannelByteOffset);
  channel.bits = block.field<std::uint32_t>(mdf::at::kChannelBits);
  checkBits(channel);
  const auto flags = block.field<std::uint32_t>(mdf::at::kChannelFlags);
  channel.allInvalid = (flags & kAllInvalid) != 0;
  if ((flags & mdf::kHasInvalidationBit) != 0)
    channel.invalidationBit = block.field<std::uint32_t>(mdf::at::kChannelInvalidationBit);
  channel.column.name = blocks.text(block.link(mdf::link::kChannelName));
  const std::uint64_t unit = block.link(mdf::link::kChannelUnit);
  channel.column.unit = unit != 0 && blocks.id(unit) == mdf::kXml.id ? std::string() : blocks.text(unit);
  const std::uint64_t conversion = block.link(mdf::link::kChannelConversion);
  if (conversion != 0 && !isText(channel.type))
    readConversion(blocks, blocks.read(conversion, mdf::kConversion), channel);
  if ((flags & mdf::kRangeValid) != 0) {
    const auto bound = [&](std::size_t at) {
      return block.field<double>(at) * channel.factor + channel.offset;
    };
    channel.column.range = std::minmax(bound(mdf::at::kChannelMinimum), bound(mdf::at::kChannelMaximum));
  }
  if (channel.kind == ChannelKind::VariableLength)
    findVariable(blocks, block.link(mdf::link::kChannelData), channel);
  return channel;
}

void checkFits(const Mf4Channel& channel, std::uint32_t dataBytes, std::uint32_t invalidationBytes) {
  const std::uint64_t end =
      std::uint64_t{channel.byteOffset} + (std::uint64_t{channel.bitOffset} + channel.bits + 7) / 8;
  if (end > dataBytes || (channel.invalidationBit && *channel.invalidationBit / 8 >= invalidationBytes))
    refuseBlock(channel.place, "##CN", "reaches beyond the records of its group");
}

bool isValid(const Mf4Channel& channel, const char* record, std::uint32_t dataBytes) {
  if (channel.allInvalid) return false;
  if (!channel.invalidationBit) return true;
  const auto byte = static_cast<unsigned char>(record[dataBytes + *channel.invalidationBit / 8]);
  return (byte >> (*channel.invalidationBit % 8) & 1U) == 0;
}

RecordValue fixedValue(const Mf4Channel& channel, const char* record, TextArena& texts) {
  if (isText(channel.type))
    return textValue(channel.type, {record + channel.byteOffset, channel.bits / 8}, texts);
  const double value = rawNumber(channel, record) * channel.factor + channel.offset;
  if (std::isnan(value)) return {};
  return {RecordValue::Kind::Number, value, {}};
}

std::uint64_t variableOffset(const Mf4Channel& channel, const char* record) {
  return mdf::get<std::uint64_t>(record + channel.byteOffset);
}

RecordValue textValue(mdf::DataKind type, std::string_view bytes, TextArena& texts) {
  if (type == DataKind::Bytes) return {RecordValue::Kind::Text, 0, texts.copy(hexText(bytes))};
  const std::string_view text = bytes.substr(0, bytes.find('\0'));
  const bool decode = type == DataKind::Latin1 || !isUtf8(text);
  return {RecordValue::Kind::Text, 0, texts.copy(decode ? utf8FromWindows1252(text) : std::string(text))};
}

}  // namespace tarnlog
