#include "tests/support/FuzzSeeds.h"

TEST(TextsSeeds, PassTheFuzzersChecks) {
  tarnlog::test::runFuzzSeeds("texts_fuzzer", LLVMFuzzerTestOneInput);
}
