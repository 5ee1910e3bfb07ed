#include <gtest/gtest.h>

#include "apps/common/BadInput.h"
#include "apps/tarn-record/RepairCommand.h"
#include "apps/tarn-record/XmlRepair.h"
#include "platform/xml/XmlDocument.h"
#include "tests/support/AcqRig.h"

namespace tarnlog::record {
namespace {

/// An XML record with a comment that needs escaping and three rows.
std::string recordFile() {
  test::AcqRig rig;
  rig.parameters->fileFormat = ".xml";
  rig.parameters->userDescription = "a < b, \"quoted\" > c";
  rig.triggerStart(1, 50);
  rig.start();
  rig.run("1000:0 1100:60 1200:61 1300:62");
  rig.acq.AskStopAcqNow();
  rig.timer.fire();
  return rig.files.files.at(rig.acq.RecordPath());
}

std::size_t rowsIn(const std::string& xml) {
  XmlDocument document;
  const auto error = document.parse(xml);
  EXPECT_FALSE(error) << error->reason << "\n" << xml;
  return document.selectNodes("Tarnlog2000/row").size();
}

TEST(Repair, keepsEveryFinishedRowWhereverTheFileEnds) {
  const std::string whole = recordFile();
  const std::size_t rootStart = whole.find("<Tarnlog2000");
  const std::size_t firstWhole = whole.find('>', rootStart) + 1;
  for (std::size_t length = firstWhole; length < whole.find("</Tarnlog2000>"); ++length) {
    const std::string cut = whole.substr(0, length);
    const auto repaired = repairXml(cut);
    ASSERT_TRUE(repaired) << cut;
    std::size_t finished = 0;
    for (std::size_t at = cut.find("<row "); at != std::string::npos; at = cut.find("<row ", at + 1))
      if (cut.find("/>", at) != std::string::npos) ++finished;
    ASSERT_EQ(rowsIn(repaired->text), finished) << cut;
  }
}

TEST(Repair, leavesWholeFilesAndOtherFilesAlone) {
  const std::string whole = recordFile();
  EXPECT_TRUE(repairXml(whole)->whole);
  EXPECT_TRUE(
      repairXml("<!-- </x> --><?p > ?><Tarnlog2000 a='>'><b><![CDATA[</Tarnlog2000>]]></b></Tarnlog2000>")
          ->whole);
  EXPECT_FALSE(repairXml(""));
  EXPECT_FALSE(repairXml("<other><row/>"));
  EXPECT_FALSE(repairXml("time\tevent\r\n"));
  EXPECT_FALSE(repairXml("</Tarnlog2000>"));
}

TEST(Repair, replacesTheFileAndSaysWhatItDid) {
  test::MemoryFileSystem files;
  const std::string whole = recordFile();
  files.files["/rec/a.xml"] = whole.substr(0, whole.rfind("<row ") + 9);
  EXPECT_EQ(repairFile(files, "/rec/a.xml"),
            "/rec/a.xml: closed, 9 bytes of an unfinished element dropped\n");
  EXPECT_EQ(rowsIn(files.files["/rec/a.xml"]), 2U);
  EXPECT_EQ(repairFile(files, "/rec/a.xml"), "/rec/a.xml: whole, nothing to do\n");
  files.files["/rec/b.txt"] = "time\tevent";
  EXPECT_THROW(repairFile(files, "/rec/b.txt"), BadInput);
  EXPECT_THROW(repairFile(files, "/rec/missing.xml"), BadInput);
}

}  // namespace
}  // namespace tarnlog::record
