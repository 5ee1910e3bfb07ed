#include "tests/support/FuzzSeeds.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

TEST(RepairSeeds, BecomeWhole) { tarnlog::test::runFuzzSeeds("repair_fuzzer", LLVMFuzzerTestOneInput); }
