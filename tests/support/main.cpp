// The entry point of the test programs: without a display or a sound device, and in a folder of its
// own for each run, with the game's data, so that tests run side by side and leave nothing behind.

#include "support/files.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

std::string vask::test::SourcePath(const std::string& name) { return SOURCE_FOLDER "/" + name; }

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  setenv("SDL_VIDEODRIVER", "dummy", 0);
  setenv("SDL_AUDIODRIVER", "dummy", 0);

  std::string folder = (std::filesystem::temp_directory_path() / "vask-test-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    return EXIT_FAILURE;
  }
  std::filesystem::current_path(folder);
  std::filesystem::create_directory_symlink(vask::test::SourcePath("runtime/data"), "data");
  const int result = RUN_ALL_TESTS();
  std::filesystem::current_path("/");
  std::filesystem::remove_all(folder);
  return result;
}
