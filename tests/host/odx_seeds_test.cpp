#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

TEST(OdxSeeds, PassTheFuzzersChecks) { tarnlog::test::runFuzzSeeds("odx_fuzzer", LLVMFuzzerTestOneInput); }
