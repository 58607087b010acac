// The files beside the code. The documents: their examples run, and nothing is left out. The data:
// it is whole.

#include "game/gfxfactory.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/text/font.h"
#include "gfx/text/fontloader.h"
#include "kernel/application.h"
#include "kernel/applicationfactory.h"
#include "kernel/tasklibraries.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "utils/trim.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

namespace vask::test {
namespace {

std::string Written(const std::string& file) {
  std::ostringstream text;
  WriteXml(*ReadXmlFile(file), text);
  return text.str();
}

// What the engine makes of an example, it writes again: no element is misspelt, or read as nothing.
TEST(Documents, FileExamplesAreWhatTheEngineWritesItself) {
  const CTestScreen screen(80, 60);
  const CLogCapture log;
  for (const char* kind : {"Sprites", "Animated sprites", "Text sprites", "The sprite table"}) {
    WriteFile("example.xml", DocExample(kind));
    if (std::string(kind) == "The sprite table") {
      brumble::CGfxFactory table;
      table.Load("example.xml", "");
      SaveXml(table, "written.xml", "GfxFactory");
    } else {
      const CSpritePtr sprite(CSpriteFactory::GetSingletonPtr()->Load("example.xml"));
      SaveXml(*sprite, "written.xml", "Sprite");
    }
    EXPECT_EQ(Written("written.xml"), Written("example.xml")) << kind;
  }
  WriteFile("example.ogf", DocExample("Fonts"));
  EXPECT_TRUE(LoadFont("example.ogf")->HasGlyphs());
  EXPECT_EQ(log.Text(), "");
}

TEST(Documents, LinesOfTheLanguageReturnWhatThePageSays) {
  const CApplication application;
  std::istringstream lines(DocExample("The language", "console.md"));
  for (std::string line; std::getline(lines, line);) {
    std::string result = Execute(line);
    std::ranges::replace(result, '\n', ' ');
    EXPECT_EQ(Trim(result), Trim(line.substr(line.find("//") + 2))) << line;
  }
}

TEST(Documents, EveryCommandAndVariableIsInTheConsolePage) {
  const CApplication application;
  const CTestScreen screen(8, 6);
  CTaskLibraries::GetSingletonPtr()->Load("sdl_mixer");
  const CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  std::vector<std::string> names = console.GetCommandNames();
  std::ranges::copy(console.GetVariableNames(), std::back_inserter(names));
  const std::string page = FileText(SourcePath("docs/console.md"));
  for (const std::string& name : names) {
    EXPECT_TRUE(std::regex_search(page, std::regex("`" + name + "[`(]"))) << name;
  }
}

// Every sprite file has its picture, and nothing is reported.
TEST(ShippedFiles, AreWhole) {
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

}  // namespace
}  // namespace vask::test
