#include "tests/support/FuzzSeeds.h"

TEST(OdxSeeds, PassTheFuzzersChecks) { tarnlog::test::runFuzzSeeds("odx_fuzzer", LLVMFuzzerTestOneInput); }
