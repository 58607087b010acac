#include "ui/widget.h"

#include "support/uitest.h"
#include "utils/signalslot/signal.h"

#include <climits>
#include <functional>
#include <utility>

namespace vask::ui {
namespace {

std::string ourNotes;              // "name.event " and "~name "
std::function<void()> ourHandler;  // called once, with the next event

// Notes what it hears and its death, and keeps its children within a limit.
struct CSpy : CWidget {
  CSpy(CWidget* parent, const Rect& rect, const char* name, bool takesFocus = false)
      : CWidget(parent, rect, false, name, {}) {
    SetIgnoreEvent(IEvent::kFocusGained, !takesFocus);
    SetIgnoreEvent(IEvent::kFocusLost, !takesFocus);
  }
  ~CSpy() override { ourNotes += "~" + GetName() + " "; }
  void OnMouseEvent(CMouseEvent& event) override { Note(event); }
  void OnKeyboardEvent(CKeyboardEvent& event) override { Note(event); }
  void OnFocusEvent(CFocusEvent& event) override { Note(event); }
  Rect FitChildRect(const Rect& rect) const override {
    return {std::min(rect.x, limit), rect.y, std::min(rect.w, limit), rect.h};
  }
  int limit = INT_MAX;

  void Note(const IEvent& event) const {
    const char* types[] = {"", "move", "out", "over", "down", "up", "key", "", "gain", "lose"};
    ourNotes += GetName() + "." + types[event.GetType()] + " ";
    if (const auto once = std::exchange(ourHandler, nullptr)) {
      once();
    }
  }
};

struct Widget : testing::Test {
  // What is noted of the event, with "!" when it was handled.
  std::string Send(IEvent&& event) {
    ourNotes.clear();
    myRoot->HandleEvent(event);
    return ourNotes + (event.IsHandled() ? "!" : "");
  }
  std::string Mouse(int type, int x) { return Send(CMouseEvent(type, SPoint{x, 5}, 1, nullptr)); }
  std::string Request(int x) { return Send(CFocusEvent(IEvent::kFocusGained, SPoint{x, 5})); }

  test::CTestScreen myScreen{80, 60};
  std::unique_ptr<CSpy> myRoot = std::make_unique<CSpy>(nullptr, Rect{0, 0, 100, 10}, "root");
};

TEST(Layout, IsPlainWhenAllFourAreNumbers) {
  const SLayout plain{" +10", "-20.9\t", "+99999999999", ".5"};
  EXPECT_TRUE(plain.IsPlain());
  EXPECT_EQ(plain.ToRect(), (Rect{10, -20, INT_MAX, 0}));
  for (const char* other : {"", "-", "1 2", "this.w"}) {
    EXPECT_FALSE((SLayout{"1", "1", "1", other}.IsPlain())) << other;
  }
}

TEST(Layout, EvaluatesExpressionsAsTheCalculatorReadsTheirTexts) {
  const Rect own{17, 27, 8, 9}, parent{100, -5, 333, 200};
  const SLayout signs{"-parent.y", "9 - parent.y", "(9)parent.y", "sqrt(9) * (parent.y)"};
  EXPECT_EQ(signs.Evaluate(own, &parent), (Rect{0, 14, 4, -15})) << "as -5 is read in their place";
  const SLayout few{"3 4", "parent.w * 2 -", "+ 1", "this.w this.h - 9 /"};
  EXPECT_EQ(few.Evaluate(own, &parent), (Rect{4, -663, 1, 7})) << "what is left over is used";
  const SLayout odd{"parent.x + 10", "9 ^ 99", "this.h / 0", "parent.w * 0.9 - 9"};
  EXPECT_EQ(odd.Evaluate(own, nullptr), (Rect{10, INT_MAX, 0, -9}));
}

TEST_F(Widget, FollowsItsLayoutUntilNumbersReplaceIt) {
  CSpy* window = myRoot.get();
  window->SetRect({100, 50, 200, 100});
  auto* view = new CWidget(window, {0, 0, 10, 10}, true, "view", CSpritePtr());
  view->SetLayout("parent.x + 2", "parent.y + 22", "parent.w - 4", "parent.h - 24");
  EXPECT_EQ(view->GetRect(), (Rect{102, 72, 196, 76}));
  window->Resize(300, 120);
  EXPECT_EQ(view->GetRect(), (Rect{102, 72, 296, 96}));
  view->SetLayout("110", "60", "30", "40");
  EXPECT_EQ(view->GetRect(), (Rect{110, 60, 30, 40}));
  window->Resize(600, 240);
  EXPECT_EQ(view->GetRect(), (Rect{120, 70, 60, 80})) << "scaled";
}

TEST_F(Widget, FollowsTheSizeOfItsParentByItsMode) {
  const auto resized = [](int mode, const Rect& parentRect, SSize size, int limit = INT_MAX) {
    CSpy parent(nullptr, parentRect, "parent");
    CWidget child(&parent, {17, 27, 8, 9}, false, "child", CSpritePtr());
    child.SetResizeMode(mode);
    parent.limit = limit;
    parent.Resize(size);
    return child.GetRect();
  };
  EXPECT_EQ(resized(CWidget::kScale, {10, 20, 100, 100}, {150, 50}), (Rect{20, 23, 12, 4}));
  EXPECT_EQ(resized(CWidget::kScale, {0, 0, 0, 10}, {50, 20}), (Rect{17, 54, 8, 18}));
  EXPECT_EQ(resized(CWidget::kKeepCentre, {10, 0, 100, 100}, {150, 50}), (Rect{27, 12, 8, 9}));
  EXPECT_EQ(resized(CWidget::kKeep, {0, 0, 90, 90}, {6, 50}, 6), (Rect{6, 27, 6, 9}));
}

TEST_F(Widget, MovesChildrenAndSpriteAsFarAsItsParentAllows) {
  const CSpritePtr sprite(new CSprite);
  sprite->SetImage(test::NewPicture(4, 4, CColor(255, 0, 0)));
  myRoot->SetRect({10, 10, 100, 100});
  myRoot->limit = 20;
  auto* child = new CSpy(myRoot.get(), {15, 15, 30, 9}, "child");
  auto* inner = new CWidget(child, {1, 2, 3, 5}, true, "inner", {});
  inner->SetSprite(sprite);
  child->MoveTo(100, 20);
  child->Resize(21, 9);
  EXPECT_EQ(child->GetRelativeRect(), (Rect{10, 10, 20, 9}));
  myRoot->MoveBy(-5, 5);
  EXPECT_EQ(sprite->GetRect(), (Rect{16, 27, 3, 5}));
  EXPECT_EQ(sprite->GetZ(), -2);
  inner->SetLayout("this.x - 3", "27", "3", "5");
  child->Resize(22, 9);
  EXPECT_EQ(inner->GetRect().x, 13) << "its parent keeps its size";
  inner->SetRect({-7, 8, -9, 9000});
  EXPECT_EQ(sprite->GetRect(), (Rect{-7, 8, 1, 8192})) << "what a picture can have";
}

TEST_F(Widget, RoutesToTheFrontmostThatDoesNotIgnoreTheEvent) {
  auto* a = new CSpy(myRoot.get(), {0, 0, 40, 10}, "a");
  auto* b = new CSpy(myRoot.get(), {30, 0, 40, 10}, "b");  // in front of a
  new CSpy(a, {20, 0, 60, 10}, "in");                      // partly outside a
  b->SetIgnoreEvent(IEvent::kMouseButtonDown, true);
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 5), "a.over a.move ");
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 39), "a.out b.over b.move ");
  EXPECT_EQ(Mouse(IEvent::kMouseButtonDown, 39), "b.out in.over in.down ");
  EXPECT_EQ(Mouse(IEvent::kMouseButtonDown, 60), "in.out root.over root.down ");
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 75), "root.move ") << "not to what is outside its parent";
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 100), "");
  EXPECT_EQ(Mouse(IEvent::kMouseOut, 5), "") << "not routed";
  b->SetIgnoreEvent(IEvent::kMouseOver, true);
  b->SetIgnoreEvent(IEvent::kMouseOut, true);
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 50), "root.out b.move ");
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 5), "a.over a.move ");
}

TEST_F(Widget, TheOrderOfChildrenIsTheOrderOfDepths) {
  CWidget a(myRoot.get(), {}, false, "a", {}), inA(&a, {}, false, "in a", {});
  CWidget b(myRoot.get(), {}, false, "b", {}), inB(&b, {}, false, "in b", {});
  const auto depths = [&] {
    return std::vector{a.GetDepth(), inA.GetDepth(), b.GetDepth(), inB.GetDepth()};
  };
  EXPECT_EQ(depths(), (std::vector{-1, -2, -3, -4}));
  CWidget::RaiseToTop(&a);
  EXPECT_EQ(depths(), (std::vector{-3, -4, -1, -2}));
  a.AddChild(myRoot.get());  // not into what is in it
  a.AddChild(&inB);          // from its old parent
  EXPECT_EQ(depths(), (std::vector{-2, -3, -1, -4}));
  a.RemoveChild(&inB);
  CWidget::RaiseToTop(&b);
  EXPECT_EQ(depths(), (std::vector{-1, -2, -3, -4})) << "it keeps its depth";
  EXPECT_EQ(inB.GetParent(), nullptr);
}

TEST_F(Widget, TheFocusGoesToTheFrontmostThatTakesIt) {
  auto* plain = new CSpy(myRoot.get(), {0, 0, 50, 10}, "plain");
  new CSpy(plain, {0, 0, 20, 10}, "a", true);
  auto* b = new CSpy(plain, {20, 0, 20, 10}, "b", true);
  EXPECT_EQ(Request(5), "a.gain !");
  EXPECT_EQ(Request(5), "!") << "it has it";
  EXPECT_EQ(Request(25), "a.lose b.gain !");
  EXPECT_EQ(Request(45), "") << "nothing there takes it";
  CKeyboardEvent key(IEvent::kKeyDown, 65, 'a');
  SendToKeyboardReceiver(key);
  EXPECT_EQ(ourNotes, "b.key ");
  b->SetIgnoreEvent(IEvent::kFocusLost, true);
  EXPECT_EQ(Request(5), "a.gain !");
}

TEST_F(Widget, CapturersHearInOrderButForThoseThatHaveLeft) {
  auto* a = new CSpy(nullptr, {}, "a");
  CSpy b(nullptr, {}, "b"), c(nullptr, {}, "c");
  for (CSpy* spy : {a, a, &b, &c}) {
    AddMouseCapture(spy);
  }
  ourHandler = [&] {
    delete a;
    RemoveMouseCapture(&b);
  };
  ourNotes.clear();
  CMouseEvent event(IEvent::kMouseMove, {}, 0, nullptr);
  SendToMouseCapture(event);
  SendToMouseCapture(event);
  SetFocus(&c);
  ClearReceivers();
  EXPECT_EQ(GetFocus(), nullptr);
  SendToMouseCapture(event);
  EXPECT_EQ(ourNotes, "a.move ~a c.move c.move ");
}

TEST_F(Widget, DyingLeavesNothingBehind) {
  auto* a = new CSpy(myRoot.get(), {0, 0, 20, 10}, "a");
  new CSpy(a, {}, "in");
  css::CSignal signal;
  signal.Connect(a, static_cast<void (CSpy::*)(int, int)>(&CWidget::MoveBy));
  ourHandler = [&] { delete a; };
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 5), "a.over ~a ~in ") << "in its own handler";
  EXPECT_EQ(signal.GetConnectionCount(), 0U);
  auto* b = new CSpy(myRoot.get(), {0, 0, 20, 10}, "b");
  SetMouseOver(myRoot.get());
  SetFocus(b);
  ourHandler = [&] { delete b; };
  EXPECT_EQ(Mouse(IEvent::kMouseMove, 5), "root.out ~b ") << "in that of the one that it leaves";
  EXPECT_EQ(GetFocus(), nullptr);
}

}  // namespace
}  // namespace vask::ui
