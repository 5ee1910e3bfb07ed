#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <functional>
#include <limits>
#include <vector>

#include "platform/files/SystemFileSystem.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TempFolder.h"

namespace tarnlog {
namespace {

using test::failureOf;
using test::TempFolder;
using ::testing::ElementsAre;

/// A folder, and files that remember what was told of writing them.
struct Files : testing::Test {
  Files() {
    files.setWriteTroubleHandler([this](const WriteTrouble& trouble) {
      const std::string lost =
          "lost " + std::to_string(trouble.lostRows) + " of " + std::to_string(trouble.lostInFile);
      if (trouble.kind != WriteTrouble::Kind::Ended) return told.push_back(trouble.why);
      told.push_back((trouble.closed ? "closed, " : "well again, ") + lost);
    });
  }

  const TempFolder folder;
  std::vector<std::string> told;
  SystemFileSystem files;
};

/// Runs a step while no file may grow beyond this size: a disk that fills up in the middle of a row.
void onFullDisk(rlim_t bytes, const std::function<void()>& step) {
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{bytes, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  step();
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
}

TEST_F(Files, WhatCannotBeReadOrWrittenSaysWhyAndWhere) {
  files.create(folder / "taken.xml");
  EXPECT_EQ(failureOf([&] { files.create(folder / "taken.xml"); }), folder / "taken.xml: File exists");
  EXPECT_EQ(failureOf([&] { files.readAll(folder / "none"); }), folder / "none: No such file or directory");
  EXPECT_EQ(failureOf([&] { files.openForAppending(folder.path()); }), folder.path() + ": Is a directory");
  EXPECT_EQ(failureOf([&] { files.readAll("/dev/zero"); }),
            "/dev/zero: gives more than 64 MiB, so much is read from regular files only");
  files.replace(folder / "sparse", "");
  std::filesystem::resize_file(folder / "sparse", (std::uintmax_t{1} << 40));
  EXPECT_EQ(failureOf([&] { files.readAll(folder / "sparse"); }),
            folder / "sparse: is larger than 1 GiB, which no file read here is");
  EXPECT_FALSE(files.readAll("/proc/self/status").empty()) << "a file that does not tell its size";
}

TEST_F(Files, RowsStayWholeOnAFullDiskAndEachOutageIsToldWithWhatItCost) {
  {
    const auto stream = files.openForAppending(folder / "a.txt");
    stream->write("first row\r\n");
    for (int outage = 0; outage < 2; ++outage) {
      onFullDisk(15 + 11 * static_cast<rlim_t>(outage), [&] {
        for (int row = 0; row < 3; ++row)
          EXPECT_EQ(failureOf([&] { stream->write("second row\r\n"); }), folder / "a.txt: File too large");
      });
      EXPECT_TRUE(stream->failing());
      stream->write("third row\r\n");
      EXPECT_FALSE(stream->failing());
    }
    EXPECT_EQ(files.readAll(folder / "a.txt"), "first row\r\nthird row\r\nthird row\r\n");
  }
  const auto full = files.openForAppending("/dev/full");
  EXPECT_EQ(failureOf([&] { full->write("row\r\n"); }), "/dev/full: No space left on device");
  EXPECT_THAT(told, ElementsAre("File too large", "well again, lost 3 of 3", "File too large",
                                "well again, lost 3 of 6", "No space left on device"));
}

TEST_F(Files, HeadingComesFirstAndWholeWhenSpaceReturnsAndAFileThatGotNothingIsRemoved) {
  {
    const auto text = files.openForAppending(folder / "a.txt");
    onFullDisk(9, [&] {
      files.create(folder / "b.xml")->writeOrOwe("<root a='b'>");
      text->writeOrOwe("head\r\nline\r\n");
      EXPECT_NE(failureOf([&] { text->write("lost\r\n"); }), "none");
    });
    text->write("row\r\n");
  }
  EXPECT_EQ(files.readAll(folder / "a.txt"), "head\r\nline\r\nrow\r\n");
  EXPECT_FALSE(files.fileExists(folder / "b.xml"));
  EXPECT_THAT(told, ElementsAre("File too large", "closed, lost 0 of 0", "File too large",
                                "well again, lost 1 of 1"));
}

/// A file that may grow but not be cut: what got out of a row cannot be taken back.
TEST_F(Files, CutRowIsFinishedByTheNextWrite) {
  const int sealed = memfd_create("rows", MFD_ALLOW_SEALING | MFD_CLOEXEC);
  ASSERT_EQ(fcntl(sealed, F_ADD_SEALS, F_SEAL_SHRINK), 0);
  const std::string path = "/proc/self/fd/" + std::to_string(sealed);
  const auto stream = files.openForAppending(path);
  stream->write("first row\r\n");
  for (const rlim_t room : {15U, 18U, 27U})
    onFullDisk(room, [&] {
      EXPECT_NE(failureOf([&] { stream->write("row of " + std::to_string(room) + "\r\n"); }), "none");
    });
  stream->write("last\r\n");
  EXPECT_EQ(files.readAll(path), "first row\r\nrow of 15\r\nrow of 27\r\nlast\r\n");
  EXPECT_THAT(told, ElementsAre("File too large", "well again, lost 1 of 1"));
  close(sealed);
}

TEST_F(Files, AreAppendedToAfterBytesAtTheirBeginningWereReplaced) {
  {
    const auto stream = files.create(folder / "a.mf4");
    stream->write("UnFinMF rows");
    stream->writeAt(0, "MDF     ");
    stream->write(" and more");
    stream->sync();
    onFullDisk(0, [&] { EXPECT_NE(failureOf([&] { stream->writeAt(8, "ROWS"); }), "none"); });
  }
  EXPECT_EQ(files.readAll(folder / "a.mf4"), "MDF     rows and more");
  EXPECT_THAT(told, ElementsAre("File too large", "closed, lost 0 of 0"));
  files.openForAppending("/dev/null")->sync();
}

TEST_F(Files, BelongToOneStreamAndWhatOtherProgramsDoToThemIsTold) {
  {
    const auto removed = files.openForAppending(folder / "a.txt");
    EXPECT_THROW(files.openForAppending(folder / "a.txt"), NameTaken);
    EXPECT_THROW(files.create(folder / "a.txt"), NameTaken);
    std::filesystem::remove(folder / "a.txt");
    for (int i = 0; i < 30; ++i) removed->write("row\r\n");
    EXPECT_TRUE(removed->failing());
    files.replace(folder / "b.txt", "row\r\nrow\r\nrow\r\n");
    const auto cut = files.openForAppending(folder / "b.txt");
    std::filesystem::resize_file(folder / "b.txt", 12);
    cut->write("last\r\n");
    const auto blocks = files.create(folder / "d.mf4");
    blocks->write("0123456789");
    EXPECT_FALSE(blocks->cutShort());
    std::filesystem::resize_file(folder / "d.mf4", 4);
    EXPECT_TRUE(blocks->cutShort());
  }
  EXPECT_EQ(files.readAll(folder / "d.mf4"), "0123") << "only lines get an end";
  EXPECT_EQ(files.readAll(folder / "b.txt"), "row\r\nrow\r\nro\r\nlast\r\n")
      << "no row is glued to the cut one";
  files.replace(folder / "c.txt", "half a li");
  files.openForAppending(folder / "c.txt")->write("second\r\n");
  EXPECT_EQ(files.readAll(folder / "c.txt"), "half a li\r\nsecond\r\n");
  EXPECT_THAT(told, ElementsAre("the file was removed while it was being written",
                                "3 bytes were cut off by another program",
                                "6 bytes were cut off by another program", "closed, lost 30 of 30"));
}

TEST_F(Files, ReplacingKeepsLinkAndModeAndLeavesNothingBeside) {
  files.replace(folder / "real", "old");
  chmod((folder / "real").c_str(), 0640);
  std::filesystem::create_symlink("real", folder / "link");
  files.replace(folder / "link", "new");
  EXPECT_EQ(files.readAll(folder / "real"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
  struct stat status {};
  ASSERT_EQ(stat((folder / "real").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
  onFullDisk(2, [&] { EXPECT_NE(failureOf([&] { files.replace(folder / "real", "newer"); }), "none"); });
  EXPECT_EQ(files.readAll(folder / "real"), "new") << "a failed replacement leaves the old file";
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

TEST_F(Files, ReplacingFollowsNoLinkBesideAndRemovesWhatKilledProgramsLeft) {
  constexpr auto kNoProcess = std::numeric_limits<pid_t>::max();
  const auto beside = [&](auto process) { return folder / "file.new-" + std::to_string(process); };
  files.replace(folder / "victim", "kept");
  std::filesystem::create_symlink("victim", beside(getpid()));
  files.replace(beside(kNoProcess), "left by a killed program");
  files.replace(beside(getppid()), "of a program that runs");
  files.replace(folder / "file", "new");
  EXPECT_EQ(files.readAll(folder / "victim") + files.readAll(folder / "file"), "keptnew");
  EXPECT_FALSE(files.fileExists(beside(getpid())) || files.fileExists(beside(kNoProcess)));
  EXPECT_TRUE(files.fileExists(beside(getppid())));
  EXPECT_EQ(failureOf([&] { files.replace(folder.path(), "new"); }), folder.path() + ": Is a directory");

  // As root, "--output /dev/stdout" put a regular file in the place of the link in /dev.
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  const int reader = open((folder / "pipe").c_str(), O_RDWR);
  files.replace(folder / "pipe", "through");
  std::array<char, 16> bytes{};
  EXPECT_EQ(std::string(bytes.data(), static_cast<std::size_t>(read(reader, bytes.data(), 7))), "through");
  close(reader);
  EXPECT_TRUE(std::filesystem::is_fifo(folder / "pipe"));
}

}  // namespace
}  // namespace tarnlog
