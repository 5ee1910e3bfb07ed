#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

TEST(ElmSeeds, PassTheFuzzersChecks) { tarnlog::test::runFuzzSeeds("elm_fuzzer", LLVMFuzzerTestOneInput); }
