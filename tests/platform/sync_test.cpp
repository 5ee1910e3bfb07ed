#include <gmock/gmock.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/files/SystemFileSystem.h"
#include "platform/settings/FileSettingsStore.h"
#include "tests/support/FailureOf.h"
#include "tests/support/PowerCut.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using namespace std::chrono_literals;
using test::failureOf;
using test::PowerCut;
using test::TempFolder;
using ::testing::AnyOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// Until the thread has got there.
template <class Condition>
void await(Condition condition) {
  while (!condition()) std::this_thread::yield();
}

/// What must be in a file after a power cut that comes after so many calls.
struct Promise {
  std::size_t calls;
  std::size_t at;
  std::string bytes;
};

TEST(PowerCutTest, CostsNothingThatWasSyncedAndLeavesTheFilesBeginningWhole) {
  const TempFolder folder;
  const auto disk = std::make_shared<PowerCut>(folder.path());
  std::vector<Promise> promises;
  const auto rows = [](std::uint64_t count) {
    std::string text;
    for (std::uint64_t row = 1; row <= count; ++row) text += "row " + std::to_string(row) + "\r\n";
    return text;
  };
  {
    SystemFileSystem files(disk, 1h);
    files.setSyncInterval(1ms);
    const auto stream = files.create(folder / "a");
    stream->writeOrOwe("head");
    for (std::uint64_t row = 1; row <= 12; ++row) {
      stream->write("row " + std::to_string(row) + "\r\n");
      if (row % 3 == 0) await([&] { return stream->writesSynced() == row; });
      const std::uint64_t synced = stream->writesSynced();
      if (synced != 0) promises.push_back({disk->calls(), 4, rows(synced)});
    }
    stream->writeAt(0, "HEAD");
    stream->sync();
    promises.push_back({disk->calls(), 0, "HEAD" + rows(12)});
    stream->write("row 13\r\n");
  }
  promises.push_back({disk->calls(), 0, "HEAD" + rows(13)});
  for (const Promise& promise : promises)
    for (std::size_t calls = promise.calls; calls <= disk->calls(); ++calls)
      disk->forEachOutcome(calls, [&](PowerCut::Disk left) {
        EXPECT_EQ(left["a"].substr(promise.at, promise.bytes.size()), promise.bytes) << "after " << calls;
      });
}

TEST(PowerCutTest, LeavesTheOldOrTheNewFileWhereOneIsReplaced) {
  const TempFolder folder;
  SystemFileSystem().replace(folder / "settings", "A=old\n");
  const auto disk = std::make_shared<PowerCut>(folder.path());
  SystemFileSystem files(disk);
  FileSettingsStore(files, folder / "settings").write("A", "new");
  const std::size_t replaced = disk->calls();
  files.replace(folder / "configuration", "first");
  for (std::size_t calls = 0; calls <= disk->calls(); ++calls)
    disk->forEachOutcome(calls, [&](PowerCut::Disk left) {
      EXPECT_THAT(left["settings"], AnyOf("A=new\n", calls < replaced ? "A=old\n" : "A=new\n"));
      if (calls < disk->calls()) left.emplace("configuration", "first");
      EXPECT_EQ(left["configuration"], "first");
    });
}

/// A disk whose syncs hang or fail.
class SickDisk : public FileCalls {
 public:
  int fdatasync(int file) override {
    std::unique_lock lock(mutex_);
    ++syncs_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return !hangs_; });
    if (error_ == 0) return FileCalls::fdatasync(file);
    errno = error_;
    return -1;
  }
  void set(bool hangs, int error) {
    const std::lock_guard lock(mutex_);
    hangs_ = hangs;
    error_ = error;
    changed_.notify_all();
  }
  void awaitSyncs(int count) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return syncs_ >= count; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool hangs_ = false;
  int error_ = 0;
  int syncs_ = 0;
};

struct Syncing : testing::Test {
  std::unique_ptr<SystemFileSystem> filesWith(std::chrono::milliseconds patience) {
    auto files = std::make_unique<SystemFileSystem>(disk, patience);
    files->setWriteTroubleHandler([this](const WriteTrouble& trouble) {
      told.push_back((trouble.kind == WriteTrouble::Kind::NotSynced ? "" : "other: ") + trouble.why);
    });
    return files;
  }

  const TempFolder folder;
  const std::shared_ptr<SickDisk> disk = std::make_shared<SickDisk>();
  std::vector<std::string> told;
};

TEST_F(Syncing, ThatFailsIsToldAndWhatItWasAboutNeverCountsAsSynced) {
  const auto files = filesWith(1h);
  files->setSyncInterval(0ms);
  const auto stream = files->create(folder / "a.txt");
  stream->write("row\r\n");
  stream->sync();
  EXPECT_EQ(stream->writesSynced(), 1U);
  disk->set(false, EIO);
  stream->write("row\r\n");
  EXPECT_EQ(failureOf([&] { stream->sync(); }), folder / "a.txt: Input/output error");
  EXPECT_FALSE(stream->failing()) << "rows are written all the same";
  disk->set(false, 0);
  stream->write("row\r\n");
  stream->sync();
  EXPECT_EQ(stream->writes(), 3U);
  EXPECT_EQ(stream->writesSynced(), 2U);

  disk->set(false, EIO);
  files->setSyncInterval(1ms);
  stream->write("row\r\n");
  await([&] {
    files->tellSyncTroubles();
    return told.size() == 2;
  });
  files->create(folder / "b.txt")->write("row\r\n");
  files->finishSyncing();
  EXPECT_THAT(told, ElementsAre("Input/output error", "Input/output error", "Input/output error"));
}

TEST_F(Syncing, ThatHangsKeepsNobodyWaiting) {
  auto files = filesWith(1ms);
  files->setSyncInterval(1ms);
  auto stream = files->create(folder / "a.txt");
  auto other = files->create(folder / "b.txt");
  disk->set(true, 0);
  stream->write("row\r\n");
  disk->awaitSyncs(1);
  stream->write("row\r\n");
  EXPECT_THAT(told, IsEmpty());
  await([&] {
    files->tellSyncTroubles();
    return told.size() == 2;
  });
  stream.reset();
  other.reset();
  EXPECT_EQ(files->readAll(folder / "a.txt"), "row\r\nrow\r\n");
  files->openForAppending(folder / "a.txt")->write("row\r\n");
  files->finishSyncing();
  EXPECT_THAT(told, SizeIs(3));
  EXPECT_THAT(told, Each(StartsWith("the disk has not answered for ")));
  files.reset();
  disk->set(false, 0);
}

TEST_F(Syncing, ComesNotMoreOftenThanAskedFor) {
  const auto files = filesWith(1h);
  files->setSyncInterval(20ms);
  const auto begin = std::chrono::steady_clock::now();
  const auto stream = files->create(folder / "a.txt");
  for (std::uint64_t row = 1; row <= 3; ++row) {
    stream->write("row\r\n");
    await([&] { return stream->writesSynced() == row; });
  }
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 40ms) << "the first may come with the folder's";
}

}  // namespace
}  // namespace tarnlog
