#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "apps/common/RecordRepair.h"
#include "apps/common/UnfinishedRecords.h"
#include "platform/files/SystemFileSystem.h"
#include "platform/xml/XmlDocument.h"
#include "records/RecordWalk.h"
#include "tests/support/AcqRig.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using test::failureOf;
using testing::ElementsAre;
using testing::HasSubstr;

/// An XML record with a comment that needs escaping and three rows.
std::string recordFile() {
  test::AcqRig rig;
  rig.parameters->fileFormat = ".xml";
  rig.parameters->userDescription = "a < b, \"quoted\" > c";
  rig.recordFrom(50);
  rig.start();
  rig.run("1000:0 1100:60 1200:61 1300:62");
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  return rig.files.files.at(rig.acq.RecordPath());
}

struct Walked {
  RecordFaults faults;
  std::string text;
};

/// In blocks of a few bytes, so that each border between two blocks is met.
Walked walked(const std::string& text, std::size_t block = 7) {
  Walked result;
  std::size_t at = 0;
  const auto read = [&](char* out, std::size_t size) {
    const std::size_t count = text.copy(out, std::min(block, size), at);
    at += count;
    return count;
  };
  result.faults = walkRecord(read, [&](std::string_view piece) { result.text.append(piece); });
  return result;
}

std::vector<std::string> speedsIn(const std::string& xml) {
  XmlDocument document;
  const auto error = document.parse(xml);
  EXPECT_FALSE(error) << error->reason << "\n" << xml;
  std::vector<std::string> speeds;
  for (const XmlElement& row : document.selectNodes("Tarnlog2000/row"))
    speeds.emplace_back(row.attributeOrEmpty("C1"));
  return speeds;
}

TEST(Repair, KeepsEveryFinishedRowWhereverTheFileEnds) {
  const std::string whole = recordFile();
  const std::size_t firstWhole = whole.find('>', whole.find("<Tarnlog2000")) + 1;
  for (std::size_t length = firstWhole; length < whole.find("</Tarnlog2000>"); ++length) {
    const std::string cut = whole.substr(0, length);
    const Walked repaired = walked(cut);
    ASSERT_TRUE(repaired.faults.record && !repaired.faults.closed) << cut;
    std::size_t finished = 0;
    for (std::size_t at = cut.find("<row "); at != std::string::npos; at = cut.find("<row ", at + 1))
      if (cut.find("/>", at) != std::string::npos) ++finished;
    ASSERT_EQ(speedsIn(repaired.text).size(), finished) << cut;
    ASSERT_TRUE(walked(repaired.text).faults.whole()) << cut;
  }
}

/// Whatever of a row is missing before the next one: neither that one nor a whole cell is lost.
TEST(Repair, PartsRowsThatWereGlued) {
  const std::string whole = recordFile();
  const std::size_t second = whole.find("<row ", whole.find("<row ") + 1);
  const std::size_t end = whole.find("/>", second);
  const std::size_t cellEnd = whole.rfind('"', end) + 1;
  for (std::size_t cut = second + 1; cut <= end + 1; ++cut) {
    const std::string glued = whole.substr(0, cut) + whole.substr(end + 4);
    const Walked repaired = walked(glued);
    EXPECT_EQ(repaired.faults.cutRows, cut >= cellEnd ? 1U : 0U) << glued;
    using Speeds = std::vector<std::string>;
    EXPECT_EQ(speedsIn(repaired.text), cut >= cellEnd ? Speeds({"60", "61", "62"}) : Speeds({"60", "62"}))
        << glued;
    EXPECT_TRUE(walked(repaired.text).faults.whole()) << repaired.text;
  }
  std::string head = whole;
  head.erase(head.find("</Parameters>"), std::string("</Parameters>").size());
  EXPECT_EQ(speedsIn(walked(head).text).size(), 3U);
  head = whole;
  head.insert(second, std::string(3, '\0') + "junk");
  EXPECT_EQ(walked(head).faults.droppedBytes, 7U);
  EXPECT_THAT(speedsIn(walked(head).text), ElementsAre("60", "61", "62"));
}

TEST(Repair, LeavesWholeFilesAndOtherFilesAlone) {
  const std::string whole = recordFile();
  for (const std::string& text :
       {whole, std::string("<!-- </x> --><?p > ?><Tarnlog2000 a='>'><b><![CDATA[</Tarnlog2000>]]></b>"
                           "</Tarnlog2000>")}) {
    EXPECT_TRUE(walked(text).faults.whole());
    EXPECT_EQ(walked(text).text, text);
  }
  for (const char* other : {"", "<other><row/>", "time\tevent\r\n", "</Tarnlog2000>", "<!--"})
    EXPECT_FALSE(walked(other).faults.record) << other;
}

TEST(Repair, WorksOnACopyKeepsTheOriginalAndLeavesARunningRecordingAlone) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const std::string whole = recordFile();
  const std::string cut = whole.substr(0, whole.rfind("<row ") + 9);
  const std::string path = folder / "a.xml";
  files.replace(folder / "whole.xml", whole);
  files.replace(folder / "a.xml.bak", "taken");
  {
    const auto recorder = files.create(path);
    recorder->write(cut);
    EXPECT_THAT(failureOf([&] { repairRecord(path); }), HasSubstr("is being written"));
    EXPECT_TRUE(unfinishedRecords(folder.path()).empty());
  }
  EXPECT_THAT(unfinishedRecords(folder.path()), ElementsAre(path));
  EXPECT_EQ(repairRecord(path), path + ": closed, 9 bytes of what was not finished dropped\n" + path +
                                    ": the original is " + path + ".bak2\n");
  EXPECT_EQ(speedsIn(files.readAll(path)).size(), 2U);
  EXPECT_EQ(files.readAll(path + ".bak2"), cut);
  EXPECT_TRUE(unfinishedRecords(folder.path()).empty());
  EXPECT_EQ(repairRecord(path), path + ": whole, nothing to do\n");

  std::string broken = whole;
  broken.insert(broken.find("<Datas>"), "<1/>");
  files.replace(path, broken.substr(0, broken.rfind("</")));
  EXPECT_THAT(failureOf([&] { repairRecord(path); }), HasSubstr("could not be read"));
  files.replace(folder / "b.txt", "time\tevent");
  for (const char* name : {"b.txt", "missing.xml"})
    EXPECT_NE(failureOf([&] { repairRecord(folder / name); }), "none") << name;
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 5) << "no copy is left";
}

}  // namespace
}  // namespace tarnlog
