#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include "SourceDir.h"

/// Of the fuzzer that a test program is built with.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t*, std::size_t);

namespace tarnlog::test {

/// Hands every seed of fuzz/corpus/NAME to the entry function of a fuzzer, which aborts when it finds a
/// fault.
inline void runFuzzSeeds(const std::string& name, int (*entry)(const std::uint8_t*, std::size_t)) {
  int seeds = 0;
  for (const auto& file : std::filesystem::directory_iterator(TARNLOG_SOURCE_DIR "/fuzz/corpus/" + name)) {
    SCOPED_TRACE(file.path().filename().string());
    std::ifstream stream(file.path(), std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    EXPECT_EQ(entry(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
    ++seeds;
  }
  EXPECT_GT(seeds, 0);
}

}  // namespace tarnlog::test
