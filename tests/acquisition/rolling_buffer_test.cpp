#include "acquisition/RollingBuffer.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/xml/XmlWriter.h"
#include "tests/support/MemoryFileSystem.h"

namespace tarnlog {
namespace {

std::string textOf(RollingBuffer& buffer, Milliseconds t0, const char* mark) {
  test::MemoryFileSystem files;
  TextStream stream(files.openForAppending("f"));
  buffer.WriteBufferToFile(stream, t0, mark);
  return files.files["f"];
}

RollingBuffer filled(std::int32_t rows, std::initializer_list<Milliseconds> times) {
  RollingBuffer buffer(',');
  buffer.Create(2, rows);
  for (const Milliseconds time : times) {
    buffer.AddRow(time);
    buffer.SetData(1, std::to_string(time));
    buffer.SetData(2, "x");
  }
  return buffer;
}

TEST(RollingBuffer, WritesTheNewestRowsOldestFirstWithTheMarkOnTheLast) {
  RollingBuffer buffer = filled(3, {10, 20, 30, 40, 50});
  EXPECT_EQ(textOf(buffer, 50, "Start"),
            "-0,02\t\"\"\t30\tx\r\n"
            "-0,01\t\"\"\t40\tx\r\n"
            "0\t\"Start\"\t50\tx\r\n");
  RollingBuffer exactlyFull = filled(3, {10, 20, 30});
  EXPECT_EQ(textOf(exactlyFull, 30, ""), "-0,02\t\"\"\t10\tx\r\n-0,01\t\"\"\t20\tx\r\n0\t\"\"\t30\tx\r\n");
  RollingBuffer single = filled(1, {10, 20});
  EXPECT_EQ(textOf(single, 20, "m"), "0\t\"m\"\t20\tx\r\n");
}

TEST(RollingBuffer, ComparesWithTheRowBefore) {
  RollingBuffer buffer = filled(20, {10});
  bool unchanged = true;
  EXPECT_EQ(buffer.GetData(2, unchanged), "x");
  EXPECT_FALSE(unchanged);
  buffer.AddRow(20);
  buffer.SetData(1, "10.0");
  buffer.SetData(2, "x");
  buffer.GetData(2, unchanged);
  EXPECT_TRUE(unchanged);
  buffer.GetData(1, unchanged);
  EXPECT_FALSE(unchanged);
}

TEST(RollingBuffer, CellsAreSetInAnyOrderAndKeepTheirTextsUntilThen) {
  RollingBuffer buffer;
  buffer.Create(3, 1);
  buffer.AddRow(0);
  buffer.SetData(3, "c");
  buffer.SetData(1, "a");
  EXPECT_EQ(textOf(buffer, 0, ""), "0\t\"\"\ta\t\tc\r\n");
  buffer.SetData(2, "longer");
  buffer.AddRow(0);
  buffer.SetData(2, "b");
  buffer.AddRow(0);
  bool unchanged = false;
  EXPECT_EQ(buffer.GetData(3, unchanged), "c");
  buffer.SetData(1, "A");
  EXPECT_EQ(textOf(buffer, 0, ""), "0\t\"\"\tA\tb\tc\r\n");
  buffer.SetData(1, "");
  EXPECT_EQ(textOf(buffer, 0, ""), "0\t\"\"\t\tb\tc\r\n");
}

TEST(RollingBuffer, EmptyGivesAndWritesNothing) {
  RollingBuffer buffer;
  buffer.Create(2, 3);
  bool unchanged = true;
  EXPECT_EQ(buffer.GetData(1, unchanged), "");
  EXPECT_FALSE(unchanged);
  EXPECT_EQ(textOf(buffer, 0, "Start"), "");
}

TEST(RollingBuffer, NoCellBreaksARow) {
  RollingBuffer buffer;
  buffer.Create(1, 1);
  buffer.AddRow(5);
  buffer.SetData(1, "a\tb\r\nc");
  EXPECT_EQ(textOf(buffer, 0, ""), "0\t\"\"\ta b  c\r\n");
}

}  // namespace
}  // namespace tarnlog
