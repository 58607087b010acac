// Every data file that the game ships, broken in every plain way, goes through the code that reads
// it: nothing may crash, hang or read outside its memory.

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
#include "utils/log/logfile.h"
#include "utils/xml/xml.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vask::test {
namespace {

namespace fs = std::filesystem;
using Bytes = std::string;
using Extensions = std::set<fs::path>;
using Reader = std::function<void(const std::string&)>;

Bytes ReadAll(const fs::path& path) {
  return (std::ostringstream() << std::ifstream(path, std::ios::binary).rdbuf()).str();
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

std::vector<std::pair<std::string, Bytes>> Broken(const Bytes& whole) {
  return {{"empty", ""},
          {"half", whole.substr(0, whole.size() / 2)},
          {"all but the end", whole.substr(0, whole.size() - 3)},
          {"noise", Scratched(whole, 1, 1)},
          {"noise after a good start", Scratched(whole, 2, 1, 40)},
          {"scratched", Scratched(whole, 3, 100)}};
}

class BrokenFiles : public ::testing::Test {
 protected:
  BrokenFiles() { fs::copy(SourcePath("runtime/data"), "data", fs::copy_options::recursive); }
  ~BrokenFiles() override { fs::remove_all("data"); }

  // The files with one of these extensions.
  static std::vector<std::string> Files(const Extensions& extensions) {
    std::vector<std::string> files;
    for (const fs::path& file : fs::recursive_directory_iterator("data")) {
      if (extensions.contains(file.extension())) {
        files.push_back(file);
      }
    }
    EXPECT_FALSE(files.empty());
    return files;
  }

  // Reads each of these files in each state: broken, missing, and a pipe without a writer.
  static void ReadEach(const Extensions& extensions, const Reader& read) {
    for (const std::string& file : Files(extensions)) {
      const Bytes whole = ReadAll(file);
      for (const auto& [how, bytes] : Broken(whole)) {
        SCOPED_TRACE(file + ", " + how);
        std::ofstream(file, std::ios::binary) << bytes;
        read(file);
      }
      fs::remove(file);
      read(file);
      ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
      read(file);
      fs::remove(file);
      std::ofstream(file, std::ios::binary) << whole;
    }
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
  unsigned myTime = 0;
};

TEST_F(BrokenFiles, SpriteFiles) {
  ReadEach({".xml"}, [this](const std::string& file) {
    ShowSprite(file);
    brumble::CGfxFactory().Load(file, "GfxFactory");
  });
}

TEST_F(BrokenFiles, Pictures) {
  ReadEach({".png", ".bmp"}, [this](const std::string& file) { ShowSprite(file); });
}

TEST_F(BrokenFiles, Fonts) {
  ReadEach({".ogf"}, [](const auto& file) { CTextSprite(LoadFont(file), 9, 9).SetText("+0\xff"); });
}

TEST_F(BrokenFiles, Sounds) {
  CTaskAudioSDLMixer audio;
  audio.Start();
  ReadEach({".wav", ".ogg"}, [&](const std::string& file) {
    for (const std::string command : {"PlayEffect", "PlayMusic"}) {
      audio.ExecuteCommand(command + "( \"" + file + "\" )");
      audio.Update();
    }
  });
  audio.Exit();
}

// What the game ships is itself sound: every sprite file has its picture, and nothing is reported.
TEST_F(BrokenFiles, ShippedFilesAreWhole) {
  const CLogCapture log;
  fs::remove("data/gfx/gfx_resources.xml");
  for (const std::string& file : Files({".xml"})) {
    EXPECT_FALSE(CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file))->IsEmpty()) << file;
  }
  EXPECT_TRUE(LoadFont("data/gfx/numbers.ogf")->HasGlyphs());
  EXPECT_EQ(log.Text(), "");
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
