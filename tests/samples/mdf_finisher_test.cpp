#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "MdfRig.h"
#include "platform/files/SystemFileSystem.h"
#include "samples/MdfFile.h"
#include "samples/MdfFinisher.h"
#include "tests/support/FailureOf.h"
#include "tests/support/PowerCut.h"
#include "tests/support/TempFolder.h"

using namespace tarnlog;
using namespace tarnlog::test;

namespace {

constexpr char kWhole[] = "/rec/16-11-26_19h05mn07_all.mf4";

/// A file with a gap, a mark and a step of the clock, as it is before it is closed and after that.
struct Files {
  std::string open;
  std::string closed;
};

Files recorded() {
  MdfRig rig;
  rig.start();
  rig.cycles(4);
  rig.acq.RecordUserEvent();
  rig.clock.setUtcBy(-1'000'000'000);
  rig.cycles(2, 400);
  rig.cycles(1);
  rig.sink.state(TarnAcq::kCommunicate, 0);
  Files files{rig.mdfFiles.files.at(kWhole), {}};
  rig.sink.end(0);
  files.closed = rig.mdfFiles.files.at(kWhole);
  return files;
}

MdfContent contentOf(const std::string& file) { return MdfStrictReader(file).read(); }

/// A file in memory. Stops after so many operations, as a power cut does.
class StoppingStream : public FileStream {
 public:
  explicit StoppingStream(std::string& file, int operations = -1) : file_(file), left_(operations) {}
  void write(std::string_view bytes) override {
    go();
    file_.append(bytes);
  }
  void writeOrOwe(std::string_view) override {}
  void writeAt(std::uint64_t offset, std::string_view bytes) override {
    go();
    file_.replace(offset, bytes.size(), bytes);
  }
  void sync() override { go(); }
  bool failing() const override { return false; }

 private:
  void go() {
    if (left_-- == 0) throw TarnError(1, "Test", "power cut");
  }

  std::string& file_;
  int left_;
};

std::string finished(std::string file, const MdfFinish& finish) {
  if (finish.finished) return file;
  file.resize(finish.keep);
  StoppingStream stream(file);
  finishMdf(stream, finish);
  return file;
}
std::string finished(const std::string& file) { return finished(file, planMdfFinish(file)); }

}  // namespace

TEST(MdfFinisher, MakesOfAKilledFileWhatClosingWouldHaveMade) {
  const Files files = recorded();
  EXPECT_EQ(contentOf(files.closed).events.size(), 4U);
  EXPECT_TRUE(finished(files.open) == files.closed);
  EXPECT_TRUE(planMdfFinish(files.closed).finished);
  EXPECT_TRUE(finished(files.open + std::string(5000, '\0')) == files.closed) << "never reached the disk";

  std::string holed = files.open;
  holed.replace(holed.size() - 100, 90, 90, '\0');
  EXPECT_GT(planMdfFinish(holed).records, 5U);
  EXPECT_GT(planMdfFinish(holed).cutBytes, 90U);
  EXPECT_LT(contentOf(finished(holed)).groups[0].records, contentOf(files.closed).groups[0].records);

  const std::size_t head = planMdfFinish(files.open).closing.data + 24;
  std::uint64_t records = 0;
  for (std::size_t size = 0; size < files.open.size(); ++size) {
    const std::string cut = files.open.substr(0, size);
    if (size < head) {
      EXPECT_NE(failureOf([&] { planMdfFinish(cut); }), "none") << size;
      continue;
    }
    const MdfFinish plan = planMdfFinish(cut);
    EXPECT_TRUE(plan.records == records || plan.records == records + 1) << size;
    records = plan.records;
    const MdfContent content = contentOf(finished(cut, plan));
    EXPECT_EQ(plan.keep + plan.cutBytes, size);
    EXPECT_EQ(content.groups[0].records, contentOf(cut).groups[0].records) << size;
  }
}

TEST(MdfFinisher, FinishesAClosingThatWasCutShort) {
  const Files files = recorded();
  MdfClosing closing = planMdfFinish(files.open).closing;
  closing.quality = {"fine", {{"answers lost", "0"}}};
  int operations = 0;
  for (bool whole = false; !whole; ++operations) {
    std::string file = files.open;
    StoppingStream stream(file, operations);
    whole = skipOnFailure([&] { closeMdf(stream, closing); });
    const MdfContent content = contentOf(file);
    EXPECT_EQ(content.groups[0].records, contentOf(files.open).groups[0].records);
    EXPECT_EQ(content.finished, planMdfFinish(file).finished);
    if (content.finished)
      EXPECT_THAT(content.histories.back(), testing::HasSubstr("<TX>fine</TX><tool_id>"));
    else
      EXPECT_TRUE(finished(file) == files.closed) << operations;
  }
  EXPECT_GT(operations, 20);
}

TEST(MdfFinisher, ABlockWhoseFirstHalfCannotBeCutOffIsCompletedLater) {
  struct TornCalls : FileCalls {
    int torn = -1;  ///< this write gets half of its bytes out and fails then
    ssize_t write(int fd, std::string_view bytes) override {
      if (torn == 0) return errno = ENOSPC, -1;
      if (torn > 0 && --torn == 0) return FileCalls::write(fd, bytes.substr(0, bytes.size() / 2));
      return FileCalls::write(fd, bytes);
    }
    int ftruncate(int, off_t) override { return errno = EIO, -1; }
  };
  const TempFolder folder;
  const auto calls = std::make_shared<TornCalls>();
  SystemFileSystem files(calls, std::chrono::hours(1));
  const MdfLayout layout = mdfLayout(std::vector<MdfGroup>{});
  MdfFile file(files.create(folder / "a.mf4"), {}, layout,
               {.zone = ZoneOffset{}, .programVersion = "1", .facts = {}});
  MdfRecord record;
  for (const std::int64_t second : {1, 2, 3, 4}) {
    mdfMark(layout, SampleMark::Kind::Event, second * 1'000'000, 7, "event.txt", record);
    file.add(layout.own(MdfLayout::kMarks), second * 1'000'000, record.bytes());
    calls->torn = second == 2 ? 1 : second == 3 ? 0 : -1;
    file.flush();
  }
  const MdfClosing closing = *file.closing();
  closeMdf(*file.takeStream(), closing);
  EXPECT_EQ(file.lostRecords(), 1U) << "the third; of the second, the rest came with the fourth";
  EXPECT_EQ(contentOf(files.readAll(folder / "a.mf4")).groups[0].records, 3U);
}

TEST(MdfFinisher, AFileThatAnotherProgramCutsShortIsLeftAsItIs) {
  const TempFolder folder;
  SystemFileSystem files;
  const MdfLayout layout = mdfLayout(std::vector<MdfGroup>{});
  MdfFile file(files.create(folder / "a.mf4"), {}, layout,
               {.zone = ZoneOffset{}, .programVersion = "1", .facts = {}});
  MdfRecord record;
  for (const std::int64_t second : {1, 2, 3}) {
    mdfMark(layout, SampleMark::Kind::Event, second * 1'000'000, 7, "event.txt", record);
    file.add(layout.own(MdfLayout::kMarks), second * 1'000'000, record.bytes());
    file.flush();
    const std::string path = folder / "a.mf4";
    if (second == 2) std::filesystem::resize_file(path, std::filesystem::file_size(path) - 3);
  }
  EXPECT_FALSE(file.closing());
  EXPECT_EQ(file.lostRecords(), 1U) << "the third";
  const MdfFinish repaired = planMdfFinish(files.readAll(folder / "a.mf4"));
  EXPECT_EQ(repaired.records, 1U) << "the second is not whole";
  EXPECT_GT(repaired.cutBytes, 0U);
}

TEST(MdfFinisher, NoPowerCutWhileClosingCostsWhatWasSyncedBefore) {
  const TempFolder folder;
  const auto disk = std::make_shared<PowerCut>(folder.path());
  SystemFileSystem files(disk, std::chrono::hours(1));
  const MdfLayout layout = mdfLayout(std::vector<MdfGroup>{});
  MdfFile file(files.create(folder / "a.mf4"), folder / "a.mf4", layout,
               {.zone = ZoneOffset{}, .programVersion = "1", .facts = {}});
  MdfRecord record;
  for (const std::int64_t second : {1, 2}) {
    mdfMark(layout, SampleMark::Kind::Event, second * 1'000'000, 7, "event.txt", record);
    file.add(layout.own(MdfLayout::kMarks), second * 1'000'000, record.bytes());
    file.note(markEvent(SampleMark::Kind::Event, second * 1'000'000, 7, "event.txt"));
  }
  MdfClosing closing = *file.closing();
  closing.quality = {"fine", {{"answers lost", "0"}}};
  const std::unique_ptr<FileStream> stream = file.takeStream();
  stream->sync();
  const std::size_t synced = disk->calls();
  closeMdf(*stream, closing);

  std::size_t outcomes = 0;
  for (std::size_t calls = synced; calls <= disk->calls(); ++calls)
    disk->forEachOutcome(calls, [&](PowerCut::Disk left) {
      ++outcomes;
      const MdfContent content = contentOf(finished(left.at("a.mf4")));
      ASSERT_EQ(content.groups[0].records, 2U) << "after " << calls;
      ASSERT_EQ(content.events.size(), 2U) << "after " << calls;
    });
  EXPECT_GT(outcomes, 500U);
}

TEST(MdfFinisher, RefusesWhatItDoesNotUnderstand) {
  const std::string open = recorded().open;
  const auto refusal = [&](std::size_t place, const std::string& bytes) {
    std::string file = open;
    file.replace(place, bytes.size(), bytes);
    return failureOf([&] { planMdfFinish(file); });
  };
  const std::size_t group = open.find("##CG");
  const std::size_t data = open.find("##DT");
  const auto at = [](std::size_t place) { return " at " + std::to_string(place) + ": "; };
  EXPECT_EQ(refusal(0, "RIFF"), "the file at 0: not an MDF file");
  EXPECT_EQ(refusal(28, "\x9B"), "the file at 28: not of version 4.10");
  EXPECT_EQ(refusal(60, "\x02"), "the file at 60: flags of another maker");
  EXPECT_EQ(refusal(group, "##CX"), "##CG" + at(group) + "another block stands there");
  EXPECT_EQ(refusal(group + 8, "\x10"), "##CG" + at(group) + "shorter than such blocks are");
  EXPECT_EQ(refusal(group + 24 + 48 + 16, "\x02"), "##CG" + at(group) + "flags of another maker");
  EXPECT_EQ(refusal(data, "##HL"), "##DT" + at(data) + "another block stands there");
  EXPECT_EQ(refusal(data + 24, "\x7F"), "##DT" + at(data + 24) + "a record with an id of no group");
}
