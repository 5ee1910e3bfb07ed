#include "apps/common/StandardStreams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tarnlog::record {

// A recorder started with closed streams (cron jobs, daemons) wrote its log between the rows of the record
// file.
TEST(StandardStreams, NoFileTakesThePlaceOfAClosedStream) {
  EXPECT_EXIT(
      {
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        openClosedStandardStreams();
        const int next = ::open("/dev/null", O_WRONLY);
        ::_exit(next > STDERR_FILENO ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace tarnlog::record
