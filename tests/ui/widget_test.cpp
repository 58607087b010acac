#include "ui/widget.h"

#include "support/testpicture.h"
#include "ui/receivers.h"
#include "utils/signalslot/signal.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace vask::ui {
namespace {

using Rect = CRect<int>;

std::string theHeard;                      // each receiver with the type of its event, and deaths
std::function<void(std::string)> theHook;  // called with each of them

// Notes what it hears, and keeps its children within a limit when it has one.
struct CSpy : CWidget {
  CSpy(CWidget* parent, const Rect& rect, const std::string& name, bool relative = false)
      : CWidget(parent, rect, relative, name, CSpritePtr()) {}
  ~CSpy() override { theHeard += "~" + GetName() + " "; }
  void OnMouseEvent(CMouseEvent& event) override { Note(event.GetType()); }
  void OnKeyboardEvent(CKeyboardEvent& event) override { Note(event.GetType()); }
  void OnFocusEvent(CFocusEvent& event) override { Note(event.GetType()); }
  Rect FitChildRect(const Rect& rect) const override {
    return {std::min(rect.x, limit), rect.y, std::min(rect.w, limit), rect.h};
  }
  void Note(int type) const {
    theHeard += GetName() + std::to_string(type) + " ";
    theHook ? theHook(GetName() + std::to_string(type)) : void();
  }
  int limit = INT_MAX;
};

class Widget : public testing::Test {
 protected:
  ~Widget() override {
    theHook = nullptr;
    myRoot.reset();
    theHeard.clear();
    EXPECT_TRUE(!GetFocus() && !GetKeyboardReceiver() && !GetMouseOver()) << "dangling";
  }
  // What is heard of the event; with a "!" at the end when it was handled.
  std::string Send(int type, int x) {
    CMouseEvent mouse(type, SPoint{x, 5}, 1, nullptr);
    CFocusEvent focus(type, SPoint{x, 5});
    IEvent& event = type == IEvent::kFocusGained ? static_cast<IEvent&>(focus) : mouse;
    theHeard.clear();
    myRoot->HandleEvent(event);
    return theHeard + (event.IsHandled() ? "!" : "");
  }

  test::CTestScreen myScreen{80, 60};
  std::unique_ptr<CSpy> myRoot = std::make_unique<CSpy>(nullptr, Rect{0, 0, 100, 10}, "root");
};

TEST_F(Widget, FollowsTheSizeOfItsParent) {
  const Rect child{17, 27, 8, 9}, unit{0, 0, 100, 100}, far{INT_MAX, INT_MIN, 0, 0};
  // Resize mode, parent, its new size, layout if any, the widget before and after.
  // clang-format off
  const std::tuple<int, Rect, SSize, std::vector<const char*>, Rect, Rect> cases[] = {
      {1, {100, 50, 200, 100}, {300, 100}, {"parent.x + parent.w - 25", "parent.y", "20", "this.h"},
       {275, 50, 20, 9}, {375, 50, 20, 9}},
      {0, {0, 0, 333, 9}, {300, 9}, {"this.w", "1", "parent.w*0.9", "5"}, {8, 1, 299, 5}, {299, 1, 270, 5}},
      {1, {-5, -7, 9, 9}, {8, 9}, {"parent.x - 4", "1-parent.y", "1", "2"}, {-9, 8, 1, 2}, {-9, 8, 1, 2}},
      {1, unit, {300, 200}, {" 10", "-20.9\t", "+30", ".5"}, {10, -20, 30, 0}, {30, -40, 90, 0}},  // plain
      {1, unit, {200, 200}, {"99999999999", "-99999999999", "+0", "."}, far, far},
      {1, unit, {200, 200}, {"9 ^ 99", "0 - 9 ^ 99", "sqrt(0-1)", "parent.w / 0"}, far, far},
      {1, {10, 20, 100, 100}, {150, 50}, {}, child, {20, 23, 12, 4}},
      {1, {0, 0, 0, 10}, {50, 20}, {}, child, {17, 54, 8, 18}},  // from nothing
      {2, {10, 0, 100, 100}, {150, 50}, {}, child, {27, 12, 8, 9}},
      {0, unit, {6, 100}, {}, child, {6, 27, 6, 9}},  // children are held to 6 then
      {3, unit, {5, 5}, {}, child, child},
  };
  // clang-format on
  for (const auto& [mode, old, size, layout, before, after] : cases) {
    CSpy parent(nullptr, old, "p");
    auto* widget = new CWidget(&parent, child, false, "", {});
    widget->SetResizeMode(mode);
    if (!layout.empty()) {
      widget->SetLayout("parent.x", "1", "2", "3");  // replaced, also by plain numbers
      widget->SetRect(child);
      widget->SetLayout(layout[0], layout[1], layout[2], layout[3]);
    }
    EXPECT_TRUE(widget->GetRect() == before) << mode << " in " << old.w << " to " << size.w;
    parent.limit = size.w == 6 ? 6 : INT_MAX;
    parent.Resize(size);
    EXPECT_TRUE(widget->GetRect() == after) << mode << " in " << old.w << " to " << size.w;
    widget->SetRect(child);
    parent.Resize(size);
    EXPECT_TRUE(widget->GetRect() == child) << "nothing has changed";
  }
}

TEST_F(Widget, MovesChildrenAndSpriteAsFarAsThatIsAllowed) {
  const CSpritePtr sprite(new CSprite);
  sprite->SetImage(test::NewPicture(4, 4, CColor(255, 0, 0)));
  myRoot->SetRect({10, 10, 100, 100});
  myRoot->limit = 20;
  auto* child = new CSpy(myRoot.get(), {5, 5, 30, 9}, "c", true);
  auto* inner = new CWidget(child, {1, 2, 3, 5}, true, "g", {});
  inner->SetSprite(sprite);
  EXPECT_TRUE((child->GetRect() == Rect{15, 15, 20, 9})) << "fitted at birth";
  child->MoveTo(100, 20);
  EXPECT_TRUE((child->GetRelativeRect() == Rect{10, 10, 20, 9}));
  child->MoveBy(5, 0);  // refused
  myRoot->MoveBy(-5, 5);
  EXPECT_TRUE((sprite->GetRect() == Rect{16, 27, 3, 5}));
  EXPECT_EQ(sprite->GetZ(), -2);
  inner->SetRect({-7, 8, -9, 9000});
  EXPECT_TRUE((sprite->GetRect() == Rect{-7, 8, 1, 8192}));
}

TEST_F(Widget, RoutesToTheFrontmostThatDoesNotIgnoreTheEvent) {
  auto* a = new CSpy(myRoot.get(), {0, 0, 40, 10}, "a");
  auto* b = new CSpy(myRoot.get(), {30, 0, 40, 10}, "b");  // over a
  new CSpy(a, {20, 0, 60, 10}, "in");                      // partly outside a
  b->SetIgnoreEvent(IEvent::kMouseButtonDown, true);
  // clang-format off
  const std::tuple<int, int, const char*> steps[] = {
      {1, 5, "a3 a1 "}, {1, 39, "a2 b3 b1 "}, {4, 39, "b2 in3 in4 "}, {5, 39, "in2 b3 b5 "},
      {4, 60, "b2 root3 root4 "}, {1, 75, "root1 "}, {1, 100, ""}, {1, -1, ""}, {2, 5, ""}, {6, 5, ""}};
  // clang-format on
  for (const auto& [type, x, heard] : steps) {
    EXPECT_EQ(Send(type, x), heard) << type << " at " << x;
  }
  b->SetIgnoreEvent(IEvent::kMouseOver, true);
  EXPECT_EQ(Send(1, 50), "root2 b1 ");
  b->SetIgnoreEvent(IEvent::kMouseOut, true);
  EXPECT_EQ(Send(1, 5), "a3 a1 ");
}

TEST_F(Widget, OrderOfTheListIsTheOrderOfDepths) {
  std::vector<CWidget*> all;  // two windows, four children each
  for (std::size_t i = 0; i < 10; ++i) {
    all.push_back(new CWidget(i % 5 == 0 ? myRoot.get() : all[i / 5 * 5], {}, false, "", {}));
  }
  const auto depths = [&all] {
    std::string text;
    std::ranges::for_each(all, [&](auto* widget) { text += std::to_string(widget->GetDepth()); });
    return text;
  };
  EXPECT_EQ(depths(), "-1-2-3-4-5-6-7-8-9-10");
  CWidget::RaiseToTop(all[0]);
  EXPECT_EQ(depths(), "-6-7-8-9-10-1-2-3-4-5");
  myRoot->AddChild(myRoot.get());
  all[0]->AddChild(myRoot.get());  // an ancestor
  all[0]->AddChild(all[6]);        // from its old parent
  EXPECT_EQ(depths(), "-5-6-7-8-9-1-10-2-3-4");
}

TEST_F(Widget, FocusGoesToTheFrontmostThatTakesIt) {
  auto* plain = new CSpy(myRoot.get(), {0, 0, 50, 10}, "p");
  auto* a = new CSpy(plain, {0, 0, 20, 10}, "a");
  auto* b = new CSpy(plain, {20, 0, 20, 10}, "b");
  a->SetIgnoreEvent(8, false), a->SetIgnoreEvent(9, false);
  b->SetIgnoreEvent(8, false), b->SetIgnoreEvent(9, false);
  EXPECT_EQ(Send(8, 5), "a8 !");
  EXPECT_EQ(Send(8, 5), "!") << "it has it";
  EXPECT_EQ(Send(8, 25), "a9 b8 !");
  EXPECT_TRUE(GetFocus() == b && GetKeyboardReceiver() == b);
  EXPECT_EQ(Send(8, 45) + Send(8, 60) + Send(8, 200), "") << "nobody takes it";
  CKeyboardEvent key(IEvent::kKeyDown, 65, 'a');
  SendToKeyboardReceiver(key);
  EXPECT_EQ(theHeard, "b6 ");
  theHook = [&](const std::string& note) {
    note == "b9" ? ClearReceivers(), SetFocus(myRoot.get()) : void();
  };
  Send(8, 5);
  EXPECT_EQ(GetFocus(), myRoot.get()) << "whoever has it since the receivers were cleared";
  SetFocus(b);
  theHook = [&](const std::string& note) { note == "b9" ? delete a : void(); };
  EXPECT_EQ(Send(8, 5), "b9 ~a !") << "the taker dies";
  delete b;
}

TEST_F(Widget, CaptureIsASnapshotWithoutThoseThatLeft) {
  auto* a = new CSpy(nullptr, {}, "a");
  CSpy b(nullptr, {}, "b"), c(nullptr, {}, "c");
  AddMouseCapture(a), AddMouseCapture(a), AddMouseCapture(&b), AddMouseCapture(&c);
  theHook = [&](const std::string& note) {
    note == "a1" ? delete a, AddMouseCapture(myRoot.get()), RemoveMouseCapture(&b) : void();
  };
  CMouseEvent event(IEvent::kMouseMove, {}, 0, nullptr);
  SendToMouseCapture(event), SendToMouseCapture(event);
  EXPECT_EQ(theHeard, "a1 ~a c1 c1 root1 ");
}

TEST_F(Widget, DyingLeavesNothingBehind) {
  auto* a = new CSpy(myRoot.get(), {0, 0, 20, 10}, "a");
  new CSpy(a, {}, "1"), new CSpy(a, {}, "2");
  css::CSignal signal;
  signal.Connect(a, static_cast<void (CSpy::*)(int, int)>(&CWidget::MoveBy));
  theHook = [&](const std::string& note) { note == "a3" ? delete a : void(); };
  EXPECT_EQ(Send(1, 5), "a3 ~a ~2 ~1 ") << "deletes itself";
  EXPECT_EQ(signal.GetConnectionCount(), 0U);
  auto* b = new CSpy(myRoot.get(), {0, 0, 20, 10}, "b");
  Send(1, 75);
  theHook = [&](const std::string& note) { note == "root2" ? delete b : void(); };
  EXPECT_EQ(Send(1, 5), "root2 ~b ") << "deleted by the one that the mouse leaves";
}

}  // namespace
}  // namespace vask::ui
