#include "records/ForeignTable.h"

#include <gmock/gmock.h>

#include <cmath>

#include "platform/text/Numbers.h"
#include "records/TableReader.h"
#include "tests/support/ReadBack.h"

namespace tarnlog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A table of another program as it is guessed: what was guessed, then columns and rows.
std::string readAsGuessed(const std::string& bytes, const std::vector<std::string>& missing = {}) {
  const test::MemoryReadableFile file(bytes);
  const ForeignTablePreview preview = lookAtForeignTable(file);
  const auto reader = openTable(file, preview.choice, [] {});
  reader->readOn();
  const auto table = reader->table();
  const ForeignTableChoice& choice = preview.choice;
  std::string text{choice.separator, choice.decimal};
  text += " " + std::to_string(choice.headerLines) + (choice.utf8 ? " utf8" : " 1252") + "\ntime";
  const TableGroup& group = table->recordings[0].groups[0];
  for (const TableColumn& column : group.columns)
    text += "|" + column.about.name + "[" + column.about.unit + "]";
  for (std::int64_t row = 0; row < group.rows(); ++row) {
    text += "\n" + exactNumberText(group.times[row]);
    for (const TableColumn& column : group.columns)
      text += "|" + (std::isnan(column.numbers[row]) ? std::string(column.textOf(row))
                                                     : exactNumberText(column.numbers[row]));
  }
  EXPECT_EQ(table->missing, missing);
  return text;
}

TEST(ForeignTable, IsGuessed) {
  EXPECT_EQ(readAsGuessed(
                "Time [ms],Speed (km/h),\"Gear, \"\"now\"\"\"\n1000,007,P\n1500,+1.5e1,\n2000,nan,\"D,4\"\n"),
            ",. 1 utf8\ntime|Speed[km/h]|Gear, \"now\"[]\n1|7|P\n1.5|15|\n2||D,4");
  EXPECT_EQ(readAsGuessed("Logger 7\r\nDruck;Zeit\r\nbar;s\r\n1,5;0,1\r\n-2,25;0,2\r\n;0,3\r\n"),
            ";, 3 utf8\ntime|Druck[bar]\n0.1|1.5\n0.2|-2.25\n0.3|");
  EXPECT_EQ(readAsGuessed("Logger 7\nNo. 5\nZeit;Druck;\n2026-11-16 19:05:08;1;\n2026-11-16 19:05:09;1;\n"
                          "2026-11-16 19:05:10;1;\n2026-11-16 19:05:11;2;\n2026-11-16 19:05:12;2;\n"
                          "2026-11-16 19:05:13;2;\n")
                .substr(0, 38),
            ";. 3 utf8\ntime|Druck[]|C3[]\n0|1|\n1|1|\n");
  EXPECT_EQ(readAsGuessed("Time,v,\n0,5\n1,5\n2,5\n"), ",. 1 utf8\ntime|v[]\n0|5\n1|5\n2|5");
  EXPECT_EQ(readAsGuessed("  0.0   1 a\xE9\n  0.5   2 b\n"),
            " . 0 1252\ntime|C2[]|C3[]\n0|1|a\xC3\xA9\n0.5|2|b");
  EXPECT_EQ(readAsGuessed("\xEF\xBB\xBF"
                          "n\tDate\n5\t2026-11-16 23:59:59.5\n5\t17.11.2026 00:00:01\n"),
            "\t. 1 utf8\ntime|n[]\n0|5\n1.5|5");
  EXPECT_EQ(readAsGuessed("a|Time\n5|23:59:59\n6|00:00:01.25\n"), "|. 1 utf8\ntime|a[]\n0|5\n2.25|6");
  EXPECT_EQ(readAsGuessed("a|Time\n5|00:00:00\n7|23:59:59.1\n6|00:00:01.25\n").substr(10),
            "time|a[]\n0|5\n86399.1|7\n86401.25|6");
  EXPECT_EQ(readAsGuessed("a|Time\n5|2026-11-16 12:00:00.3\n6|2026-11-16 12:00:00.4\n").substr(10),
            "time|a[]\n0|5\n0.1|6");
  EXPECT_EQ(readAsGuessed("timestamp,v\n1700000000000,1\n1700000000250,2\n").substr(10),
            "time|v[]\n0|1\n0.25|2");
  EXPECT_EQ(readAsGuessed("a,b\n1,1\n1,2,3\n1,0\n", {"line 3: 1 row passed over: expected at most 2 cells"}),
            ",. 1 utf8\ntime|a[]|b[]\n0|1|1\n1|1|0");
}

TEST(ForeignTable, HasLinesOfManyKinds) {
  const std::string table = ";. 1 utf8\ntime|a[]|b[]\n0|1|2\n1|1|2";
  EXPECT_EQ(readAsGuessed("a;b\r1;2\r1;2\r"), table);
  EXPECT_EQ(readAsGuessed("\r\na;b\r\n\r\n1;2\r\n\r\n1;2"), table);
  EXPECT_EQ(readAsGuessed("Time,\"Speed\n(km/h)\",\"Note\"\n0,1,\"a\r\n\"\"b\"\"\"\n1,2,c\n"),
            ",. 1 utf8\ntime|Speed[km/h]|Note[]\n0|1|a\n\"b\"\n1|2|c");
  EXPECT_EQ(
      readAsGuessed("a,b\n1,\"x\n2,3\n4,\"5\"0 \n6,7,8\n9,\"x\n",
                    {"line 5: 1 row passed over: expected a time and at most 2 cells",
                     "line 2: 2 rows, this the first, passed over: a cell begins with a quote that is not "
                     "closed"}),
      ",. 1 utf8\ntime|b[]\n2|3\n4|50");
}

TEST(ForeignTable, HasManyColumns) {
  constexpr int kColumns = 20000;
  std::string bytes = "Time";
  for (int i = 1; i < kColumns; ++i) bytes += ",a column with a long name " + std::to_string(i);
  for (const char* const time : {"\n0", "\n1"}) {
    bytes += time;
    for (int i = 1; i < kColumns; ++i) bytes += ",5";
  }
  const std::string text = readAsGuessed(bytes);
  EXPECT_EQ(std::count(text.begin(), text.end(), '|'), 3 * (kColumns - 1));
  EXPECT_THAT(text, HasSubstr("|a column with a long name 19999[]\n0|5|"));
}

TEST(ForeignTable, IsCorrectedByItsUser) {
  const test::MemoryReadableFile file("x;1,5\ny;2,5\n");
  ForeignTableChoice choice;
  choice.headerLines = 0;
  EXPECT_THAT(foreignLines(file, choice), ElementsAre(ElementsAre("x;1", "5"), ElementsAre("y;2", "5")));
  choice.timeColumn = 2;
  EXPECT_THROW(openForeignTable(file, choice), TarnError);
  choice = {';', ',', 0, 1, 0.001, true};
  const auto reader = openTable(file, choice, [] {});
  reader->readOn();
  EXPECT_DOUBLE_EQ(reader->table()->recordings[0].groups[0].times[1], 0.0025);
  EXPECT_EQ(reader->table()->recordings[0].groups[0].columns[0].textOf(1), "y");
  choice.timeUnit = 3600;
  EXPECT_EQ(foreignTime("1e308", choice), std::nullopt);
}

TEST(ForeignTable, IsNothingElse) {
  const auto refusal = [](const std::string& bytes) -> std::string {
    try {
      lookAtForeignTable(test::MemoryReadableFile(bytes));
      return {};
    } catch (const TarnError& error) {
      return error.what();
    }
  };
  EXPECT_THAT(refusal(""), HasSubstr("the file is empty"));
  EXPECT_THAT(refusal(std::string("a,b\n1,2\0\n", 9)), HasSubstr("bytes that are no text"));
  EXPECT_THAT(refusal("\xFF\xFE"
                      "a"),
              HasSubstr("UTF-16"));
  EXPECT_THAT(refusal("<html>1,2</html>"), HasSubstr("no table"));
  EXPECT_THAT(refusal("Dear all,\nthis is a letter,\nno more\n"), HasSubstr("no column has numbers"));
  EXPECT_THAT(refusal("1\n2\n"), HasSubstr("the lines have no columns"));
}

}  // namespace
}  // namespace tarnlog
