#include "platform/newfile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

namespace vask::platform {
namespace {

TEST(NewFile, StaysOnAFullDiskUnlessNothingOfItCouldBeWritten) {
  std::signal(SIGXFSZ, SIG_IGN);
  for (const rlim_t room : {0U, 3U}) {
    const rlimit fullDisk = {.rlim_cur = room, .rlim_max = RLIM_INFINITY};
    const rlimit roomyDisk = {.rlim_cur = RLIM_INFINITY, .rlim_max = RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &fullDisk);
    {
      CNewFile file("new.txt");
      file.Write("12345");
      EXPECT_FALSE(file.IsGood());
    }
    setrlimit(RLIMIT_FSIZE, &roomyDisk);
    EXPECT_EQ(std::filesystem::remove("new.txt"), room > 0);
  }
}

}  // namespace
}  // namespace vask::platform
