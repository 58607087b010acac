#include "platform/nativewindow.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

// Last: the macros of X would spoil the other headers.
#include "platform/errorguard.h"
#include "platform/nativekeys.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

namespace vask::platform {
namespace {

constexpr SBox kAnywhere = {kDefaultPosition, kDefaultPosition, 200, 99};

// An X server of the test's own, and a second client of it that looks at the window and uses it.
class NativeWindowTest : public testing::Test {
 protected:
  NativeWindowTest() {
    int number = 0;
    EXPECT_EQ(std::fscanf(myServer, "%d", &number), 1) << "Xvfb is missing";
    setenv("DISPLAY", (":" + std::to_string(number)).c_str(), 1);
    robot = XOpenDisplay(nullptr);
  }
  ~NativeWindowTest() override {
    XCloseDisplay(robot);  // the last client: the server ends
    pclose(myServer);
  }

  Window Id() {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    XQueryTree(robot, DefaultRootWindow(robot), &root, &parent, &children, &count);
    const Window id = count > 0 ? children[count - 1] : 0;
    XFree(children);
    return id;
  }
  // A property of the window: its text, or its numbers with a blank before each.
  std::string Property(const char* name) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(robot, Id(), XInternAtom(robot, name, False), 0, 9, False, AnyPropertyType,
                       &type, &format, &count, &rest, &data);
    std::string text(reinterpret_cast<char*>(data), format == 8 ? count : 0);
    for (unsigned long i = 0; format == 32 && i < count; ++i) {
      text += " " + std::to_string(reinterpret_cast<unsigned long*>(data)[i]);
    }
    XFree(data);
    return text;
  }
  std::string AtomText(const char* name) {
    return " " + std::to_string(XInternAtom(robot, name, False));
  }
  // How many pixels of the box have the colour.
  int Count(const SBox& box, unsigned long color) {
    XImage* const image = XGetImage(robot, Id(), box.x, box.y, static_cast<unsigned>(box.width),
                                    static_cast<unsigned>(box.height), AllPlanes, ZPixmap);
    int found = 0;
    for (int i = 0; i < box.width * box.height; ++i) {
      found += XGetPixel(image, i % box.width, i / box.width) == color ? 1 : 0;
    }
    XDestroyImage(image);
    return found;
  }
  void Send(XEvent event) {
    XSendEvent(robot, Id(), False, NoEventMask, &event);
    XSync(robot, False);
  }
  void Click(int x, int y, unsigned button = Button1) {
    for (const int type : {ButtonPress, ButtonRelease}) {
      Send({.xbutton = {type, 0, 0, robot, 0, 0, 0, 0, x, y, 0, 0, 0, button, 0}});
    }
  }
  void Key(KeySym symbol, unsigned state = 0) {
    const unsigned code = XKeysymToKeycode(robot, symbol);
    Send({.xkey = {KeyPress, 0, 0, robot, 0, 0, 0, 0, 0, 0, 0, 0, state, code, 0}});
  }
  void AskToClose() {
    const auto request = static_cast<long>(XInternAtom(robot, "WM_DELETE_WINDOW", False));
    Send({.xclient = {ClientMessage, 0, 0, robot, 0, 0, 32, {.l = {request}}}});
  }

  FILE* myServer = popen("exec Xvfb -terminate -displayfd 1 -screen 0 640x480x24 2>/dev/null", "r");
  Display* robot = nullptr;
};

TEST_F(NativeWindowTest, TellsTheWindowManagerWhatItIs) {
  struct {
    unsigned classStyle, style;
    int x;
    std::string frame, size;
  } const cases[] = {
      {.classStyle = 0, .style = 0, .x = 30, .frame = " 3 36 2 0 0", .size = " 60 0 0"},
      {.classStyle = kNoClose,
       .style = kCaption,
       .x = 0,
       .frame = " 3 4 10 0 0",
       .size = " 60 0 0"},
      {0, kCaption | kSystemMenu, kDefaultPosition, " 3 36 26 0 0", " 56 0 0"},
  };
  for (const auto& c : cases) {
    CNativeWindow window({"Greeting", c.classStyle, ENativeCursor::kArrow, {}});
    window.Create("Hello", {c.x, c.x, 200, 100}, c.style);
    EXPECT_EQ(Property("WM_NORMAL_HINTS"), c.size + " 200 100 200 100 200 100");
    window.Resize(300, 150);
    window.Show();
    window.DropInput();  // until the server has done it all
    EXPECT_EQ(Property("WM_NORMAL_HINTS"), c.size + " 300 150 300 150 300 150");
    EXPECT_EQ(Property("_MOTIF_WM_HINTS"), c.frame) << "its functions and decorations";
    EXPECT_EQ(Property("WM_NAME"), "Hello");
    EXPECT_EQ(Property("WM_CLASS"), std::string("Greeting\0Greeting\0", 18));
    EXPECT_EQ(Property("WM_PROTOCOLS"), AtomText("WM_DELETE_WINDOW"));
    EXPECT_EQ(Property("_NET_WM_WINDOW_TYPE"), AtomText("_NET_WM_WINDOW_TYPE_DIALOG"));
    XWindowAttributes there{};
    XGetWindowAttributes(robot, Id(), &there);
    EXPECT_EQ(there.x, c.x == kDefaultPosition ? 0 : c.x);
    EXPECT_EQ(there.y, there.x);
    EXPECT_EQ(there.width * 1000 + there.height, 300150);
  }
}

TEST_F(NativeWindowTest, ShowsItsControlsAndTakesMouseAndKeyboard) {
  constexpr SBox kLabel = {100, 0, 100, 30};
  std::vector<int> clicks, darkness;  // at each click, the dark pixels of the label
  const auto use = [&] {
    Click(110, 10, Button5);  // the wheel: the label scrolls
    Click(10, 40, Button3);   // nothing but the left button clicks
    Click(10, 40);
    Click(110, 10, Button4);
    Click(10, 10);
    Key(XK_A, ShiftMask);
    Key(XK_b);
    Key(XK_Left, ShiftMask);  // selects
    Key(XK_c);
    Key(XK_Tab);
    Key(XK_Return);
    Key(XK_Tab, ShiftMask);
    Key(XK_d);
    Click(10, 70);
  };
  const auto onClick = [&](CNativeWindow& self, int id) {
    clicks.push_back(id);
    darkness.push_back(Count(kLabel, 0x000000));
    if (clicks.size() == 1) {
      Click(10, 70);
      self.DropInput();
      use();
    } else if (id == 9) {
      self.PostQuitMessage();
    }
  };
  CNativeWindow window({"", 0, ENativeCursor::kArrow, onClick});
  EXPECT_TRUE(window.Create("Hello", kAnywhere, 0));
  EXPECT_TRUE(window.SetDefaultFont());
  EXPECT_EQ(window.GetTextHeight("W\nW", 100), 2 * 13);
  const auto edit = window.AddControl(EControlKind::kEdit, "", {0, 0, 90, 20}, 0, kAutoScroll);
  window.AddControl(EControlKind::kStatic, "\n\n\n\n.", kLabel);
  window.AddControl(EControlKind::kButton, "", {0, 30, 50, 20}, 5);
  window.AddControl(EControlKind::kButton, "", {0, 60, 50, 20}, 9);
  window.Show();
  Click(10, 40);
  EXPECT_TRUE(window.RunMessageLoop());
  EXPECT_EQ(clicks, (std::vector{5, 5, 5, 9}));
  EXPECT_EQ(window.GetText(edit), "Acd");
  EXPECT_EQ(darkness, (std::vector{15, 5, 15, 15})) << "three dots, or the full stop";
  EXPECT_EQ(Count({0, 0, 200, 99}, 0xdcdad5), 17400) << "the face beside fields and edges";
}

TEST_F(NativeWindowTest, EndsWithTheWindowOrTheConnection) {
  struct {
    const char* name;
    unsigned style;
    std::function<void()> end;
    bool isClicked;
    std::string error = {};
  } const cases[] = {
      {.name = "closed", .style = 0, .end = [this] { AskToClose(); }, .isClicked = false},
      {.name = "no close", .style = kNoClose, .end = [this] { AskToClose(); }, .isClicked = true},
      {"destroyed", 0, [this] { XDestroyWindow(robot, Id()); }, false},
      {"cut off", 0, [this] { XKillClient(robot, Id()); }, false, "the display has gone"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    bool isClicked = false;
    const auto onClick = [&](CNativeWindow& self, int) {
      isClicked = true;
      self.PostQuitMessage();
    };
    const unsigned style = c.style;
    CNativeWindow window({"Greeting", style, ENativeCursor::kArrow, onClick});
    window.Create("Hello", {kDefaultPosition, kDefaultPosition, 200, 100}, kCaption);
    window.SetDefaultFont();
    window.AddControl(EControlKind::kButton, "Good", {60, 40, 75, 20}, 1);
    window.Show();
    c.end();
    Click(70, 50);
    EXPECT_EQ(window.RunMessageLoop(), c.error.empty());
    EXPECT_EQ(window.GetError(), c.error);
    EXPECT_EQ(isClicked, c.isClicked);
  }
}

TEST_F(NativeWindowTest, SaysWhyItCannotBeShown) {
  const auto error = [](int width) {
    CNativeWindow window({});
    EXPECT_FALSE(window.Create("", {0, 0, width, 20}, 0));
    return window.GetError();
  };
  EXPECT_EQ(error(32768), "the window would be too large");
  EXPECT_EQ(error(0), "the display refuses the window");
  setenv("DISPLAY", "none", 1);
  EXPECT_EQ(error(32767), "there is no display");
}

int OnError(Display*, XErrorEvent*) { return 41; }
int OnLoss(Display*) { return 42; }

TEST(ErrorGuard, LeavesTheHandlersOfOtherConnectionsInPlace) {
  XSetErrorHandler(&OnError);
  XSetIOErrorHandler(&OnLoss);
  {
    const CErrorGuard guard;
    const auto onError = XSetErrorHandler(nullptr);
    const auto onLoss = XSetIOErrorHandler(nullptr);
    auto* const other = reinterpret_cast<Display*>(this);
    EXPECT_EQ(onError(other, nullptr), 41);
    EXPECT_EQ(onLoss(other), 42);
  }
  EXPECT_EQ(XSetErrorHandler(nullptr), &OnError);
  EXPECT_EQ(XSetIOErrorHandler(nullptr), &OnLoss);
}

TEST(NativeKeys, MeanWhatControlsKnow) {
  using enum ENativeKey;
  struct {
    KeySym symbol;
    unsigned state;
    const char *typed, *text;
    ENativeKey key;
  } const cases[] = {
      {.symbol = XK_a, .state = 0, .typed = "a", .text = "a", .key = kText},
      {XK_a, ShiftMask, " ~\xA0\x1F\x7F\x9F", " ~\xA0", kText},
      {.symbol = XK_a, .state = Mod1Mask, .typed = "a", .text = "", .key = kText},
      {.symbol = XK_a, .state = ControlMask, .typed = "\1", .text = "", .key = kSelectAll},
      {.symbol = XK_A, .state = ControlMask, .typed = "\1", .text = "", .key = kSelectAll},
      {.symbol = XK_b, .state = ControlMask, .typed = "\2", .text = "", .key = kText},
      {.symbol = XK_KP_Enter, .state = ShiftMask, .typed = "\r", .text = "", .key = kReturn},
  };
  for (const auto& c : cases) {
    const SNativeKey key = ToNativeKey(c.symbol, c.state, c.typed);
    EXPECT_EQ(key.key, c.key) << c.symbol << " " << c.state;
    EXPECT_EQ(key.text, c.text);
    EXPECT_EQ(key.selects, c.state == ShiftMask);
  }
  for (const KeySym tab : {XK_Tab, XK_KP_Tab, XK_ISO_Left_Tab}) {
    EXPECT_TRUE(IsTab(tab));
    EXPECT_EQ(IsBackwards(tab, 0), tab == XK_ISO_Left_Tab);
    EXPECT_TRUE(IsBackwards(tab, ShiftMask));
  }
  EXPECT_FALSE(IsTab(XK_a));
}

}  // namespace
}  // namespace vask::platform
