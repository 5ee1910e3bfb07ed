#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SourceDir.h"
#include "apps/common/BadInput.h"
#include "apps/common/RecordRepair.h"
#include "apps/common/UnfinishedRecords.h"
#include "apps/tarn-record/ExportCommand.h"
#include "apps/tarn-record/QualityCommand.h"
#include "exports/PartExport.h"
#include "mdf/LittleEndian.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::record {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kSmall = TARNLOG_SOURCE_DIR "/tests/data/small.mf4";

struct MeasurementFiles : testing::Test {
  std::string exported(const std::string& input, const std::string& format, ExportChoice choice = {}) {
    const std::string output = folder / ("out." + format);
    exportRecord({.input = input, .format = format, .output = output, .choice = std::move(choice)});
    return format == "mf4" ? output : files.readAll(output);
  }
  std::string written(const std::string& name, std::string_view bytes) {
    files.replace(folder / name, bytes);
    return folder / name;
  }

  SystemFileSystem files;
  test::TempFolder folder;
};

TEST_F(MeasurementFiles, AreExportedToTheSameValuesAgain) {
  const std::string csv = exported(kSmall, "csv");
  EXPECT_THAT(csv, HasSubstr(",event,"));
  EXPECT_EQ(exported(exported(kSmall, "mf4"), "csv"), csv);
  const std::string part = exported(kSmall, "csv", {.from = 0.02, .till = 0.06, .data = {"Speed"}});
  EXPECT_LT(part.size(), csv.size() / 2);

  const std::string text = written("a.txt",
                                   "time\tevent\t\"E\"\t\"E\"\r\n16/11/26\t\t\"R\"\t\"R\"\r\n"
                                   "19:05:07\t\t\"V(km/h)\"\t\"W\"\r\n"
                                   "0\t\"Start\"\t1.5\t1\r\n1\t\"\"\t---\tx\r\n2\t\"Stop\"\t3\t2\r\n");
  EXPECT_EQ(exported(exported(text, "mf4"), "csv"), exported(text, "csv"));
  EXPECT_EQ(qualityOfFile(text).lines, text + ": 3 rows; 1 rows/s (1 to 1); no gap\n");
  EXPECT_EQ(test::failureOf([&] {
              exportRecord({.input = kSmall, .format = "mf4", .output = "/dev/null", .choice = {}});
            }),
            "--to mf4: needs a file to write, name one with --output FILE");
  EXPECT_EQ(test::failureOf([&] { exported(text, "csv", {.from = 2, .till = 1, .data = {}}); }),
            "--from is later than --till: nothing lies between them");
}

/// Which is read twice, where its rows are counted for want of times.
TEST_F(MeasurementFiles, AreMadeOfATableOfAnotherProgram) {
  PartChoice part{.input = written("t.csv", "a;b\n1;2\n3;4\n5;6\n"),
                  .foreign = ForeignTableChoice{.separator = ';', .timeColumn = {}},
                  .output = folder / "part.mf4",
                  .format = PartChoice::Format::Mf4,
                  .choice = {.from = 1, .till = {}, .data = {}}};
  EXPECT_TRUE(exportPart(part, false));
  EXPECT_EQ(exported(part.output, "csv"), "time [s],mark,a,b\n1,,3,4\n2,,5,6\n");
  part.foreign.reset();
  EXPECT_THAT(test::failureOf([&] { exportPart(part, false); }), StartsWith(part.input + ": no record"));
}

TEST_F(MeasurementFiles, AreUnderstoodAndRepairedWhereverTheyAreCut) {
  const std::string whole = files.readAll(kSmall);
  EXPECT_THAT(qualityOfFile(kSmall).lines, StartsWith(kSmall + ": "));
  EXPECT_EQ(qualityOfFile(kSmall).missing, "");
  EXPECT_THAT(repairRecord(kSmall), HasSubstr("whole, nothing to do"));

  const std::size_t data = whole.find("##DT");
  for (const std::size_t lacking : {1U, 8U, 100U, 400U}) {
    const std::string cut = written("cut.mf4", whole.substr(0, whole.size() - lacking));
    EXPECT_THAT(repairRecord(cut), HasSubstr("cut.mf4: closed, ")) << lacking;
    EXPECT_EQ(qualityOfFile(cut).missing, "") << lacking;
    EXPECT_THAT(repairRecord(cut), HasSubstr("whole, nothing to do"));
  }
  std::string open = whole.substr(0, data + mdf::get<std::uint64_t>(whole.data() + data + 8));
  open.replace(0, 8, "UnFinMF ").replace(60, 2, std::string("\x25\0", 2));
  int repaired = 0;
  for (std::size_t size = 0; size < open.size(); size += size < data ? 997 : 13) {
    const std::string cut = written("cut.mf4", open.substr(0, size));
    std::string failure = test::failureOf([&] { EXPECT_NE(qualityOfFile(cut).missing, "") << size; });
    if (failure != "none") {
      EXPECT_THAT(failure, HasSubstr("cut.mf4: ")) << size;
      continue;
    }
    EXPECT_THAT(unfinishedRecords(folder.path()), ElementsAre(cut));
    const std::string before = qualityOfFile(cut).lines;
    EXPECT_THAT(repairRecord(cut), HasSubstr("cut.mf4: closed, ")) << size;
    EXPECT_EQ(qualityOfFile(cut).lines, before) << size;
    EXPECT_EQ(qualityOfFile(cut).missing, "") << size;
    EXPECT_TRUE(unfinishedRecords(folder.path()).empty());
    ++repaired;
  }
  EXPECT_GT(repaired, 10);
}

}  // namespace
}  // namespace tarnlog::record
