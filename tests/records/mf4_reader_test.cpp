#include <gmock/gmock.h>

#include <sstream>

#include "SourceDir.h"
#include "mdf/BlockWriter.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/ReadBack.h"

namespace tarnlog {
namespace {

using test::readBack;
using test::ReadBack;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::string dataFile(const std::string& name) {
  return SystemFileSystem().readAll(TARNLOG_SOURCE_DIR "/tests/data/" + name);
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST(Mf4, GroupsAreMergedOnTime) {
  const ReadBack back = readBack(dataFile("sample.mf4"));
  const auto lines = linesOf(back.text);
  ASSERT_EQ(lines.size(), 1 + 1000 + 100);
  EXPECT_THAT(lines[0], StartsWith("time [s],mark,Engine speed [rpm],Pedal,Speed [km/h],Part"));
  EXPECT_EQ(lines[1], "0,,800,,,");
  EXPECT_EQ(lines[2], "0.007,,,0,0,part 0");
  EXPECT_EQ(lines[3], "0.02,,801,,,");
  EXPECT_EQ(lines[13], "0.207,,,0,1,part 1");
  EXPECT_THAT(back.text, HasSubstr("\n0.607,,,0,,part 3\n"));  // every fourth speed is not valid
  EXPECT_THAT(back.text, HasSubstr("\n0.5,event,825,,,\n"));
  EXPECT_EQ(lines.back(), "19.98,,1799,,,");
  EXPECT_THAT(back.missing, IsEmpty());
}

TEST(Mf4, GoesIntoJsonWithUtcAndLabels) {
  const ReadBack back = readBack(dataFile("sample.mf4"), {0.0, 0.01, {"Pedal"}}, "", true);
  EXPECT_THAT(back.text, HasSubstr("\"facts\":{\"comment\":\"probe\",\"vehicle\":\"road car\"}"));
  EXPECT_THAT(
      back.text,
      HasSubstr("\"labels\":[{\"value\":0,\"text\":\"Released\"},{\"value\":1,\"text\":\"Pressed\"}]"));
  EXPECT_THAT(linesOf(back.text)[1],
              testing::MatchesRegex("\\{\"type\":\"answer\",\"t\":[0-9]+,\"time\":0.007,\"ecu\":\"Brakes\","
                                    "\"request\":\"21 80\",\"values\":\\{\"Pedal\":0\\}\\}"));
}

TEST(Mf4, OfAKilledRecordingLacksItsLastRecord) {
  const ReadBack back = readBack(dataFile("sample-unfinished-cut.mf4"));
  EXPECT_EQ(back.lines(), 1 + 999 + 100);
  EXPECT_THAT(back.missing, ElementsAre(HasSubstr("not closed"), HasSubstr("the last record is not whole")));
}

/// Rows are lost only behind the cut, and not without a word.
TEST(Mf4, CutAnywhereGivesItsWholeRecords) {
  for (const char* const name : {"sample.mf4", "sample-unfinished-cut.mf4"}) {
    const std::string whole = dataFile(name);
    const auto all = linesOf(readBack(whole).text);
    std::size_t before = 0;
    for (std::size_t length = 0; length < whole.size(); length += length < 3100 ? 1 : 97) {
      const ReadBack back = readBack(whole.substr(0, length));
      ASSERT_TRUE(!back.missing.empty() || !back.refused.empty()) << length;
      ASSERT_GE(back.lines(), before) << length;
      before = back.lines();
    }
    EXPECT_GT(before, all.size() - 10);
  }
}

/// A file of one data group with one channel group: "t", and a channel "x".
struct Small {
  std::uint8_t idBytes = 0;
  std::uint8_t channelKind = 0;
  std::uint8_t type = 0;
  std::uint8_t bitOffset = 0;
  std::uint32_t bits = 8;
  std::uint8_t conversion = 0;
  std::vector<double> values{};
  std::vector<std::string> texts{};
  std::vector<std::string> records{};
  std::string_view dataId = "##DT";

  std::string bytes() const {
    using namespace mdf;
    BlockWriter blocks(0);
    std::string id(kFinished);
    id += std::string(kVersionText) + "test    ";
    id.resize(kIdentificationSize);
    put(id.data() + kVersionAt, kVersion);
    blocks.append(id);
    const auto header = blocks.add(kHeader, Links(6), Fields().add(std::int64_t{0}).zeros(24));
    const auto dg = blocks.add(kDataGroup, Links(4), Fields().add(idBytes).zeros(7));
    const auto cg = blocks.add(kChannelGroup, Links(6),
                               Fields()
                                   .add(std::uint64_t{1})
                                   .add(std::uint64_t{records.size()})
                                   .zeros(8)
                                   .add(std::uint32_t{16})
                                   .add(std::uint32_t{0}));
    const auto t = channel(blocks, 2, 1, 4, 0, 0, 64);
    const auto x = channel(blocks, channelKind, 0, type, bitOffset, 8, bits);
    Links references(4);
    for (const std::string& text : texts) references.push_back(blocks.addText(text));
    Fields cc;
    cc.add(conversion).zeros(3).add(static_cast<std::uint16_t>(texts.size()));
    cc.add(static_cast<std::uint16_t>(values.size())).zeros(16);
    for (const double value : values) cc.add(value);
    blocks.setLink(x, link::kChannelConversion, blocks.add(kConversion, references, cc));
    blocks.setLink(t, link::kNextChannel, x);
    blocks.setLink(x, link::kChannelName, blocks.addText("x"));
    blocks.setLink(header, link::kFirstDataGroup, dg);
    blocks.setLink(dg, link::kFirstChannelGroup, cg);
    blocks.setLink(cg, link::kFirstChannel, t);
    std::string data;
    for (const std::string& record : records) data += record;
    blocks.setLink(dg, link::kDataBlock, blocks.add({dataId, 0, 0}, {}, data));
    return blocks.bytes();
  }

  static std::uint64_t channel(mdf::BlockWriter& blocks, std::uint8_t kind, std::uint8_t sync,
                               std::uint8_t type, std::uint8_t bitOffset, std::uint32_t byteOffset,
                               std::uint32_t bits) {
    return blocks.add(
        mdf::kChannel, mdf::Links(8),
        mdf::Fields().add(kind).add(sync).add(type).add(bitOffset).add(byteOffset).add(bits).zeros(60));
  }
};

std::string record(double time, std::uint64_t x) { return mdf::Fields().add(time).add(x).bytes(); }

TEST(Mf4, ReadsEveryKindOfNumberOfSortedFiles) {
  const auto value = [](Small small, std::uint64_t raw) {
    small.records = {record(0.5, raw)};
    const ReadBack back = readBack(small.bytes());
    EXPECT_THAT(back.missing, IsEmpty());
    return back.refused.empty() ? linesOf(back.text).back() : back.refused;
  };
  EXPECT_EQ(value({.bits = 16}, 0xFFFE), "0.5,,65534");
  EXPECT_EQ(value({.type = 2, .bits = 16}, 0xFFFE), "0.5,,-2");
  EXPECT_EQ(value({.bitOffset = 3, .bits = 5}, 0xB8), "0.5,,23");
  EXPECT_EQ(value({.type = 4, .bits = 64}, std::bit_cast<std::uint64_t>(1.0 / 3)), "0.5,,0.3333333333333333");
  EXPECT_EQ(value({.bits = 8, .conversion = 1, .values = {0, 0.1}}, 3), "0.5,,0.3");
  EXPECT_EQ(value({.type = 7, .bits = 64}, 0x4142), "0.5,,BA");
  EXPECT_EQ(value({.type = 10, .bits = 16}, 0x1B0A), "0.5,,0A 1B");

  Small ranges{.conversion = 8, .values = {0, 3, 4, 9}, .texts = {"low", "high", ""}};
  EXPECT_THAT(
      readBack(ranges.bytes(), {}, "", true).text,
      HasSubstr("{\"from\":0,\"till\":3,\"text\":\"low\"},{\"from\":4,\"till\":9,\"text\":\"high\"}"));
}

/// Within a data group records may stand in any order, also further apart than a recorder leaves them.
TEST(Mf4, RecordsWithoutATimeAndForeignOnesAreTold) {
  Small small;
  small.records = {record(1, 1), record(std::numeric_limits<double>::quiet_NaN(), 2), record(2, 3)};
  const ReadBack back = readBack(small.bytes());
  EXPECT_EQ(back.text, "time [s],mark,x\n1,,1\n2,,3\n");
  EXPECT_THAT(back.missing, ElementsAre("1 records without a time passed over"));

  Small foreign{.idBytes = 1};
  foreign.records = {"\x01" + record(1, 1), "\x07" + record(2, 2)};
  EXPECT_THAT(readBack(foreign.bytes()).missing.front(), HasSubstr("a record of id 7, which no group has"));
}

TEST(Mf4, WhatCannotBeReadIsRefusedWithItsPlace) {
  const auto refused = [](const Small& small) { return readBack(small.bytes()).refused; };
  EXPECT_THAT(refused({.type = 1}),
              testing::MatchesRegex("byte [0-9]+: CN block: data of type 1, expected .*"));
  EXPECT_THAT(refused({.channelKind = 3}), HasSubstr("CN block: channel of kind 3"));
  EXPECT_THAT(refused({.bits = 72}), HasSubstr("CN block: 72 bits"));
  EXPECT_THAT(refused({.type = 4, .bits = 16}), HasSubstr("expected 32 or 64"));
  EXPECT_THAT(refused({.bitOffset = 7, .bits = 62}), HasSubstr("within 8 bytes"));
  EXPECT_THAT(refused({.type = 10, .bits = 80}), HasSubstr("reaches beyond the records"));
  EXPECT_THAT(refused({.conversion = 3}), HasSubstr("CC block: conversion of kind 3"));
  EXPECT_THAT(refused({.dataId = "##HL"}), HasSubstr("HL block: expected a plain data block DT"));
  EXPECT_THAT(refused({.idBytes = 3}), HasSubstr("DG block: record ids of 3 bytes"));
  EXPECT_THAT(readBack("MDF     3.00    ").refused, HasSubstr("ID block"));
}

}  // namespace
}  // namespace tarnlog
