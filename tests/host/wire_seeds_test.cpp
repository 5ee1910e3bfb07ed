#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

TEST(WireSeeds, PassTheFuzzersChecks) { tarnlog::test::runFuzzSeeds("wire_fuzzer", LLVMFuzzerTestOneInput); }
