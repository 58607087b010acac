#include "gfx/text/textsprite.h"
#include "support/uitest.h"
#include "ui/buttonwidget.h"
#include "ui/gfxhandler.h"
#include "ui/textinputwidget.h"
#include "ui/vasktouimouse.h"
#include "ui/windowwidget.h"

namespace vask::ui {
namespace {

struct Button : UiTest, css::CSignalTarget {
  Button() {
    button->GetClickSignal().Connect(this, &Button::NoteClick);
    button->GetDoubleClickSignal().Connect(this, &Button::NoteDoubleClick);
  }
  void NoteClick() { notes += "click "; }
  void NoteDoubleClick() { notes += "double "; }
  void EndDesktop() { CDesktopWidget::DeleteSingleton(); }
  std::string ClickAfter(std::initializer_list<unsigned> pauses) {
    for (const unsigned milliseconds : pauses) {
      myClock.Advance(milliseconds);
      Click({15, 15});
    }
    return std::exchange(notes, "");
  }

  CButtonWidget* button = new CButtonWidget(Desktop(), {10, 10, 20, 20}, true, "", {});
  std::string notes;
};

TEST_F(Button, TwoPressesWithin300MillisecondsAreADoubleClick) {
  button->SetDraggable(false);
  // The third is the first of a new pair; the fourth comes too late for it, and is no first.
  EXPECT_EQ(ClickAfter({0, 299, 0, 300, 0}), "click double click click click click ");
  button->SetDoubleClickEnabled(false);
  EXPECT_EQ(ClickAfter({0, 0}), "click click ");
}

TEST_F(Button, AClickIsAPressAndAReleaseOnIt) {
  button->SetDraggable(false);
  Press({15, 15}, kRightButton);
  Release({15, 15}, kRightButton);
  Release({15, 15});
  EXPECT_EQ(notes, "") << "another button; no press";
  Press({15, 15});
  Move({70, 70});
  Release({15, 15});
  EXPECT_EQ(notes, "") << "left in between";
  button->GetClickSignal().Connect(this, &Button::EndDesktop);
  EXPECT_EQ(ClickAfter({300}), "click ");
  EXPECT_TRUE(Desktop()->GetChildren().empty());
}

struct CForm : css::CSignalTarget {
  explicit CForm(CWidget* area) {
    auto* input = new CTextInputWidget(area, {0, 0, 400, 20}, true, "line",
                                       GetGfxHandler().Load("data/gui/text_input.xml"),
                                       "data/gui/text_cursor.gif");
    input->GetKeySignal(CTextInputWidget::kReturn).Connect(this, &CForm::Send);
    line = input;
  }
  void Send() { ++sent; }
  int sent = 0;
  CTextInputWidget* line;
};

struct Input : UiTest {
  Input() { input->MoveTo(10, 10); }
  // What is in the line after each key, with "|" for the cursor.
  std::string Edited(std::initializer_list<int> keys) {
    std::string seen;
    for (const int key : keys) {
      test::TypeKey(key, static_cast<char>(key));
      std::string text = input->GetText();
      seen += text.insert(static_cast<std::size_t>(input->GetCursor()), "|") + " ";
    }
    return seen;
  }
  int CursorAt(int x) {
    input->SetCursorToPoint({x, 10});
    return input->GetCursor();
  }
  bool ShowsCursorAt(int x, int y) {
    CScreenLayer::GetSingletonPtr()->DrawFrame();
    return test::ScreenColor(x, y) == 0xFFF3D6 && test::ScreenColor(x - 1, y) != 0xFFF3D6;
  }

  CForm form{Desktop()};
  CTextInputWidget* input = form.line;
};

TEST_F(Input, KeysEditAtTheCursor) {
  Click({10, 10});
  EXPECT_EQ(Edited({kBackspaceKey, kDeleteKey, kLeftKey, kRightKey, kReturnKey, kTabKey}),
            "| | | | | | ");
  EXPECT_EQ(form.sent, 1);
  EXPECT_EQ(Edited({'a', 'c', kLeftKey, 'b', kHomeKey, kRightKey}), "a| ac| a|c ab|c |abc a|bc ");
  EXPECT_EQ(Edited({kBackspaceKey, kDeleteKey, kEndKey, '\1'}), "|bc |c c| c\1| ");
}

TEST_F(Input, TheCursorGoesToThePointAndStaysInTheText) {
  input->SetText("wide text");  // characters of six pixels
  EXPECT_EQ(CursorAt(21), 1);
  EXPECT_EQ(CursorAt(10), 1) << "not by a point on the left";
  EXPECT_EQ(CursorAt(11), 0);
  EXPECT_EQ(CursorAt(64), 9);
  input->SetText("\n\r\t");
  EXPECT_EQ(input->GetCursor(), 3);
  EXPECT_EQ(dynamic_cast<CTextSprite&>(*input->GetSprite()).GetText(), "\1\1\1") << "one line";
}

TEST_F(Input, TheCursorIsASpriteWithinTheWidgetWithTheFocus) {
  EXPECT_FALSE(ShowsCursorAt(10, 10));
  Press({11, 11});
  EXPECT_EQ(Cursor(), "text");
  input->SetText("   ");
  input->CursorEnd();
  input->MoveBy(5, 5);
  EXPECT_TRUE(ShowsCursorAt(33, 15)) << "after three characters, and moved";
  input->SetText(" ");
  EXPECT_TRUE(ShowsCursorAt(21, 15)) << "after what is left of the text";
  input->Resize(6, 20);
  EXPECT_FALSE(ShowsCursorAt(21, 15)) << "outside the widget";
  input->CursorHome();
  Press({70, 50}, kRightButton);
  EXPECT_TRUE(ShowsCursorAt(15, 15)) << "another button takes no focus away";
  Click({70, 50});
  EXPECT_EQ(Cursor(), "arrow");
  EXPECT_FALSE(ShowsCursorAt(15, 15)) << "without the focus";
  Move({15, 15});
  delete input;
  EXPECT_EQ(Cursor(), "arrow") << "a dying widget gives the cursor back";
}

struct Window : UiTest {
  // The window's rectangle after a drag.
  Rect Dragged(SPoint from, SPoint to) {
    window.Resize(200, 150);
    window.MoveTo(100, 100);
    myClock.Advance(1000);  // no double click
    Press(from);
    Move(to);
    Release(to);
    return window.GetRect();
  }
  // The cursors that it wants over these points of its own, which children may cover.
  std::string Cursors(std::initializer_list<SPoint> points) {
    std::string wanted;
    for (const SPoint point : points) {
      CMouseEvent event(IEvent::kMouseMove, point, 0, &myMouse);
      window.OnMouseEvent(event);
      wanted += Cursor() + ",";
    }
    return wanted;
  }

  CVaskToUiMouse myMouse;
  CWindowWidget window{Desktop(), {100, 100, 200, 150}, false, "", {}};
};

TEST_F(Window, BordersAreGrabbedWithinThreePixelsAndCornersWithinTwenty) {
  // Nothing at first, and the arrow afterwards; the last point is outside.
  EXPECT_EQ(Cursors({{103, 170}, {102, 170}, {103, 170}, {297, 170}, {300, 170}}),
            ",resize_horizontal,arrow,resize_horizontal,arrow,");
  EXPECT_EQ(Cursors({{200, 102}, {200, 103}, {279, 247}, {200, 246}}),
            "resize_vertical,arrow,resize_vertical,arrow,");
  EXPECT_EQ(Cursors({{280, 249}, {101, 119}, {101, 120}, {298, 119}}),
            "resize_diagonal1,resize_diagonal1,resize_horizontal,resize_diagonal2,");
}

TEST_F(Window, GivesTheCursorBackWhenItDies) {
  auto* const dying = new CWindowWidget(Desktop(), {300, 300, 200, 150}, false, "", {});
  Move({300, 370});
  EXPECT_EQ(Cursor(), "resize_horizontal");
  delete dying;
  EXPECT_EQ(Cursor(), "arrow");
}

TEST_F(Window, DragsOfBordersMoveTheEdgesThatAreGrabbed) {
  EXPECT_EQ(Dragged({100, 170}, {90, 999}), (Rect{90, 100, 210, 150}));
  EXPECT_EQ(Dragged({299, 170}, {309, 0}), (Rect{100, 100, 210, 150}));
  EXPECT_EQ(Dragged({200, 101}, {0, 90}), (Rect{100, 90, 200, 160}));
  EXPECT_EQ(Dragged({200, 249}, {0, 260}), (Rect{100, 100, 200, 161}));
  EXPECT_EQ(Dragged({299, 249}, {50, 50}), (Rect{100, 100, 100, 50})) << "not below the minimum";
  EXPECT_EQ(Dragged({100, 100}, {290, 240}), (Rect{200, 200, 100, 50})) << "not pushed away";
  EXPECT_EQ(Dragged({299, 170}, {899, 170}), (Rect{0, 100, 800, 150})) << "onto the desktop";
  EXPECT_EQ(Dragged({100, 100}, {-30, -20}), (Rect{0, 0, 330, 270})) << "over the upper left";
  EXPECT_EQ(Dragged({285, 249}, {799, 249}), (Rect{86, 100, 714, 150})) << "once only";
  EXPECT_EQ(Dragged({160, 110}, {900, 900}), (Rect{600, 450, 200, 150})) << "the title bar";
  EXPECT_EQ(Dragged({160, 110}, {170, 130}), (Rect{110, 120, 200, 150}));
}

TEST_F(Window, OnlyTheLeftButtonResizes) {
  Press({299, 170}, kRightButton);
  Move({309, 170});
  EXPECT_EQ(window.GetRect().w, 200);
  Press({299, 170});
  Release({299, 170}, kRightButton);
  Move({309, 170});
  EXPECT_EQ(window.GetRect().w, 210);
}

TEST_F(Window, IsMaximisedAndRestored) {
  Click({260, 110});
  EXPECT_TRUE(window.IsMaximised());
  EXPECT_EQ(Cursors({{799, 300}}), ",") << "no borders now";
  Bridge().Resize(1024, 768);
  EXPECT_EQ(window.GetClientArea()->GetRect(), (Rect{2, 22, 1020, 744}));
  myClock.Advance(1000);
  Click({300, 10});
  Click({300, 10});
  EXPECT_EQ(window.GetRect(), (Rect{100, 100, 200, 150})) << "by a double click";
  EXPECT_EQ(Cursors({{299, 170}}), "resize_horizontal,");
  Bridge().Resize(250, 768);
  EXPECT_EQ(window.GetRect(), (Rect{50, 100, 200, 150})) << "keeps its size";
}

}  // namespace
}  // namespace vask::ui
