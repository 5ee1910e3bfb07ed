#include "tests/support/FuzzSeeds.h"

TEST(VehicleSeeds, PassTheFuzzersChecks) {
  tarnlog::test::runFuzzSeeds("vehicle_fuzzer", LLVMFuzzerTestOneInput);
}
