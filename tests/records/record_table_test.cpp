#include <gmock/gmock.h>

#include <thread>

#include "SourceDir.h"
#include "platform/files/SystemFileSystem.h"
#include "records/RecordGraphs.h"
#include "records/RecordLoading.h"
#include "records/TableBuilder.h"
#include "tests/support/ReadBack.h"
#include "tests/support/TableText.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using test::GrowingFile;
using test::tableText;
using testing::HasSubstr;

/// As the readers of whole files tell it.
std::string readerTextOf(const std::string& bytes) {
  const test::MemoryReadableFile file(bytes);
  try {
    const auto reader = openRecord(file, "");
    RecordTable table;
    TableBuilder builder(table);
    for (const RecordHead& head : reader->recordings()) builder.addRecording(head);
    reader->read(builder);
    builder.finishRows();
    table.missing = reader->missing();
    builder.tellMissing(table.missing);
    return tableText(table);
  } catch (const TarnError& error) {
    return error.what();
  }
}

const std::string kFirst =
    "time\tevent\t\"Engine\"\t\"Engine\"\r\n16.11.26\t\t\"Status\"\t\"Id\"\r\n19:05:08\t\t\"Speed(km/"
    "h)\"\t\"Part\"\r\n"
    "0\t\"Start\"\t1.5\tA \xE9\r\n1\t\"\"\tNaN\t12\r\njunk\r\n0\t\"event2\"\t7\tA \xE9\r\n\r\n2\t\"\"\t8";
const std::string kSecond =
    "time\tevent\t\"Engine\"\r\n17/11/26\t\t\"Status\"\r\n7:05:08\t\t\"Speed(km/h)\"\r\n"
    "0\t\"\"\t7\r\n1\t\"\"\t1.5\r\n2\t\"\"\t1.5\r\n3,5\t\"Stop\"\t2,5\r\n";
const std::string kEvent = "time\tevent\t\"Speed\"\r\n1\t\"event\"\t9\r\n1,5\t\"\"\t1e999\r\n";

/// Cut anywhere, at once or as it grows: the same as the reader of whole files gives.
void expectWhatTheReaderTells(const std::string& all, std::size_t from, std::size_t step) {
  GrowingFile growing;
  growing.bytes = all.substr(0, from);
  const auto follower = openTable(growing, "", [] {});
  for (std::size_t length = from; length <= all.size(); length += step) {
    SCOPED_TRACE(length);
    growing.bytes = all.substr(0, length);
    const std::string expected = readerTextOf(growing.bytes);
    const auto whole = openTable(growing, "", [] {});
    ASSERT_EQ(tableText(*whole), expected);
    ASSERT_EQ(tableText(*follower), expected);
  }
}

TEST(RecordTable, HasWhatTheReaderTells) {
  const std::string all = kFirst + kSecond + "time\teventtime\tevent\t\"cut\"\r\n" + kEvent;
  EXPECT_THAT(readerTextOf(all), HasSubstr("1 Speed=nan Part=12\n"));
  EXPECT_THAT(readerTextOf(all),
              HasSubstr("1 row has a time before that of the row before, the first one at 0 s"));
  expectWhatTheReaderTells(all, 140, 1);
  const std::string xml =
      "<?xml version=\"1.0\"?>\r\n<Tarnlog2000><Description>Data file</Description>"
      "<Datas><Data name=\"v\"/></Datas>\r\n\t<row Time=\"0,5\" Event=\"Start\" C1=\"1,5\"/>\r\n"
      "\t<row Time=\"1\" C1=\"2\" C2=\"3\"/>\r\n\t<row Time=\"2\" C1=\"2\" Ev"
      "\t<row Time=\"3\" C1=\"a\"/>\r\n</Tarnlog2000>\r\n";
  expectWhatTheReaderTells(xml, xml.find("<row"), 1);
  const std::string mf4 =
      SystemFileSystem().readAll(TARNLOG_SOURCE_DIR "/tests/data/sample-unfinished-cut.mf4");
  expectWhatTheReaderTells(mf4, 3100, 61);
}

TEST(RecordTable, OutlivesWhatIsWrittenOverItsHeader) {
  GrowingFile file;
  file.bytes = "time\tevent\t\"A\"\r\n";
  const auto reader = openTable(file, "", [] {});
  reader->readOn();
  file.bytes = "a letter\r\nof another program\r\n";
  EXPECT_THROW(reader->readOn(), TarnError);
}

/// Copies stay as they were taken, also when they are added to.
TEST(RecordTable, CopiesDoNotChange) {
  NumberSeries original;
  std::vector<std::pair<NumberSeries, NumberSummary>> copies;
  for (int i = 0; i < 20000; ++i) {
    original.append(i);
    if (i % 977 == 0) copies.emplace_back(original, original.summary(0, original.size()));
  }
  for (auto& [copy, summary] : copies) {
    copy.append(-1);
    EXPECT_EQ(copy[copy.size() - 1], -1);
    EXPECT_EQ(copy.summary(0, copy.size() - 1).mean, summary.mean);
    EXPECT_EQ(copy.summary(0, copy.size()).lowest, -1);
  }
  EXPECT_EQ(original.summary(0, 20000).lowest, 0);
  EXPECT_DOUBLE_EQ(original.summary(0, 20000).mean, 9999.5);
}

std::string item(int index, const std::string& name, const std::string& type, const std::string& settings) {
  return "<Data index=\"" + std::to_string(index) + "\" name=\"" + name +
         "\" request=\"R\"><ECU name=\"E\"/><Scope type=\"" + type + "\"><" + type + " " + settings +
         "/></Scope></Data>";
}

/// An XML record carries its configuration; the second item of a name is the second column of that name.
TEST(RecordGraphs, AreThoseOfTheConfiguration) {
  GrowingFile file;
  file.bytes = "<Tarnlog2000 Version=\"2.0\"><Description>Data file</Description><Datas>" +
               item(1, "rpm", "GraphIndex", "index=\"2\" color=\"255\"") +
               item(2, "v", "Graph", "caption=\"Speed\" color=\"16711680\"") +
               item(3, "v", "GraphAxeX", "index=\"2\"") + item(4, "d", "Digital", "caption=\"\"") +
               item(5, "lost", "GraphIndex", "index=\"9\" color=\"256\"") + item(6, "n", "None", "") +
               "</Datas><row Time=\"0\" C1=\"1\" C2=\"0\" C3=\"3\" C4=\"1\" C5=\"5\" C6=\"1\"/>";
  const auto reader = openTable(file, "", [] {});
  reader->readOn();
  const auto table = reader->table();
  std::string text;
  for (const RecordGraph& graph : configuredGraphs(*table, 0)) {
    text += graph.title + " " + std::to_string(static_cast<int>(graph.kind));
    for (const GraphedColumn& column : graph.columns)
      text += " " + std::to_string(column.place.column) + ":" + std::to_string(column.colour);
    text += graph.x ? " x" + std::to_string(graph.x->column) + "\n" : "\n";
  }
  EXPECT_EQ(text, "Speed 1 1:255 0:16711680 x2\nd 3 3:0\nlost 0 4:256\n");
  EXPECT_TRUE(table->columnOf({0, 0, 1}).onOff);
  EXPECT_FALSE(table->columnOf({0, 0, 2}).onOff);
}

/// Waits for a thread without a fixed time.
template <class Condition>
bool comesTrue(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
  return condition();
}

TEST(RecordLoading, FollowsAFileUntilItIsRemoved) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const std::string path = folder / "a.txt";
  const auto stream = files.openForAppending(path);
  stream->write(kFirst);
  RecordLoading loading(path);
  ASSERT_TRUE(comesTrue([&] { return loading.state() == RecordLoading::State::Following; }));
  EXPECT_EQ(loading.newest()->recordings[0].rows(), 3);
  EXPECT_TRUE(loading.newest()->complete);
  EXPECT_EQ(loading.progress(), 1);
  stream->write("\tB\r\n" + kSecond);
  ASSERT_TRUE(comesTrue([&] { return loading.newest()->recordings.size() == 2; }));
  EXPECT_EQ(loading.newest()->recordings[0].rows(), 4);
  EXPECT_EQ(tableText(*loading.newest()), tableText(loadRecord(path)));
  FileCalls::ofSystem()->unlink(path);
  ASSERT_TRUE(comesTrue([&] { return loading.state() == RecordLoading::State::Ended; }));
  EXPECT_THAT(loading.newest()->missing.back(), HasSubstr("was removed"));
  EXPECT_EQ(loading.newest()->recordings[1].rows(), 4);
}

/// An XML record names its data before its rows tell that one of them was not there.
TEST(RecordLoading, KeepsColumnsWhereTheyWere) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const std::string path = folder / "a.xml";
  const auto stream = files.openForAppending(path);
  stream->write(
      "<Tarnlog2000><Description>Data file</Description><Datas><Data name=\"v\"/><Data name=\"w\"/></Datas>");
  RecordLoading loading(path);
  ASSERT_TRUE(comesTrue([&] { return loading.state() == RecordLoading::State::Following; }));
  stream->write("<row Time=\"0,5\" C1=\"1\"/>");
  ASSERT_TRUE(comesTrue([&] { return loading.state() == RecordLoading::State::Failed; }));
  EXPECT_THAT(loading.failure(), HasSubstr("open it again"));
  EXPECT_EQ(loading.newest()->recordings[0].groups[0].columns.size(), 2U);
}

TEST(RecordLoading, TellsWhyItFailed) {
  const test::TempFolder folder;
  SystemFileSystem files;
  files.replace(folder / "empty.txt", "");
  for (const std::string& path : {folder / "empty.txt", folder / "none.txt"}) {
    RecordLoading loading(path);
    ASSERT_TRUE(comesTrue([&] { return loading.state() == RecordLoading::State::Failed; }));
    EXPECT_THAT(loading.failure(), HasSubstr(path + ": "));
    EXPECT_EQ(loading.newest(), nullptr);
  }
}

}  // namespace
}  // namespace tarnlog
