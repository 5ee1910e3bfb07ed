#include <gmock/gmock.h>

#include "host/link/elm/ElmFrames.h"
#include "host/service/HexText.h"

namespace tarnlog::host {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> itemsOf(const std::vector<std::string>& pieces) {
  ElmReader reader;
  std::vector<std::string> items;
  for (const std::string& piece : pieces) {
    reader.feed({reinterpret_cast<const std::uint8_t*>(piece.data()), piece.size()});
    while (const auto item = reader.next()) items.push_back(item->prompt ? ">" : std::string(item->text));
  }
  return items;
}

TEST(ElmReader, CutsLinesAndPromptsHoweverTheyComeApart) {
  EXPECT_THAT(itemsOf({"41 0C 1A F8\r\r>"}), ElementsAre("41 0C 1A F8", ">"));
  EXPECT_THAT(itemsOf({"OK\r\n\r\n", ">", "4", "1\r", "\n>"}), ElementsAre("OK", ">", "41", ">"));
  EXPECT_THAT(itemsOf({std::string("4\0001\0\r", 5), "NO DATA>"}), ElementsAre("41", "NO DATA", ">"));
  const auto flood = itemsOf({std::string(100000, 'A'), "\r>"});
  EXPECT_EQ(flood.front().size(), ElmReader::kLongestLine);
  EXPECT_EQ(flood.back(), ">");
}

ElmNotice noticeOf(std::string_view text) { return parseElmLine(text).notice; }

TEST(ElmLine, TellsWordsFromData) {
  EXPECT_EQ(noticeOf("OK"), ElmNotice::ok);
  EXPECT_EQ(noticeOf("?"), ElmNotice::unknownCommand);
  EXPECT_EQ(noticeOf("SEARCHING..."), ElmNotice::working);
  EXPECT_EQ(noticeOf("SEARCHING: ."), ElmNotice::working);
  EXPECT_EQ(noticeOf("BUS INIT: OK"), ElmNotice::working);
  EXPECT_EQ(noticeOf("!ACT ALERT"), ElmNotice::working);
  EXPECT_EQ(noticeOf("NO DATA"), ElmNotice::noData);
  EXPECT_EQ(noticeOf("no data "), ElmNotice::noData);
  EXPECT_EQ(noticeOf("NODATA"), ElmNotice::noData);
  EXPECT_EQ(noticeOf("SEARCHING...UNABLE TO CONNECT"), ElmNotice::noConnection);
  EXPECT_EQ(noticeOf("BUS INIT: ...ERROR"), ElmNotice::noConnection);
  for (const char* const trouble : {"CAN ERROR", "BUS ERROR", "BUS BUSY", "FB ERROR"})
    EXPECT_EQ(noticeOf(trouble), ElmNotice::busTrouble) << trouble;
  for (const char* const damage : {"DATA ERROR", "41 0C 1A <DATA ERROR", "7E8 03 41 <RX ERROR", "BUFFER FULL",
                                   "STOPPED", "41 0CSTOPPED"})
    EXPECT_EQ(noticeOf(damage), ElmNotice::damaged) << damage;
  for (const char* const restart : {"LV RESET", "ELM327 v2.1", "ELM327", "ERR94"})
    EXPECT_EQ(noticeOf(restart), ElmNotice::restarted) << restart;
  EXPECT_EQ(parseElmLine("SEARCHING...41 00 BE").digits, "4100BE");
  EXPECT_EQ(parseElmLine("BUS INIT: ...OK 41 00").digits, "4100");
  EXPECT_EQ(parseElmLine(" 7e8 03 41 0d ff ").digits, "7E803410DFF");
  EXPECT_EQ(parseElmLine("1: 41 00").number, 1);
  EXPECT_FALSE(parseElmLine("tea time").isData());
}

/// The messages that lines become, "source: bytes" each.
std::vector<std::string> messagesOf(ElmAssembler& assembler, const std::vector<std::string>& lines) {
  std::vector<std::string> messages;
  for (const std::string& line : lines)
    if (const auto message = assembler.accept(parseElmLine(line))) {
      std::string source;
      if (message->source) {
        const std::uint32_t number = *message->source;
        for (int shift = 24; shift >= 0; shift -= 8)
          if (number >> shift != 0) source += hexText(std::array{static_cast<std::uint8_t>(number >> shift)});
        source += ": ";
      }
      messages.push_back(source + hexText(message->bytes));
    }
  return messages;
}

std::vector<std::string> messagesOf(ElmBus bus, const std::vector<std::string>& lines) {
  ElmAssembler assembler;
  assembler.setBus(bus);
  return messagesOf(assembler, lines);
}

TEST(ElmAssembler, TakesTheAnswersOfSeveralEcusOnCanApart) {
  // ISO 15765-4: two ECUs name their supported PIDs, a third its VIN in three frames, which mix.
  const std::vector<std::string> lines{"7E8 06 41 00 BE 3F A8 13", "7EA 10 14 49 02 01 31 44 34",
                                       "7E9 06 41 00 88 18 00 10", "7EA 21 47 50 30 30 52 35 35",
                                       "7E8 03 7F 01 78",          "7EA 22 42 31 32 33 34 35 36"};
  const auto right = ElementsAre("07E8: 41 00 BE 3F A8 13", "07E9: 41 00 88 18 00 10", "07E8: 7F 01 78",
                                 "07EA: 49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36");
  EXPECT_THAT(messagesOf(ElmBus::can11, lines), right);
  EXPECT_THAT(messagesOf(ElmBus::unknown, lines), right);
  EXPECT_THAT(messagesOf(ElmBus::can29, {"18 DA F1 10 04 41 0C 1A F8 00 00 00", "18DAF11D03410D20"}),
              ElementsAre("18DAF110: 41 0C 1A F8", "18DAF11D: 41 0D 20"));
}

TEST(ElmAssembler, PutsNumberedLinesTogether) {
  // From the adapter's data sheet: 14 hexadecimal bytes, padded.
  EXPECT_THAT(messagesOf(ElmBus::can11, {"014", "0: 49 02 01 31 44 34", "1: 47 50 30 30 52 35 35",
                                         "2: 42 31 32 33 34 35 36"}),
              ElementsAre("49 02 01 31 44 34 47 50 30 30 52 35 35 42 31 32 33 34 35 36"));
  EXPECT_THAT(messagesOf(ElmBus::can11, {"008", "008", "0:410C1AF80D20", "0:410C0000", "1:0400000000AAAA",
                                         "1:0D000400000000"}),
              ElementsAre("41 0C 1A F8 0D 20 04 00", "41 0C 00 00 0D 00 04 00"));
  EXPECT_THAT(messagesOf(ElmBus::can11, {"41 0C 1A F8"}), ElementsAre("41 0C 1A F8"));
}

TEST(ElmAssembler, ChecksFramesOfTheKLineAndOfJ1850) {
  EXPECT_THAT(messagesOf(ElmBus::iso9141, {"48 6B 10 41 00 BE 3E B8 11 C9"}),
              ElementsAre("10: 41 00 BE 3E B8 11"));
  EXPECT_THAT(messagesOf(ElmBus::kwp, {"84 F1 11 41 0C 1A F8 E5"}), ElementsAre("11: 41 0C 1A F8"));
  // Length in a byte of its own, and no addresses at all.
  EXPECT_THAT(messagesOf(ElmBus::kwp, {"80 F1 11 04 41 0C 1A F8 E5", "02 7E 00 80"}),
              ElementsAre("11: 41 0C 1A F8", "7E 00"));
  EXPECT_THAT(messagesOf(ElmBus::j1850, {"48 6B 10 41 0D 20 4D"}), ElementsAre("10: 41 0D 20"));
  EXPECT_THAT(messagesOf(ElmBus::unknown, {"48 6B 10 41 00 BE 3E B8 11 C9"}),
              ElementsAre("10: 41 00 BE 3E B8 11"));
  // A wrong checksum, a wrong length; bytes without header are taken as they are.
  EXPECT_THAT(messagesOf(ElmBus::kwp, {"84 F1 11 41 0C 1A F8 E6", "85 F1 11 41 0C 1A F8 E6", "41 0C 1A F8"}),
              ElementsAre("41 0C 1A F8"));
}

TEST(ElmAssembler, TakesChecksumsThatAreNeverRightForNone) {
  EXPECT_THAT(messagesOf(ElmBus::unknown, {"84 F1 11 41 0C 1A F8"}), ElementsAre("11: 41 0C 1A F8"));
  const std::string wrong = "48 6B 10 41 0D 20 00";
  EXPECT_THAT(messagesOf(ElmBus::j1850, {wrong, wrong, wrong}), ElementsAre("10: 41 0D 20"));
  EXPECT_THAT(messagesOf(ElmBus::j1850, {"48 6B 10 41 0D 20 4D", wrong, wrong, wrong}),
              ElementsAre("10: 41 0D 20"));
}

TEST(ElmAssembler, RefusesLinesThatLostCharacters) {
  ElmAssembler can;
  can.setBus(ElmBus::can11);
  const auto first = can.accept(parseElmLine("7E804410C1AF8AAAAAA"));
  ASSERT_TRUE(first);
  can.confirm(*first);
  // Two digits of an ECU that pads, one digit, the whole header, the line's end.
  EXPECT_THAT(messagesOf(can, {"7E804410C1A8AAAAAA", "7E804410C18AAAAAA", "410C1AF8", "004", "0:410C1AF8",
                               "7E804410C1AF8AAAAAA7E9"}),
              ElementsAre());
  EXPECT_THAT(messagesOf(can, {"7E903410D20", "7E804410C1AF9AAAAAA"}),
              ElementsAre("07E9: 41 0D 20", "07E8: 41 0C 1A F9"));
  can.forget();
  EXPECT_THAT(messagesOf(can, {"410C1AF8"}), ElementsAre("41 0C 1A F8"));
  // Bytes whose last is the sum of the others, on a line without headers.
  EXPECT_THAT(messagesOf(ElmBus::iso9141, {"41 20 00 10 A0 11"}), ElementsAre("41 20 00 10 A0 11"));
  ElmAssembler wire;
  wire.setBus(ElmBus::j1850);
  wire.confirm(ElmMessage{std::nullopt, {0x41, 0x0C, 0x1A, 0xF8}, false});
  EXPECT_THAT(messagesOf(wire, {"48 6B 10 41 0D 20 4D"}), ElementsAre("48 6B 10 41 0D 20 4D"));
}

TEST(ElmAssembler, DropsWhatMakesNoSense) {
  ElmAssembler assembler;
  assembler.setBus(ElmBus::can11);
  // A lost frame, a digit lost, a length beyond the frame, frames that nobody announced.
  EXPECT_THAT(messagesOf(assembler, {"7E8 10 14 49 02 01 31 44 34", "7E8 22 42 31 32 33 34 35 36",
                                     "7E8 05 41 0C", "1: 00 00", "7E8 21 00 00", "000", "FFF 03 41"}),
              ElementsAre());
  assembler.reset();
  EXPECT_FALSE(assembler.incomplete());
  EXPECT_EQ(assembler.frames(), 0);
  messagesOf(assembler, {"7E8 10 14 49 02 01 31 44 34"});
  EXPECT_TRUE(assembler.incomplete());
}

}  // namespace
}  // namespace tarnlog::host
