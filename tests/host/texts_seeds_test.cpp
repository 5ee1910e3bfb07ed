#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

TEST(TextsSeeds, PassTheFuzzersChecks) {
  tarnlog::test::runFuzzSeeds("texts_fuzzer", LLVMFuzzerTestOneInput);
}
