#include <gtest/gtest.h>

#include "config/RegisterParameters.h"
#include "config/oTarnParameters.h"
#include "tests/support/BrokenStore.h"
#include "tests/support/FailureOf.h"

using namespace tarnlog;

TEST(RegisterParameters, DefaultStandsWhereNothingUsefulIsStored) {
  MemorySettingsStore store;
  test::BrokenStore failing;
  EXPECT_EQ(GetRegisterParameter(store, 1, ".txt"), ".txt");
  SetRegisterParameter(store, 0, "");
  EXPECT_EQ(GetRegisterParameter(store, 0, "home"), "home");
  EXPECT_EQ(GetRegisterParameter(store, 7, "none"), "none");
  EXPECT_EQ(GetRegisterParameter(failing, 2, "1"), "1");
  EXPECT_EQ(test::errorOf([&] { SetRegisterParameter(store, 7, "x"); }),
            "1 SetRegisterParameter: Unknown parameter");
  EXPECT_THROW(SetRegisterParameter(failing, 2, "5"), TarnError);

  const oTarnParameters parameters{failing};
  EXPECT_EQ(parameters.fileFormat, ".txt");
  EXPECT_EQ(parameters.recordingPeriod, 1);
  EXPECT_EQ(std::pair(parameters.startTrigger->modeTrigger, parameters.stopTrigger->modeTrigger),
            std::pair(0, 1));
  for (const char* period : {"soon", "-3", "99999999999"}) {
    SetRegisterParameter(store, 2, period);
    EXPECT_EQ(oTarnParameters(store).recordingPeriod, 1) << period;
  }
}
