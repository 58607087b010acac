// What the harnesses in fuzz/ leave out: the shipped files are whole, and pipes are left alone.

#include "game/gfxfactory.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/text/font.h"
#include "input/recordmouse.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "tasks/taskaudiosdlmixer.h"
#include "utils/log/logfile.h"
#include "utils/xml/xml.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

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

// Reading a pipe without a writer would wait for ever.
TEST(Pipes, AreNotRead) {
  const CTestScreen screen(80, 60);
  CTaskAudioSDLMixer audio;
  audio.Start();
  for (const std::string pipe : {"pipe.xml", "pipe.png", "pipe.bmp", "pipe.ogf", "pipe.wav"}) {
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_TRUE(CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(pipe))->IsEmpty());
    EXPECT_FALSE(LoadFont(pipe)->HasGlyphs() && pipe.ends_with("ogf"));
    brumble::CGfxFactory().Load(pipe, "");
    audio.ExecuteCommand("PlayEffect(" + pipe + ")");
    audio.ExecuteCommand("PlayMusic(" + pipe + ")");
    audio.Update();
  }
  audio.Exit();
}

// Opening a pipe for writing would wait for a reader for ever. This one has a reader, to look.
TEST(Pipes, AreNotWrittenTo) {
  const std::string pipe = "pipe.tga";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  CLogFile(pipe, "", true).WriteLine("line\n", kLogNormal);
  CRecordMouse(pipe).OnMouseMove(1, 2);
  CPixelSDL(sdl::NewSurface(2, 2, sdl::AlphaFormat()).release()).SaveToFile(pipe);
  WriteXmlFile(CXmlElement(), pipe);
  char written = 0;
  EXPECT_EQ(read(reader, &written, 1), 0);
  close(reader);
}

}  // namespace
}  // namespace vask::test
