#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

TEST(VehicleSeeds, PassTheFuzzersChecks) {
  tarnlog::test::runFuzzSeeds("vehicle_fuzzer", LLVMFuzzerTestOneInput);
}
