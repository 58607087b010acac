// Every data file that the game ships, broken in every plain way, goes through the code that reads
// it: nothing may crash, hang or read outside its memory.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "console/consoleparams.h"
#include "game/gfxfactory.h"
#include "gfx/animationupdator.h"
#include "gfx/font.h"
#include "gfx/spritefactory.h"
#include "gfx/textsprite.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "tasks/taskaudiosdlmixer.h"
#include "tasks/taskwindowsdl.h"

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

// The same numbers in every run, so that a failure can be repeated.
Bytes Noise(std::size_t size, unsigned seed) {
  Bytes bytes(size, '\0');
  for (char& byte : bytes) {
    seed = seed * 1664525U + 1013904223U;
    byte = static_cast<char>(seed >> 24U);
  }
  return bytes;
}

// The file with a byte in every hundred changed.
Bytes Scratched(Bytes bytes, unsigned seed) {
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    seed = seed * 1664525U + 1013904223U;
    if ((seed >> 24U) % 100 == 0) {
      bytes[at] = static_cast<char>(seed >> 16U);
    }
  }
  return bytes;
}

const std::map<std::string, std::function<Bytes(const Bytes&)>> kBreakages = {
    {"empty", [](const Bytes&) { return Bytes(); }},
    {"half", [](const Bytes& whole) { return whole.substr(0, whole.size() / 2); }},
    {"all but the end", [](const Bytes& whole) { return whole.substr(0, whole.size() - 3); }},
    {"noise", [](const Bytes& whole) { return Noise(whole.size(), 1); }},
    {"noise behind a good start",
     [](const Bytes& whole) { return whole.substr(0, 40) + Noise(whole.size(), 2); }},
    {"scratched", [](const Bytes& whole) { return Scratched(whole, 3); }},
    {"scratched elsewhere", [](const Bytes& whole) { return Scratched(whole, 4); }},
};

class BrokenFiles : public ::testing::Test {
 protected:
  BrokenFiles() {
    fs::copy(BRUMBLE_RUNTIME_FOLDER "/data", "data", fs::copy_options::recursive);
    myAudio.Start();
  }
  ~BrokenFiles() override {
    myAudio.Exit();
    fs::remove_all("data");
  }

  // Reads every file with one of the extensions in each state, the missing one too.
  void ReadEach(const std::vector<std::string>& extensions,
                const std::function<void(const std::string&)>& read) {
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator("data")) {
      const std::string extension = entry.path().extension().string();
      if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
        ++count;
        ReadBroken(entry.path(), read);
      }
    }
    EXPECT_GT(count, 0U);
  }

  void ReadBroken(const fs::path& path, const std::function<void(const std::string&)>& read) {
    const Bytes whole = ReadAll(path);
    for (const auto& [how, breakIt] : kBreakages) {
      SCOPED_TRACE(path.string() + ", " + how);
      WriteAll(path, breakIt(whole));
      read(path.string());
    }
    fs::remove(path);
    read(path.string());
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);  // nobody writes into it
    read(path.string());
    fs::remove(path);
    WriteAll(path, whole);
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
  ReadEach({".xml"}, [this](const std::string& file) {
    ShowSprite(file);
    brumble::CGfxFactory().Load(file, "GfxFactory");
  });
}

TEST_F(BrokenFiles, SpritesWithoutTheirPictures) {
  for (const auto& entry : fs::directory_iterator("data/gfx")) {
    if (entry.path().extension() == ".png") {
      fs::remove(entry.path());
    }
  }
  for (const auto& entry : fs::directory_iterator("data/gfx")) {
    ShowSprite(entry.path().string());
    EXPECT_TRUE(
        CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(entry.path().string()))->IsEmpty() ||
        entry.path().extension() == ".bmp");
  }
}

TEST_F(BrokenFiles, Pictures) {
  ReadEach({".png", ".bmp"}, [this](const std::string& file) { ShowSprite(file); });
}

TEST_F(BrokenFiles, Fonts) {
  ReadEach({".ogf"}, [](const std::string& file) {
    CTextSprite text(LoadFont(file), 200, 50);
    text.SetText("+0123456789 -\xff");
  });
}

TEST_F(BrokenFiles, Sounds) {
  ReadEach({".wav", ".ogg"}, [this](const std::string& file) {
    for (const char* command : {"PlayEffect", "PreloadEffect", "PlayMusic"}) {
      myAudio.ExecuteCommand(std::string(command) + "( \"" + file + "\" )");
      myAudio.Update();
    }
    myAudio.ExecuteCommand("StopMusic");
  });
}

TEST_F(BrokenFiles, Icon) {
  CTaskWindowSDL window;
  ReadEach({".bmp"}, [&](const std::string& file) { window.WindowSetIcon(file); });
}

// What the game ships is itself sound: every sprite file has its picture, and nothing is reported.
TEST_F(BrokenFiles, ShippedFilesAreWhole) {
  const CLogCapture log;
  for (const auto& entry : fs::directory_iterator("data/gfx")) {
    const std::string file = entry.path().string();
    if (entry.path().extension() != ".xml" || entry.path().stem() == "gfx_resources") {
      continue;
    }
    const CSpritePtr sprite(CSpriteFactory::GetSingletonPtr()->Load(file));
    EXPECT_FALSE(sprite->IsEmpty()) << file;
    EXPECT_EQ(sprite->GetName(), file);
  }
  EXPECT_TRUE(LoadFont("data/gfx/numbers.ogf")->HasGlyphs());
  EXPECT_EQ(log.Text(), "");
}

}  // namespace
}  // namespace vask::test
