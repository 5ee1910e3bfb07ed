#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

TEST(ConfigurationSeeds, AreRefusedOrUsable) {
  tarnlog::test::runFuzzSeeds("configuration_fuzzer", LLVMFuzzerTestOneInput);
}
