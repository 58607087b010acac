#include "input/mouse.h"

#include "events/eventbridge.h"
#include "input/cursorimages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>

namespace vask {
namespace {

// Adds its name and a sign of what it hears to the record, then runs a hook, if it has one.
struct CTarget : CMouseableImpl {
  CTarget(char sign, std::string& sink, CRect<int> place, bool blocks)
      : name(sign), record(sink), rect(place), blocking(blocks) {}
  void OnMouseMove(int, int) override { Note("m"); }
  void OnMouseMoveRelative(int dx, int dy) override { Note('r', dx, dy); }
  void OnMouseOut(int x, int y) override { Note('o', x, y); }
  void OnMouseButtonDown(int button) override { Note('d' + std::to_string(button)); }
  void OnMouseButtonUp(int button) override { Note('u' + std::to_string(button)); }
  bool IsBlocking() override { return blocking; }
  CRect<int> GetRect() override { return rect; }
  void Note(char event, int x, int y) { Note(event + std::to_string(x) + "," + std::to_string(y)); }
  void Note(const std::string& event) {
    record += name + event + " ";
    if (const auto hook = onEvent) {  // a copy: the hook may delete this object
      hook();
    }
  }
  char name;
  std::string& record;
  CRect<int> rect;
  bool blocking;
  std::function<void()> onEvent;
};

constexpr CRect<int> kLeft{0, 0, 100, 100};
constexpr CRect<int> kRight{200, 0, 100, 100};

struct MouseTest : testing::Test {
  ~MouseTest() override { CMouse::DeleteSingleton(); }

  // In front to back order.
  CTarget* Add(char name, CRect<int> rect, bool blocking) {
    myTargets.push_back(std::make_unique<CTarget>(name, myRecord, rect, blocking));
    myMouse->AddMouseable(myTargets.back().get());
    return myTargets.back().get();
  }
  // Lets events happen ("m10,20": the pointer moves there, "d1", "u1": a button goes down, up) and
  // returns what was heard.
  std::string Hear(const std::string& text) {
    myRecord.clear();
    std::istringstream events(text);
    char kind = 0, comma = 0;
    for (int number = 0, y = 0; events >> kind >> number;) {
      if (kind == 'm') {
        events >> comma >> y;
        myBridge->MouseMove(number, y, 0, 0);
      } else {
        const auto event =
            kind == 'd' ? &CEventBridge::MouseButtonDown : &CEventBridge::MouseButtonUp;
        (myBridge->*event)(number);
      }
    }
    return myRecord;
  }

  CEventBridge* myBridge = CEventBridge::GetSingletonPtr();
  CMouse* myMouse = CMouse::GetSingletonPtr();
  std::string myRecord;
  std::vector<std::unique_ptr<CTarget>> myTargets;
};

TEST_F(MouseTest, ObjectsUnderThePointerHearWhatConcernsThem) {
  struct SObject {
    CRect<int> rect;
    bool blocks = true;
  };
  // What "a" and, behind it, "b" hear of the events.
  const auto hear = [this](const std::vector<SObject>& objects, const std::string& events) {
    myTargets.clear();
    for (const SObject& object : objects) {
      Add(myTargets.empty() ? 'a' : 'b', object.rect, object.blocks);
    }
    return Hear(events);
  };
  const SObject left{.rect = kLeft}, right{.rect = kRight}, ghost{.rect = kLeft, .blocks = false};
  const SObject small{.rect = {10, 20, 30, 40}};
  EXPECT_EQ(hear({left, {.rect = {50, 0, 100, 100}}}, "m60,10 d1"), "am ad1 ");
  EXPECT_EQ(hear({small}, "m9,20 m10,19 m40,20 m10,60"), "");
  EXPECT_EQ(hear({small}, "m10,20 m39,59"), "am am ");
  EXPECT_EQ(hear({ghost, left}, "m1,1 m500,1"), "am bm bo500,1 ");
  EXPECT_EQ(hear({left, right}, "m1,1 m201,1 m202,1"), "am bm ao201,1 bm ");
  EXPECT_EQ(hear({left}, "m1,1 d4 m500,1 u4 u4"), "am ad4 ao500,1 au4 ");
  EXPECT_EQ(hear({left}, "m1,1 d1 u1"), "am ad1 au1 ");
  EXPECT_EQ(hear({ghost}, "m1,1 d1 m500,1 u1"), "am ad1 ");
}

TEST_F(MouseTest, DraggedObjectsHearEverythingOncePerEntry) {
  CTarget* const button = Add('b', kLeft, true);
  CTarget* const knob = Add('k', kRight, true);
  CMouse& mouse = *CMouse::GetSingletonPtr();
  mouse.AddMouseable(button);
  mouse.AddDragged(knob);
  mouse.RemoveDragged(knob);
  EXPECT_EQ(Hear("m1,1"), "bm ") << "nothing drags";
  mouse.AddDragged(knob);
  mouse.AddDragged(knob);
  knob->onEvent = [&] { myRecord += std::to_string(mouse.GetPointerX()) + " "; };
  myBridge->MouseMove(107, 8, -2, 3);
  EXPECT_EQ(myRecord, "bm km 1 km 1 bo107,8 kr-2,3 107 kr-2,3 107 ")
      << "moved from the position before";
  mouse.RemoveMouseable(knob);
  EXPECT_EQ(Hear("d2 u2"), "kd2 107 ku2 107 ") << "one entry less";
}

TEST_F(MouseTest, EveryHandlerMayDeleteAllObjects) {
  for (const std::string event : {"m1,2", "d1", "u1", "m500,1"}) {
    for (const std::size_t killer : {0U, 1U}) {
      for (const bool isDragged : {false, true}) {
        SCOPED_TRACE(event + (isDragged ? ", dragged " : ", ") + std::to_string(killer));
        CTarget* const targets[] = {Add('a', kLeft, false), Add('b', kLeft, true)};
        Hear("m1,1 d1");
        if (isDragged) {
          std::ranges::for_each(targets, [this](CTarget* target) { myMouse->AddDragged(target); });
        }
        targets[killer]->onEvent = [this] { myTargets.clear(); };
        Hear(event);
        // That the pointer has gone, only the last one under it hears.
        EXPECT_EQ(myTargets.empty(), isDragged || killer == 1 || event != "m500,1");
        myTargets.clear();
        EXPECT_EQ(Hear("m1,1 u1"), "") << "an entry of a dead object was left behind";
      }
    }
  }
}

TEST(CursorImages, EachPointsWithAPixelThatItShows) {
  for (int type = 1; type <= 9; ++type) {
    const SCursorImage& image = *GetCursorImage(type);
    const int bit = image.hotY * SCursorImage::kSide + image.hotX;
    const SCursorPlanes planes = MakeCursorPlanes(image);
    EXPECT_NE(planes.mask.at(bit / 8) & 0x80 >> bit % 8, 0) << type;
  }
}

}  // namespace
}  // namespace vask
