// Every data file that the game ships, broken in every plain way, goes through the code that reads
// it: nothing may crash, hang or read outside its memory.

#include "console/consoleparams.h"
#include "game/gfxfactory.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/text/font.h"
#include "gfx/text/textsprite.h"
#include "input/recordmouse.h"
#include "support/logcapture.h"
#include "support/paths.h"
#include "support/testpicture.h"
#include "tasks/taskaudiosdlmixer.h"
#include "tasks/taskwindowsdl.h"
#include "utils/log/logfile.h"
#include "utils/xml/xml.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>

namespace fs = std::filesystem;

namespace vask::test {
namespace {

using Bytes = std::string;

Bytes ReadAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteAll(const fs::path& path, const Bytes& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// The file with a byte in so many changed, the same ones in every run.
Bytes Scratched(Bytes bytes, unsigned seed, unsigned oneIn, std::size_t start = 0) {
  for (std::size_t at = start; at < bytes.size(); ++at) {
    seed = seed * 1664525U + 1013904223U;
    if ((seed >> 24U) % oneIn == 0) {
      bytes[at] = static_cast<char>(seed >> 16U);
    }
  }
  return bytes;
}

// clang-format off
const std::map<std::string, std::function<Bytes(const Bytes&)>> kBreakages = {
    {"empty", [](const Bytes&) { return Bytes(); }},
    {"half", [](const Bytes& whole) { return whole.substr(0, whole.size() / 2); }},
    {"all but the end", [](const Bytes& whole) { return whole.substr(0, whole.size() - 3); }},
    {"noise", [](const Bytes& whole) { return Scratched(whole, 1, 1); }},
    {"noise behind a good start", [](const Bytes& whole) { return Scratched(whole, 2, 1, 40); }},
    {"scratched", [](const Bytes& whole) { return Scratched(whole, 3, 100); }},
    {"scratched elsewhere", [](const Bytes& whole) { return Scratched(whole, 4, 100); }}};
// clang-format on

class BrokenFiles : public ::testing::Test {
 protected:
  BrokenFiles() {
    fs::copy(vask::test::SourcePath("runtime/data"), "data", fs::copy_options::recursive);
    myAudio.Start();
  }
  ~BrokenFiles() override {
    myAudio.Exit();
    fs::remove_all("data");
  }

  using Reader = std::function<void(const std::string&)>;

  static void ForEach(const std::string& extension, const Reader& read) {
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator("data")) {
      if (entry.path().extension() == extension) {
        ++count;
        read(entry.path());
      }
    }
    EXPECT_GT(count, 0U);
  }

  // Reads every file with that extension in each state, the missing one too.
  static void ReadEach(const std::string& extension, const Reader& read) {
    ForEach(extension, [&](const std::string& file) {
      const Bytes whole = ReadAll(file);
      for (const auto& [how, breakIt] : kBreakages) {
        SCOPED_TRACE(file + ", " + how);
        WriteAll(file, breakIt(whole));
        read(file);
      }
      fs::remove(file);
      read(file);
      ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);  // nobody writes into it
      read(file);
      fs::remove(file);
      WriteAll(file, whole);
    });
  }

  // A sprite comes, moves with time and goes, on the real screen layer.
  void ShowSprite(const std::string& file) {
    const CSpritePtr sprite(CSpriteFactory::GetSingletonPtr()->Load(file));
    for (int frame = 0; frame < 4; ++frame) {
      myTime += 100;
      CAnimationUpdator::GetSingletonPtr()->Update(myTime);
      sprite->SetRotation(static_cast<float>(frame) * 30.0F);
      sprite->SetAlpha(255 - frame * 60);
      CScreenLayer::GetSingletonPtr()->DrawFrame();
    }
  }

  CTestScreen myScreen{800, 600};
  CTaskAudioSDLMixer myAudio;
  unsigned myTime = 0;
};

TEST_F(BrokenFiles, SpriteFiles) {
  ReadEach(".xml", [this](const std::string& file) {
    ShowSprite(file);
    brumble::CGfxFactory().Load(file, "GfxFactory");
  });
}

TEST_F(BrokenFiles, PicturesAndIcons) {
  CTaskWindowSDL window;
  for (const char* extension : {".png", ".bmp"}) {
    ReadEach(extension, [&](const std::string& file) {
      ShowSprite(file);
      window.WindowSetIcon(file);
    });
  }
}

TEST_F(BrokenFiles, Fonts) {
  ReadEach(".ogf", [](const std::string& file) {
    CTextSprite text(LoadFont(file), 200, 50);
    text.SetText("+0123456789 -\xff");
  });
}

TEST_F(BrokenFiles, Sounds) {
  for (const char* command : {"PlayEffect", "PlayMusic"}) {
    const Reader play = [&](const std::string& file) {
      myAudio.ExecuteCommand(std::string(command) + "( \"" + file + "\" )");
      myAudio.Update();
    };
    ReadEach(".wav", play);
    ReadEach(".ogg", play);
    myAudio.ExecuteCommand("StopMusic");
  }
}

TEST_F(BrokenFiles, SpritesWithoutTheirPictures) {
  ForEach(".png", [](const std::string& file) { fs::remove(file); });
  ForEach(".xml", [this](const std::string& file) { ShowSprite(file); });
}

// What the game ships is itself sound: every sprite file has its picture, and nothing is reported.
TEST_F(BrokenFiles, ShippedFilesAreWhole) {
  const CLogCapture log;
  fs::remove("data/gfx/gfx_resources.xml");
  ForEach(".xml", [](const std::string& file) {
    EXPECT_FALSE(CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file))->IsEmpty()) << file;
  });
  EXPECT_TRUE(LoadFont("data/gfx/numbers.ogf")->HasGlyphs());
  EXPECT_EQ(log.Text(), "");
}

// Whoever wrote into a pipe would wait for a reader for ever. This one has a reader, to tell.
TEST(Pipes, AreNotWrittenTo) {
  const std::string pipe = "pipe.tga";
  const std::map<std::string, std::function<void()>> writers = {
      {"log", [&] { CLogFile(pipe, "", true).WriteLine("line\n", kLogNormal); }},
      {"recorder", [&] { CRecordMouse(pipe).OnMouseMove(1, 2); }},
      {"picture",
       [&] { CPixelSDL(sdl::NewSurface(2, 2, sdl::AlphaFormat()).release()).SaveToFile(pipe); }},
      {"XML", [&] { WriteXmlFile(CXmlElement(), pipe); }}};
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  for (const auto& [name, write] : writers) {
    write();
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0) << name;
  }
  close(reader);
}

}  // namespace
}  // namespace vask::test
