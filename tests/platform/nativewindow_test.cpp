#include "platform/nativewindow.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

// Last: the macros of X would spoil the other headers.
#include "platform/errorguard.h"
#include "platform/nativekeys.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

namespace vask::platform {
namespace {

constexpr SBox kAnywhere = {kDefaultPosition, kDefaultPosition, 200, 99};
constexpr unsigned long kBlack = 0;

// An X server of the test's own, and a second client of it that looks at the window and uses it.
struct NativeWindowTest : testing::Test {
  NativeWindowTest() {
    int number = 0;
    EXPECT_EQ(std::fscanf(myServer, "%d", &number), 1) << "Xvfb is missing";
    setenv("DISPLAY", (":" + std::to_string(number)).c_str(), 1);
    robot = XOpenDisplay(nullptr);
  }
  ~NativeWindowTest() override {
    XCloseDisplay(robot);  // the last client: the server ends
    pclose(myServer);
    unsetenv("DISPLAY");
  }

  Window Id() {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    XQueryTree(robot, DefaultRootWindow(robot), &root, &parent, &children, &count);
    const Window id = count > 0 ? children[count - 1] : 0;
    XFree(children);
    return id;
  }
  unsigned long Number(const char* atom) { return XInternAtom(robot, atom, False); }
  // The numbers in a property of the window, with a blank after each.
  std::string Property(const char* name) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(robot, Id(), Number(name), 0, 9, False, AnyPropertyType, &type, &format,
                       &count, &rest, &data);
    std::string numbers;
    for (unsigned long i = 0; i < count; ++i) {
      numbers += std::to_string(reinterpret_cast<unsigned long*>(data)[i]) + " ";
    }
    XFree(data);
    return numbers;
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
  void Button(int type, int x, int y, unsigned button) {
    Send({.xbutton = {type, 0, 0, robot, 0, 0, 0, 0, x, y, 0, 0, 0, button, 0}});
  }
  void Click(int x, int y, unsigned button = Button1, int moved = 0) {
    Button(ButtonPress, x, y, button);
    Button(ButtonRelease, x + moved, y, button);
  }
  void Key(KeySym symbol, unsigned state) {
    const unsigned code = XKeysymToKeycode(robot, symbol);
    Send({.xkey = {KeyPress, 0, 0, robot, 0, 0, 0, 0, 0, 0, 0, 0, state, code, 0}});
  }
  // As the frame's button does.
  void Close() {
    const auto request = static_cast<long>(Number("WM_DELETE_WINDOW"));
    Send({.xclient = {ClientMessage, 0, 0, robot, 0, 0, 32, {.l = {request}}}});
  }

  FILE* myServer = popen("exec Xvfb -terminate -displayfd 1 -screen 0 640x480x24 2>/dev/null", "r");
  Display* robot = nullptr;
};

TEST_F(NativeWindowTest, TellsTheWindowManagerWhatItIs) {
  // The hints in numbers. Of its frame: which follow, functions (move 4, close 32), decorations
  // (border 2, title 8, menu 16), and two that say nothing. Of its size, before and after a change
  // of it: which follow (4: the place), the place, the size, the smallest and the largest one.
  const auto describe = [this](unsigned classStyle, unsigned style, int x) {
    CNativeWindow window({"Greeting", classStyle, ENativeCursor::kArrow, {}});
    window.Create("Hello", {x, x, 200, 100}, style);
    const std::string before = Property("WM_NORMAL_HINTS");
    window.Resize(300, 150);
    window.Show();
    window.DropInput();  // until the server has done it all
    EXPECT_EQ(Property("WM_PROTOCOLS"), std::to_string(Number("WM_DELETE_WINDOW")) + " ");
    EXPECT_EQ(Property("_NET_WM_WINDOW_TYPE"),
              std::to_string(Number("_NET_WM_WINDOW_TYPE_DIALOG")) + " ");
    return Property("_MOTIF_WM_HINTS") + "| " + before + "| " + Property("WM_NORMAL_HINTS");
  };
  EXPECT_EQ(describe(kNoClose, kCaption, 7),
            "3 4 10 0 0 | 60 0 0 200 100 200 100 200 100 | 60 0 0 300 150 300 150 300 150 ");
  EXPECT_EQ(describe(0, kSystemMenu, kDefaultPosition),
            "3 36 18 0 0 | 56 0 0 200 100 200 100 200 100 | 56 0 0 300 150 300 150 300 150 ");
}

TEST_F(NativeWindowTest, TakesMouseAndKeyboard) {
  std::vector<int> clicks;
  const auto use = [&] {
    Close();                     // which its style forbids
    Click(10, 40, Button3);      // nothing but the left button clicks
    Click(10, 40, Button1, 60);  // nor does it beside the button
    Click(10, 40);
    Button(ButtonRelease, 10, 40, Button1);  // of nothing any more
    Click(10, 10);
    for (const KeySym key : {XK_A, XK_b, XK_Left, XK_c, XK_Tab, XK_Return, XK_ISO_Left_Tab, XK_d}) {
      const bool isShifted = key == XK_A || key == XK_Left || key == XK_ISO_Left_Tab;
      Key(key, isShifted ? ShiftMask : 0);
    }
    Click(10, 70);
  };
  const auto onClick = [&](CNativeWindow& self, int id) {
    clicks.push_back(id);
    if (clicks.size() == 1) {
      Click(10, 70);
      self.DropInput();
      use();
    } else if (id == 9) {
      self.PostQuitMessage();
    }
  };
  CNativeWindow window({"", kNoClose, ENativeCursor::kArrow, onClick});
  window.Create("Hello", kAnywhere, 0);
  window.SetDefaultFont();
  const auto edit = window.AddControl(EControlKind::kEdit, "", {0, 0, 90, 20}, 0, kAutoScroll);
  window.AddControl(EControlKind::kButton, "", {0, 30, 50, 20}, 5);
  window.AddControl(EControlKind::kButton, "", {0, 60, 50, 20}, 9);
  window.Show();
  Click(10, 40);
  EXPECT_TRUE(window.RunMessageLoop());
  EXPECT_EQ(clicks, (std::vector{5, 5, 5, 9}));
  EXPECT_EQ(window.GetText(edit), "Acd");
  Window focus = 0;
  int revert = 0;
  XGetInputFocus(robot, &focus, &revert);
  EXPECT_EQ(focus, Id());
}

TEST_F(NativeWindowTest, ShowsItsControlsUntilItIsClosed) {
  std::vector<int> darkness;  // at each click, the dark pixels of the label
  const auto onClick = [&](CNativeWindow&, int) {
    darkness.push_back(Count({100, 0, 100, 30}, kBlack));
    EXPECT_EQ(Count({0, 0, 100, 1}, 0x9a9791), 89) << "the edge of the field";
    const auto shown = Count({150, 60, 20, 20}, kBlack);
    EXPECT_GT(shown, 0);
    EXPECT_EQ(Count({140, 60, 60, 30}, kBlack), shown) << "a text is cut";
  };
  CNativeWindow window({"Greeting", 0, ENativeCursor::kArrow, onClick});
  window.Create("Hello", {kDefaultPosition, kDefaultPosition, 200, 100}, kCaption);
  window.SetDefaultFont();
  window.AddControl(EControlKind::kButton, "Good", {60, 40, 75, 20}, 1);
  EXPECT_EQ(window.GetTextHeight(std::string(16, 'W') + "\nW", 96), 2 * 13);
  EXPECT_EQ(window.GetTextHeight(std::string(16, 'W') + "\nW", 95), 3 * 13);
  window.AddControl(EControlKind::kEdit, "", {0, 0, 90, 20});
  window.AddControl(EControlKind::kStatic, "\n\n\n\n.", {100, 0, 100, 30});
  window.AddControl(EControlKind::kStatic, "MMMMMM", {150, 60, 20, 20});
  window.Show();
  for (const unsigned wheel : {Button4, Button5, Button4}) {
    Click(110, 10, wheel);
    Click(70, 50);
  }
  Close();
  EXPECT_TRUE(window.RunMessageLoop());
  EXPECT_EQ(darkness, (std::vector{15, 5, 15})) << "three dots, or the full stop";
}

TEST_F(NativeWindowTest, SaysWhyItCannotBeShown) {
  const auto error = [](int width) {
    CNativeWindow window({});
    EXPECT_FALSE(window.Create("", {0, 0, width, 20}, 0));
    return window.GetError();
  };
  EXPECT_EQ(error(32768), "the window would be too large");
  EXPECT_EQ(error(0), "the display refuses the window");
}

int OnError(Display*, XErrorEvent*) { return 41; }

TEST(ErrorGuard, LeavesTheHandlersOfOtherConnectionsInPlace) {
  XSetErrorHandler(&OnError);
  {
    const CErrorGuard guard;
    const auto guarding = XSetErrorHandler(nullptr);
    EXPECT_EQ(guarding(reinterpret_cast<Display*>(this), nullptr), 41);
  }
  EXPECT_EQ(XSetErrorHandler(nullptr), &OnError);
}

TEST(NativeKeys, MeanWhatControlsKnow) {
  const auto typed = [](KeySym symbol, unsigned state, const char* text) {
    const SNativeKey key = ToNativeKey(symbol, state, text);
    EXPECT_EQ(key.selects, state == ShiftMask);
    return key.key == ENativeKey::kText ? "text " + key.text
                                        : std::to_string(static_cast<int>(key.key));
  };
  const std::string selectAll = std::to_string(static_cast<int>(ENativeKey::kSelectAll));
  EXPECT_EQ(typed(XK_a, ShiftMask, " ~\xA0\x1F\x7F\x9F"), "text  ~\xA0");
  EXPECT_EQ(typed(XK_a, Mod1Mask, "a"), "text ");
  EXPECT_EQ(typed(XK_a, ControlMask, "\1"), selectAll);
  EXPECT_EQ(typed(XK_A, ControlMask, "\1"), selectAll);
  EXPECT_EQ(typed(XK_b, ControlMask, "\2"), "text ");
  EXPECT_EQ(typed(XK_KP_Enter, 0, "\r"), std::to_string(static_cast<int>(ENativeKey::kReturn)));
}

}  // namespace
}  // namespace vask::platform
