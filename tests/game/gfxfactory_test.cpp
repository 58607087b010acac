#include "game/gfxfactory.h"

#include <fstream>

#include "game/game_support.h"
#include "utils/xml/xml.h"

namespace brumble {
namespace {

using test::GameTest;

TEST_F(GameTest, TheSpriteTableSkipsWhatIsNoEntry) {
  std::ofstream("table.xml") << "<GfxFactory>"
                                "<Sprite handle=\"8\" sprite_file=\"kitten.xml\"></Sprite>"
                                "<Sprite handle=\"8\" sprite_file=\"other.xml\"></Sprite>"
                                "<Sprite handle=\"9\"></Sprite>"
                                "<Sprite sprite_file=\"nine.xml\"></Sprite>"
                                "<Picture handle=\"3\" sprite_file=\"three.xml\"></Picture>"
                                "</GfxFactory>";
  CGfxFactory table;
  table.Load("table.xml", "GfxFactory");
  table.Load("missing.xml", "GfxFactory");
  EXPECT_EQ(table.GetFiles(), (std::map<int, std::string>{{8, "kitten.xml"}}));
  ASSERT_TRUE(vask::SaveXml(table, "copy.xml", "GfxFactory"));
  CGfxFactory copy;
  copy.Load("copy.xml", "GfxFactory");
  EXPECT_EQ(copy.GetFiles(), table.GetFiles());
}

TEST_F(GameTest, AnEmptySpriteIsNone) {
  std::ofstream("screen.xml") << "<Sprite type=\"sprite_screenlayer\"></Sprite>";
  std::ofstream("empty.xml") << "<Sprite type=\"sprite_base\"></Sprite>";
  for (const char* const file : {"", "missing.xml", "empty.xml", "screen.xml"}) {
    EXPECT_FALSE(CGfxFactory().LoadSprite(file)) << file;
  }
  EXPECT_NE(vask::CScreenLayer::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace brumble
