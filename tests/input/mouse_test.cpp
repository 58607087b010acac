#include "input/mouse.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "events/eventbridge.h"

namespace vask {
namespace {

// Notes what it hears in a record that all objects of a test share, then runs a hook, if it has
// one.
class CTarget : public CMouseableImpl {
 public:
  CTarget(std::string name, std::vector<std::string>& record, CRect<int> rect, bool blocking)
      : myName(std::move(name)), myRecord(record), myRect(rect), myBlocking(blocking) {}

  void OnMouseMove(int, int) override { Note(" move"); }
  void OnMouseMoveRelative(int dx, int dy) override {
    Note(" by " + std::to_string(dx) + "," + std::to_string(dy));
  }
  void OnMouseOut(int, int) override { Note(" out"); }
  void OnMouseButtonDown(int button) override { Note(" down " + std::to_string(button)); }
  void OnMouseButtonUp(int button) override { Note(" up " + std::to_string(button)); }
  bool IsBlocking() override { return myBlocking; }
  CRect<int> GetRect() override { return myRect; }

  std::function<void()> onEvent;

 private:
  void Note(const std::string& event) {
    myRecord.push_back(myName + event);
    if (const auto hook = onEvent) {  // a copy: the hook may delete this object
      hook();
    }
  }

  std::string myName;
  std::vector<std::string>& myRecord;
  CRect<int> myRect;
  bool myBlocking;
};

class MouseTest : public ::testing::Test {
 protected:
  using Record = std::vector<std::string>;

  ~MouseTest() override { CMouse::DeleteSingleton(); }

  CTarget* Make(const std::string& name, CRect<int> rect, bool blocking) {
    myTargets.push_back(std::make_unique<CTarget>(name, myRecord, rect, blocking));
    return myTargets.back().get();
  }
  // In front to back order.
  CTarget* Add(const std::string& name, CRect<int> rect, bool blocking = true) {
    CTarget* target = Make(name, rect, blocking);
    myMouse->AddMouseable(target);
    return target;
  }
  void Delete(CTarget* target) {
    std::erase_if(myTargets, [=](const auto& owned) { return owned.get() == target; });
  }
  Record Take() { return std::exchange(myRecord, {}); }
  void MoveTo(int x, int y) { myBridge->MouseMove(x, y, 0, 0); }

  CEventBridge* myBridge = CEventBridge::GetSingletonPtr();
  CMouse* myMouse = CMouse::GetSingletonPtr();
  Record myRecord;
  std::vector<std::unique_ptr<CTarget>> myTargets;
};

constexpr CRect<int> kLeft{0, 0, 100, 100};
constexpr CRect<int> kRight{200, 0, 100, 100};

struct SScene {
  struct SObject {
    const char* name;
    CRect<int> rect;
    bool blocking;
  };
  std::vector<SObject> objects;  // front to back
  std::string events;            // m: the pointer moves, d, u: a button goes down, up
  std::vector<std::string> heard;
};

const std::vector<SScene> kScenes = {
    {{{"front", kLeft, true}, {"back", {50, 0, 100, 100}, true}},
     "m60,10 d1",
     {"front move", "front down 1"}},
    {{{"a", {10, 20, 30, 40}, true}},
     "m9,20 m10,19 m40,20 m10,60 m10,20 m39,59",
     {"a move", "a move"}},
    {{{"glass", kLeft, false}, {"wall", kLeft, true}},
     "m1,1 m500,1",
     {"glass move", "wall move", "wall out"}},
    {{{"a", kLeft, true}, {"b", kRight, true}},
     "m1,1 m201,1 m202,1",
     {"a move", "b move", "a out", "b move"}},
    {{{"a", kLeft, true}}, "m1,1 d4 m500,1 u4 u4", {"a move", "a down 4", "a out", "a up 4"}},
    {{{"a", kLeft, true}}, "m1,1 d1 u1", {"a move", "a down 1", "a up 1"}},
    {{{"glass", kLeft, false}}, "m1,1 d1 m500,1 u1", {"glass move", "glass down 1"}},
};

TEST_F(MouseTest, ObjectsUnderThePointerHearWhatConcernsThem) {
  for (const SScene& scene : kScenes) {
    for (const auto& object : scene.objects) {
      Add(object.name, object.rect, object.blocking);
    }
    std::istringstream events(scene.events);
    char kind = 0;
    char comma = 0;
    for (int number = 0, y = 0; events >> kind >> number;) {
      if (kind == 'm') {
        events >> comma >> y;
        MoveTo(number, y);
      } else {
        kind == 'd' ? myBridge->MouseButtonDown(number) : myBridge->MouseButtonUp(number);
      }
    }
    EXPECT_EQ(Take(), scene.heard) << scene.events;
    myTargets.clear();
  }
}

TEST_F(MouseTest, DraggedObjectsHearEverythingOncePerEntry) {
  CTarget* dragged = Make("d", {}, false);
  myMouse->AddDragged(dragged);
  myMouse->AddDragged(dragged);
  myBridge->MouseMove(7, 8, -2, 3);
  EXPECT_EQ(Take(), (Record{"d move", "d move", "d by -2,3", "d by -2,3"}));
  myMouse->RemoveDragged(dragged);
  myBridge->MouseButtonDown(2);
  myBridge->MouseButtonUp(2);
  EXPECT_EQ(Take(), (Record{"d down 2", "d up 2"}));
}

TEST_F(MouseTest, HandlersReadThePositionBeforeTheMotionAndPressesTheLastOne) {
  CTarget* dragged = Make("d", {}, false);
  myMouse->AddDragged(dragged);
  std::vector<int> seen;
  dragged->onEvent = [&] { seen.push_back(myMouse->GetPointerX()); };
  myBridge->MouseMove(30, 40, 0, 0);
  myBridge->MouseButtonDown(1);
  EXPECT_EQ(seen, (std::vector<int>{0, 30, 30}));  // motion, relative motion, press
  EXPECT_EQ(myMouse->GetPointerY(), 40);
}

TEST_F(MouseTest, AnObjectThatLeavesInItsButtonHandlerEndsThePress) {
  for (const bool deletes : {false, true}) {
    CTarget* front = Add("front", kLeft, false);
    CTarget* back = Add("back", kLeft);
    front->onEvent = [=, this] { deletes ? Delete(front) : myMouse->RemoveMouseable(front); };
    myBridge->MouseButtonDown(1);
    EXPECT_EQ(Take(), (Record{"front down 1"})) << deletes;
    myBridge->MouseButtonUp(1);
    EXPECT_EQ(Take(), (Record{"back up 1"})) << "nobody had taken the press";
    Delete(back);
  }
}

// Each handler may delete any object: the one that is called, one in front, one behind, or all.
TEST_F(MouseTest, EveryHandlerMayDeleteAnyObject) {
  const std::vector<std::function<void()>> events = {
      [this] { MoveTo(1, 1); },
      [this] { myBridge->MouseButtonDown(1); },
      [this] { myBridge->MouseButtonUp(1); },
  };
  for (std::size_t event = 0; event < events.size(); ++event) {
    for (int killer = 0; killer < 3; ++killer) {
      for (int victims = 1; victims < 8; ++victims) {
        std::vector<CTarget*> targets;
        for (const char* name : {"0", "1", "2"}) {
          targets.push_back(Add(name, kLeft, *name == '2'));
          myMouse->AddMouseable(targets.back());
          myMouse->AddDragged(targets.back());
        }
        MoveTo(1, 1);
        myBridge->MouseButtonDown(1);
        targets[static_cast<std::size_t>(killer)]->onEvent = [=, this] {
          for (std::size_t i = 0; i < 3; ++i) {
            (victims >> i & 1) != 0 ? Delete(targets[i]) : void();
          }
        };
        events[event]();
        MoveTo(300, 300);
        myBridge->MouseButtonUp(1);
        EXPECT_EQ(myTargets.size(),
                  3U - static_cast<unsigned>(__builtin_popcount(static_cast<unsigned>(victims))));
        myTargets.clear();
        Take();
      }
    }
  }
  MoveTo(1, 1);
  EXPECT_EQ(Take(), Record{}) << "an entry of a dead object was left behind";
}

TEST_F(MouseTest, LeavingAnObjectMayDeleteTheOneThatThePointerCameTo) {
  CTarget* old = Add("old", kLeft);
  CTarget* fresh = Add("fresh", kRight);
  MoveTo(1, 1);
  old->onEvent = [=, this] { Delete(fresh); };
  MoveTo(201, 1);
  old->onEvent = nullptr;
  Take();
  MoveTo(500, 500);
  EXPECT_EQ(Take(), Record{});
}

TEST_F(MouseTest, AnObjectThatRestacksItselfInItsHandlerIsCalledOnce) {
  CTarget* a = Add("a", kLeft, false);
  Add("b", kLeft, false);
  a->onEvent = [=, this] {
    myMouse->RemoveMouseable(a);
    myMouse->AddMouseable(a);
  };
  MoveTo(1, 1);
  EXPECT_EQ(Take(), (Record{"a move", "b move"}));
  MoveTo(1, 1);
  EXPECT_EQ(Take(), (Record{"b move", "a move"}));
}

TEST_F(MouseTest, ADyingObjectDoesNotBringTheMouseBack) {
  CTarget* target = Add("a", kLeft);
  CMouse::DeleteSingleton();
  Delete(target);
  EXPECT_EQ(CMouse::PeekSingletonPtr(), nullptr);
  myBridge->MouseMove(1, 1, 0, 0);  // the bridge must have let go of it
}

}  // namespace
}  // namespace vask
