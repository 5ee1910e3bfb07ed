#include "tests/support/FuzzSeeds.h"

TEST(ElmSeeds, PassTheFuzzersChecks) { tarnlog::test::runFuzzSeeds("elm_fuzzer", LLVMFuzzerTestOneInput); }
