// The documents of those who change the game: examples that run, and nothing left out.

#include "game/gfxfactory.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/text/font.h"
#include "gfx/text/fontloader.h"
#include "kernel/application.h"
#include "kernel/applicationfactory.h"
#include "kernel/tasklibraries.h"
#include "support/docexample.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/trim.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

namespace brumble {
namespace {

std::string Written(const std::string& file) {
  std::ostringstream text;
  vask::WriteXml(*vask::ReadXmlFile(file), text);
  return text.str();
}

// What the engine makes of an example, it writes again: no element is misspelt, or read as nothing.
TEST(Documents, FileExamplesAreWhatTheEngineWritesItself) {
  const vask::test::CTestScreen screen(80, 60);
  const vask::test::CLogCapture log;
  const vask::test::CDataFolder data;
  for (const char* kind : {"Sprites", "Animated sprites", "Text sprites", "The sprite table"}) {
    vask::test::WriteFile("example.xml", vask::test::DocExample(kind));
    if (std::string(kind) == "The sprite table") {
      CGfxFactory table;
      table.Load("example.xml", "");
      vask::SaveXml(table, "written.xml", "GfxFactory");
    } else {
      const vask::CSpritePtr sprite(vask::CSpriteFactory::GetSingletonPtr()->Load("example.xml"));
      vask::SaveXml(*sprite, "written.xml", "Sprite");
    }
    EXPECT_EQ(Written("written.xml"), Written("example.xml")) << kind;
  }
  vask::test::WriteFile("example.ogf", vask::test::DocExample("Fonts"));
  EXPECT_TRUE(vask::LoadFont("example.ogf")->HasGlyphs());
  EXPECT_EQ(log.Text(), "");
}

TEST(Documents, LinesOfTheLanguageReturnWhatThePageSays) {
  const vask::CApplication application;
  const std::string example = vask::test::DocExample("The language", "console.md");
  EXPECT_NE(example, "");
  std::istringstream lines(example);
  for (std::string line; std::getline(lines, line);) {
    std::string result =
        vask::CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
    std::ranges::replace(result, '\n', ' ');
    EXPECT_EQ(vask::Trim(result), vask::Trim(line.substr(line.find("//") + 2))) << line;
  }
}

TEST(Documents, EveryCommandAndVariableIsInTheConsolePage) {
  const vask::CApplication application;
  const vask::test::CTestScreen screen(8, 6);
  vask::CTaskLibraries::GetSingletonPtr()->Load("sdl_mixer");
  const vask::CConsole& console = *vask::CApplicationFactory::GetSingletonPtr()->GetConsole();
  std::vector<std::string> names = console.GetCommandNames();
  std::ranges::copy(console.GetVariableNames(), std::back_inserter(names));
  const std::string page = vask::test::FileText(vask::test::SourcePath("docs/console.md"));
  for (const std::string& name : names) {
    EXPECT_TRUE(std::regex_search(page, std::regex("`" + name + "[`(]"))) << name;
  }
}

}  // namespace
}  // namespace brumble
