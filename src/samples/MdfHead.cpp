#include "samples/MdfHead.h"

#include <string_view>

#include "mdf/BlockWriter.h"
#include "platform/xml/XmlEscape.h"
#include "platform/xml/XmlWriter.h"

namespace tarnlog {

namespace {

using mdf::Fields;

std::string escaped(std::string_view text) {
  std::string room(text.size() * kLongestXmlEscape, '\0');
  room.resize(static_cast<std::size_t>(writeXmlText(room.data(), text) - room.data()));
  return room;
}

std::string element(const std::string& name, std::string_view text) {
  return "<" + name + ">" + escaped(text) + "</" + name + ">";
}

Fields moment(std::int64_t utcNanoseconds, const std::optional<ZoneOffset>& zone) {
  const ZoneOffset offset = zone.value_or(ZoneOffset{});
  return Fields()
      .add(static_cast<std::uint64_t>(utcNanoseconds))
      .add(offset.zone)
      .add(offset.summer)
      .add(zone ? mdf::TimeFlag::OffsetsValid : mdf::TimeFlag::None);
}

/// Writes the blocks that stand before the records; each is followed by those it links to, where it can be.
class HeadWriter {
 public:
  HeadWriter(const MdfLayout& layout, const MdfAbout& about) : layout_(layout), about_(about) {}

  MdfHead write() {
    blocks_.append(identification());
    const std::uint64_t header =
        blocks_.add(mdf::kHeader, {}, moment(about_.utcNanoseconds, about_.zone).zeros(19));
    blocks_.setLink(
        header, mdf::link::kHeaderComment,
        blocks_.addXml(mdfComment("HDcomment", "Tarnlog2001 " + about_.programVersion, about_.facts)));
    blocks_.setLink(header, mdf::link::kFirstHistory, writeHistory());
    const std::uint64_t dataGroup =
        blocks_.add(mdf::kDataGroup, {}, Fields().add(static_cast<std::uint8_t>(layout_.idBytes)).zeros(7));
    blocks_.setLink(header, mdf::link::kFirstDataGroup, dataGroup);
    writeGroups(dataGroup);
    head_.data = blocks_.add(mdf::kData, {}, std::string_view());
    blocks_.setLink(dataGroup, mdf::link::kDataBlock, head_.data);
    head_.bytes = blocks_.bytes();
    return std::move(head_);
  }

 private:
  static std::string identification() {
    std::string bytes;
    bytes.append(mdf::kUnfinished).append(mdf::kVersionText).append(kMdfProgram);
    const auto flags =
        static_cast<std::uint16_t>(mdf::kNoRecordCounts | mdf::kNoDataLength | mdf::kNoTextBytes);
    return bytes + Fields().zeros(4).add(mdf::kVersion).zeros(30).add(flags).zeros(2).bytes();
  }

  std::uint64_t writeHistory() {
    head_.history = blocks_.add(mdf::kHistory, {}, mdfHistoryData(about_.utcNanoseconds, about_.zone));
    const std::string tool = element("tool_id", "Tarnlog2001") + element("tool_vendor", "Tarnlog2001") +
                             element("tool_version", about_.programVersion);
    blocks_.setLink(head_.history, mdf::link::kHistoryComment,
                    blocks_.addXml(mdfComment("FHcomment", "Recorded", {}, tool)));
    return head_.history;
  }

  void writeGroups(std::uint64_t dataGroup) {
    std::uint64_t before = dataGroup;
    std::size_t link = mdf::link::kFirstChannelGroup;
    const auto chain = [&](std::uint64_t block) {
      blocks_.setLink(before, link, block);
      before = block;
      link = mdf::link::kNextChannelGroup;
    };
    for (const MdfGroup& group : layout_.groups) {
      chain(addGroup(group.id, 0, group.dataBytes, group.invalidationBytes));
      const std::uint64_t place = before;
      std::vector<std::uint64_t> values;
      for (const std::size_t column : group.variables) {
        chain(addGroup(group.columns[column].valueId, mdf::kVariableLengthGroup, 0, 0));
        values.push_back(before);
      }
      describe(group, place, values);
    }
  }

  std::uint64_t addGroup(std::uint64_t id, std::uint16_t flags, std::size_t dataBytes,
                         std::size_t invalidationBytes) {
    const std::uint64_t place = blocks_.add(mdf::kChannelGroup, {},
                                            Fields()
                                                .add(id)
                                                .add(std::uint64_t{0})
                                                .add(flags)
                                                .zeros(6)
                                                .add(static_cast<std::uint32_t>(dataBytes))
                                                .add(static_cast<std::uint32_t>(invalidationBytes)));
    head_.groups.push_back({place, id, flags != 0});
    return place;
  }

  void describe(const MdfGroup& group, std::uint64_t place, const std::vector<std::uint64_t>& values) {
    blocks_.setLink(place, mdf::link::kGroupName, blocks_.addText(group.name));
    if (!group.ecu.empty()) blocks_.setLink(place, mdf::link::kGroupSource, addSource(group));
    std::uint64_t before = place;
    std::size_t link = mdf::link::kFirstChannel;
    std::size_t value = 0;
    for (const MdfColumn& column : group.columns) {
      const std::uint64_t channel = addChannel(column, &column == &group.columns.front());
      if (column.variable()) blocks_.setLink(channel, mdf::link::kChannelData, values[value++]);
      blocks_.setLink(before, link, channel);
      before = channel;
      link = mdf::link::kNextChannel;
    }
  }

  std::uint64_t addSource(const MdfGroup& group) {
    const std::uint64_t source =
        blocks_.add(mdf::kSource, {}, Fields().add(mdf::SourceKind::Ecu).add(mdf::BusKind::None).zeros(6));
    blocks_.setLink(source, mdf::link::kSourceName, blocks_.addText(group.ecu));
    if (!group.ecuFunction.empty())
      blocks_.setLink(source, mdf::link::kSourcePath, blocks_.addText(group.ecuFunction));
    return source;
  }

  std::uint64_t addChannel(const MdfColumn& column, bool master) {
    const std::uint64_t channel = blocks_.add(mdf::kChannel, {}, channelFields(column, master));
    blocks_.setLink(channel, mdf::link::kChannelName, blocks_.addText(column.name));
    if (!column.unit.empty()) blocks_.setLink(channel, mdf::link::kChannelUnit, blocks_.addText(column.unit));
    if (!column.labels.empty())
      blocks_.setLink(channel, mdf::link::kChannelConversion, addLabels(column));
    else if (column.scaling && (column.scaling->factor != 1 || column.scaling->offset != 0))
      blocks_.setLink(channel, mdf::link::kChannelConversion, addScaling(*column.scaling));
    return channel;
  }

  static Fields channelFields(const MdfColumn& column, bool master) {
    const auto kind = column.variable() ? mdf::ChannelKind::VariableLength
                      : master          ? mdf::ChannelKind::Master
                                        : mdf::ChannelKind::Value;
    const auto flags =
        (column.invalidationBit ? mdf::kHasInvalidationBit : 0) | (column.range ? mdf::kRangeValid : 0);
    const auto [least, most] = column.range.value_or(std::pair{0.0, 0.0});
    return Fields()
        .add(kind)
        .add(master ? mdf::SyncKind::Time : mdf::SyncKind::None)
        .add(dataKind(column.kind))
        .add(std::uint8_t{0})
        .add(static_cast<std::uint32_t>(column.at))
        .add(static_cast<std::uint32_t>(column.bytes * 8))
        .add(flags)
        .add(column.invalidationBit.value_or(0))
        .zeros(4)
        .add(least)
        .add(most)
        .zeros(32);
  }

  static mdf::DataKind dataKind(MdfColumn::Kind kind) {
    switch (kind) {
      case MdfColumn::Kind::Unsigned:
        return mdf::DataKind::Unsigned;
      case MdfColumn::Kind::Signed:
        return mdf::DataKind::Signed;
      case MdfColumn::Kind::Text:
        return mdf::DataKind::Utf8;
      case MdfColumn::Kind::Bytes:
        return mdf::DataKind::Bytes;
      default:
        return mdf::DataKind::Float;
    }
  }

  static Fields conversionFields(mdf::ConversionKind kind, std::size_t references, std::size_t values) {
    return Fields()
        .add(kind)
        .zeros(3)
        .add(static_cast<std::uint16_t>(references))
        .add(static_cast<std::uint16_t>(values))
        .zeros(16);
  }

  std::uint64_t addScaling(const ferrox3::Scaling& scaling) {
    return blocks_.add(
        mdf::kConversion, {},
        conversionFields(mdf::ConversionKind::Linear, 0, 2).add(scaling.offset).add(scaling.factor));
  }

  /// Numbers without a label have none to stand for them: they are shown as they are.
  std::uint64_t addLabels(const MdfColumn& column) {
    mdf::Links links(mdf::kConversion.links);
    Fields fields =
        conversionFields(mdf::ConversionKind::ValueToText, column.labels.size() + 1, column.labels.size());
    for (const auto& [number, label] : column.labels) {
      links.push_back(blocks_.addText(label));
      fields.add(number);
    }
    links.push_back(0);
    return blocks_.add(mdf::kConversion, links, fields);
  }

  const MdfLayout& layout_;
  const MdfAbout& about_;
  mdf::BlockWriter blocks_{0};
  MdfHead head_;
};

}  // namespace

std::string mdfHistoryData(std::int64_t utcNanoseconds, const std::optional<ZoneOffset>& zone) {
  return moment(utcNanoseconds, zone).zeros(3).bytes();
}

std::string mdfComment(const std::string& name, const std::string& text,
                       const std::vector<ferrox3::Fact>& facts, const std::string& afterText) {
  std::string comment = "<" + name + ">" + element("TX", text) + afterText;
  if (!facts.empty()) {
    comment += "<common_properties>";
    for (const ferrox3::Fact& fact : facts)
      comment += "<e name=\"" + escaped(fact.name) + "\">" + escaped(fact.text) + "</e>";
    comment += "</common_properties>";
  }
  return comment + "</" + name + ">";
}

std::string configurationText(const oTarnParameters& parameters) {
  std::string document;
  XmlWriter writer([&](std::string_view bytes) { document.append(bytes); });
  writer.startDocument();
  SaxAttributes version;
  version.addAttribute("Version", "2.0");
  writer.startElement("Tarnlog2000", version);
  writer.textElement("Description", "Parameters file");
  parameters.SaxWriteParameters(writer);
  writer.endElement("Tarnlog2000");
  std::erase(document, '\r');
  return document;
}

MdfHead mdfHead(const MdfLayout& layout, const MdfAbout& about) { return HeadWriter(layout, about).write(); }

}  // namespace tarnlog
