#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/ReadBack.h"

/// Reads arbitrary bytes as an MDF 4 file and writes what comes of it. A file that lacks its end gives no
/// more rows than the whole one, unless that is refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tarnlog::test;
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  readBack(file, {}, "", true);
  const ReadBack whole = readBack(file);
  if (!whole.refused.empty()) return 0;
  if (readBack(file.substr(0, size - size / 8)).lines() > whole.lines()) {
    std::fprintf(stderr, "mf4_fuzzer: a cut file has more rows\n");
    std::abort();
  }
  return 0;
}
