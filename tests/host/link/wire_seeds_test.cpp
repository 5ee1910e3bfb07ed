#include "tests/support/FuzzSeeds.h"

TEST(WireSeeds, PassTheFuzzersChecks) { tarnlog::test::runFuzzSeeds("wire_fuzzer", LLVMFuzzerTestOneInput); }
