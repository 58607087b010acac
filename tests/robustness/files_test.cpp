// What the harnesses in fuzz/ leave out: the shipped files are whole, and pipes are left alone.

#include "support/files.h"

#include "game/gfxfactory.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/text/font.h"
#include "gfx/text/fontloader.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/inputfile.h"
#include "utils/outputfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vask::test {
namespace {

// Every sprite file has its picture, and nothing is reported.
TEST(ShippedFiles, AreWhole) {
  const CDataFolder data;
  const CTestScreen screen(80, 60);
  const CLogCapture log;
  for (const auto& entry : std::filesystem::recursive_directory_iterator("data/")) {
    const std::string file = entry.path();
    if (file.ends_with(".xml") && !file.ends_with("gfx_resources.xml")) {
      EXPECT_FALSE(CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file))->IsEmpty()) << file;
    }
  }
  EXPECT_TRUE(LoadFont("data/gfx/numbers.ogf")->HasGlyphs());
  EXPECT_EQ(log.Text(), "");
}

// Reading a pipe without a writer would wait for ever, as would writing to one without a reader.
TEST(Pipes, AreNeitherReadNorWritten) {
  const CTestScreen screen(80, 60);
  ASSERT_EQ(mkfifo("pipe.png", 0600), 0);
  EXPECT_FALSE(OpenInputFile("pipe.png").is_open());
  EXPECT_TRUE(Gfx::ImagePtr(Gfx::LoadImage("pipe.png", Gfx::kMagenta))->IsEmpty());
  const int reader = open("pipe.png", O_RDONLY | O_NONBLOCK);  // to look
  OpenOutputFile("pipe.png") << "text";
  CPixelSDL(sdl::NewSurface(2, 2, sdl::AlphaFormat()).release()).SaveToFile("pipe.png");
  char written = 0;
  EXPECT_EQ(read(reader, &written, 1), 0);
  close(reader);
}

}  // namespace
}  // namespace vask::test
