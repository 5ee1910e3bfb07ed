#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "SourceDir.h"

// The fuzzers, each under its own name.
extern "C" {
using Fuzzer = int(const std::uint8_t*, std::size_t);
Fuzzer configuration_fuzzer, elm_fuzzer, mf4_fuzzer, odx_fuzzer, record_fuzzer, repair_fuzzer, table_fuzzer,
    texts_fuzzer, vehicle_fuzzer, wire_fuzzer;
}

namespace {

/// A fuzzer aborts when it finds a fault.
TEST(Seeds, PassTheFuzzersChecks) {
  for (const auto& [name, fuzzer] : {std::pair("configuration_fuzzer", &configuration_fuzzer),
                                     {"elm_fuzzer", &elm_fuzzer},
                                     {"mf4_fuzzer", &mf4_fuzzer},
                                     {"odx_fuzzer", &odx_fuzzer},
                                     {"record_fuzzer", &record_fuzzer},
                                     {"repair_fuzzer", &repair_fuzzer},
                                     {"table_fuzzer", &table_fuzzer},
                                     {"texts_fuzzer", &texts_fuzzer},
                                     {"vehicle_fuzzer", &vehicle_fuzzer},
                                     {"wire_fuzzer", &wire_fuzzer}}) {
    int seeds = 0;
    const std::string folder = TARNLOG_SOURCE_DIR "/fuzz/corpus/";
    for (const auto& file : std::filesystem::directory_iterator(folder + name)) {
      SCOPED_TRACE(file.path().string());
      std::ifstream stream(file.path(), std::ios::binary);
      const std::string bytes(std::istreambuf_iterator<char>(stream), {});
      EXPECT_EQ(fuzzer(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
      ++seeds;
    }
    EXPECT_GT(seeds, 0) << name;
  }
}

}  // namespace
