#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/support/ReadBack.h"

/// Reads arbitrary bytes as a text or XML record and writes what comes of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  for (const bool json : {false, true}) tarnlog::test::readBack(file, {}, "16-11-26_19h05mn07.txt", json);
  return 0;
}
