#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "records/RecordWalk.h"

/// Repairs arbitrary bytes as a record. What comes of it is whole, however the bytes were cut into blocks,
/// and what was whole stays as it is.
namespace {

using namespace tarnlog;

struct Walked {
  RecordFaults faults;
  std::string text;
};

Walked walk(const std::string& bytes, std::size_t block) {
  Walked walked;
  std::size_t at = 0;
  const auto read = [&](char* out, std::size_t size) {
    const std::size_t count = bytes.copy(out, std::min(block, size), at);
    at += count;
    return count;
  };
  walked.faults = walkRecord(read, [&](std::string_view piece) { walked.text.append(piece); });
  return walked;
}

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "repair_fuzzer: %s\n", what);
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  const Walked repaired = walk(file, file.size() + 1);
  require(walk(file, 3).text == repaired.text, "the size of the blocks counts");
  if (!repaired.faults.record) return 0;
  if (repaired.faults.whole()) require(repaired.text == file, "a whole file was changed");
  const Walked again = walk(repaired.text, file.size() + 1);
  require(again.faults.record && again.faults.whole(), "what was repaired is not whole");
  return 0;
}
