#include "apps/tarn-record/SamplesOutput.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>

#include "platform/files/SystemFileSystem.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::record {
namespace {

/// What the reader finds now.
std::string readFrom(const Descriptor& reader) {
  std::string text;
  std::array<char, 65536> bytes{};
  for (ssize_t count = 0; (count = ::read(reader.get(), bytes.data(), bytes.size())) > 0;)
    text.append(bytes.data(), static_cast<std::size_t>(count));
  return text;
}

TEST(SamplesOutput, APipeIsNeverWaitedForAndGetsWholeLines) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const std::string path = folder.path() + "/pipe";
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  SamplesOutput output(path, files);
  const std::string line = std::string(999, '.') + "\n";
  std::size_t taken = 0;
  while (output.take(line)) ++taken;
  EXPECT_GT(taken, 1000U) << "a mebibyte is kept";

  const Descriptor reader(path, O_RDONLY | O_NONBLOCK);
  std::string read;
  for (std::string more = readFrom(reader); !more.empty(); more = readFrom(reader)) {
    read += more;
    output.flush();
  }
  EXPECT_TRUE(output.take("on it goes\n"));
  EXPECT_EQ(output.finish(), "");
  read += readFrom(reader);
  EXPECT_EQ(read.size(), taken * line.size() + 11);
  EXPECT_TRUE(read.ends_with("\non it goes\n"));
}

TEST(SamplesOutput, AFileIsAppendedToAndAFullDiskRefuses) {
  const test::TempFolder folder;
  SystemFileSystem files;
  const std::string path = folder.path() + "/samples";
  files.replace(path, "cut off");
  {
    SamplesOutput output(path, files);
    EXPECT_TRUE(output.take("a\nb\n"));
    EXPECT_THROW(SamplesOutput(path, files), TarnError) << "somebody writes it already";
    EXPECT_EQ(output.finish(), "");
  }
  EXPECT_EQ(files.readAll(path), "cut off\r\na\nb\n");
  SamplesOutput full("/dev/full", files);
  const std::string many(600'000, '\n');
  EXPECT_TRUE(full.take(many));
  EXPECT_FALSE(full.take(many));
  EXPECT_THAT(full.finish(), testing::HasSubstr("were not taken"));
  EXPECT_THROW(SamplesOutput(folder.path(), files), TarnError);
}

}  // namespace
}  // namespace tarnlog::record
