#include "platform/nativewindow.h"

#include "platform/errorguard.h"
#include "platform/nativekeys.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/cursorfont.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace vask::platform {

namespace {

// X counts pixels in 16 bits with a sign.
constexpr int kLargestSide = 32767;

constexpr std::array kFonts = {"-misc-fixed-medium-r-semicondensed--13-*-*-*-*-*-iso8859-1",
                               "fixed"};

// In the order of ENativeColor.
constexpr std::array kColors = {"#dcdad5", "#ffffff", "#000000", "#ffffff",
                                "#9a9791", "#55534f", "#b4d2f0"};

constexpr int kWheelLines = 3;

// What window managers understand of a window's frame (Motif's hints).
struct SFrameHints {
  unsigned long flags;
  unsigned long functions;
  unsigned long decorations;
  long inputMode;
  unsigned long status;
};

SFrameHints FrameHints(unsigned windowStyle, unsigned classStyle) {
  constexpr unsigned long kFunctionsAreSet = 1;
  constexpr unsigned long kDecorationsAreSet = 2;
  constexpr unsigned long kMove = 4;
  constexpr unsigned long kClose = 32;
  constexpr unsigned long kBorder = 2;
  constexpr unsigned long kTitle = 8;
  constexpr unsigned long kMenu = 16;
  SFrameHints hints{kFunctionsAreSet | kDecorationsAreSet, kMove, kBorder, 0, 0};
  hints.functions |= (classStyle & kNoClose) != 0 ? 0 : kClose;
  hints.decorations |= (windowStyle & kCaption) != 0 ? kTitle : 0;
  hints.decorations |= (windowStyle & kSystemMenu) != 0 ? kMenu : 0;
  return hints;
}

}  // namespace

class CNativeWindow::CImplementation : public INativeCanvas {
 public:
  explicit CImplementation(SNativeWindowClass windowClass) : myClass(std::move(windowClass)) {}
  ~CImplementation() override;

  bool Create(const std::string& title, const SBox& box, unsigned style);
  bool SetDefaultFont();
  void Resize(int width, int height);
  void Show();
  bool RunMessageLoop(CNativeWindow& owner);
  void Refresh();
  void DropInput();
  void Destroy();

  int CharWidth(char character) const override { return XTextWidth(myFont, &character, 1); }
  int LineHeight() const override { return std::max(1, myFont->ascent + myFont->descent); }
  void FillBox(const SBox& box, ENativeColor color) override;
  void Text(int x, int y, std::string_view text, const SBox& clip) override;

  CNativeForm form;
  std::string error;
  bool isQuitting = false;

 private:
  bool Fail(const std::string& reason);
  void AllocateColors();
  void SetAttributes();
  void TellWindowManager(const std::string& title, const SBox& box, unsigned style);
  void SetSizeHints(int width, int height);
  void SetProperty(const char* name, Atom type, const void* longs, int count);
  bool IsWindowThere() const;
  void Wait() const;
  void Handle(XEvent& event);
  void OnButton(const XButtonEvent& event);
  void OnKey(XKeyEvent& event);
  void Click(std::optional<int> button);
  void TakeSize(int width, int height);
  void Paint();

  CErrorGuard myGuard;
  SNativeWindowClass myClass;
  CNativeWindow* myOwner = nullptr;
  Display* myDisplay = nullptr;
  Window myWindow = 0;
  Pixmap myPicture = 0;  // drawn whole, then shown at once, so that nothing flickers
  GC myContext = nullptr;
  XFontStruct* myFont = nullptr;
  Atom myCloseRequest = 0;
  std::array<unsigned long, kColors.size()> myColors{};
  int myWidth = 0;
  int myHeight = 0;
  bool myIsPlaced = false;  // somebody has chosen its place
  bool myIsStale = false;
};

CNativeWindow::CImplementation::~CImplementation() {
  if (myDisplay == nullptr) {
    return;
  }
  Destroy();
  if (myFont != nullptr) {
    XFreeFont(myDisplay, myFont);
  }
  if (myContext != nullptr) {
    XFreeGC(myDisplay, myContext);
  }
  XCloseDisplay(myDisplay);
}

bool CNativeWindow::CImplementation::Fail(const std::string& reason) {
  error = myGuard.IsConnectionLost() ? "the display has gone" : reason;
  return false;
}

bool CNativeWindow::CImplementation::Create(const std::string& title, const SBox& box,
                                            unsigned style) {
  if (box.width > kLargestSide || box.height > kLargestSide) {
    return Fail("the window would be too large");
  }
  myDisplay = myGuard.Open();
  if (myDisplay == nullptr) {
    return Fail("there is no display");
  }
  AllocateColors();
  const Window root = DefaultRootWindow(myDisplay);
  const int x = box.x == kDefaultPosition ? 0 : box.x;
  const int y = box.y == kDefaultPosition ? 0 : box.y;
  const unsigned long face = myColors[static_cast<std::size_t>(ENativeColor::kFace)];
  myWindow = XCreateSimpleWindow(myDisplay, root, x, y, static_cast<unsigned>(box.width),
                                 static_cast<unsigned>(box.height), 0, face, face);
  if (!IsWindowThere()) {
    myWindow = 0;
    return Fail("the display refuses the window");
  }
  myContext = XCreateGC(myDisplay, myWindow, 0, nullptr);
  XSetGraphicsExposures(myDisplay, myContext, False);
  SetAttributes();
  TellWindowManager(title, box, style);
  TakeSize(box.width, box.height);
  return true;
}

void CNativeWindow::CImplementation::AllocateColors() {
  const int screen = DefaultScreen(myDisplay);
  for (std::size_t i = 0; i < kColors.size(); ++i) {
    XColor color{};
    const bool isThere =
        XParseColor(myDisplay, DefaultColormap(myDisplay, screen), kColors[i], &color) != 0 &&
        XAllocColor(myDisplay, DefaultColormap(myDisplay, screen), &color) != 0;
    const bool isText = i == static_cast<std::size_t>(ENativeColor::kText);
    const unsigned long plain =
        isText ? BlackPixel(myDisplay, screen) : WhitePixel(myDisplay, screen);
    myColors[i] = isThere ? color.pixel : plain;
  }
}

void CNativeWindow::CImplementation::SetAttributes() {
  XSetWindowAttributes attributes{};
  // A window that keeps its content gets no expose event when its size changes.
  attributes.bit_gravity =
      (myClass.style & (kRedrawOnWidth | kRedrawOnHeight)) != 0 ? ForgetGravity : NorthWestGravity;
  attributes.event_mask = ExposureMask | KeyPressMask | ButtonPressMask | ButtonReleaseMask |
                          ButtonMotionMask | StructureNotifyMask;
  XChangeWindowAttributes(myDisplay, myWindow, CWBitGravity | CWEventMask, &attributes);
  const Cursor cursor = XCreateFontCursor(myDisplay, XC_left_ptr);
  if (cursor != None) {
    XDefineCursor(myDisplay, myWindow, cursor);
  }
}

void CNativeWindow::CImplementation::TellWindowManager(const std::string& title, const SBox& box,
                                                       unsigned style) {
  XStoreName(myDisplay, myWindow, title.c_str());
  XClassHint name{myClass.name.data(), myClass.name.data()};
  XSetClassHint(myDisplay, myWindow, &name);

  myIsPlaced = box.x != kDefaultPosition;
  SetSizeHints(box.width, box.height);
  const SFrameHints frame = FrameHints(style, myClass.style);
  SetProperty("_MOTIF_WM_HINTS", XInternAtom(myDisplay, "_MOTIF_WM_HINTS", False), &frame, 5);
  const Atom dialog = XInternAtom(myDisplay, "_NET_WM_WINDOW_TYPE_DIALOG", False);
  SetProperty("_NET_WM_WINDOW_TYPE", XInternAtom(myDisplay, "ATOM", False), &dialog, 1);
  // Without it a window manager would cut the connection instead of asking.
  myCloseRequest = XInternAtom(myDisplay, "WM_DELETE_WINDOW", False);
  XSetWMProtocols(myDisplay, myWindow, &myCloseRequest, 1);
}

void CNativeWindow::CImplementation::SetSizeHints(int width, int height) {
  XSizeHints size{};
  size.flags = PSize | PMinSize | PMaxSize | (myIsPlaced ? PPosition : 0);
  size.width = size.min_width = size.max_width = width;
  size.height = size.min_height = size.max_height = height;
  XSetWMNormalHints(myDisplay, myWindow, &size);
}

void CNativeWindow::CImplementation::SetProperty(const char* name, Atom type, const void* longs,
                                                 int count) {
  XChangeProperty(myDisplay, myWindow, XInternAtom(myDisplay, name, False), type, 32,
                  PropModeReplace, static_cast<const unsigned char*>(longs), count);
}

bool CNativeWindow::CImplementation::IsWindowThere() const {
  XWindowAttributes attributes;
  return XGetWindowAttributes(myDisplay, myWindow, &attributes) != 0;
}

bool CNativeWindow::CImplementation::SetDefaultFont() {
  for (const char* name : kFonts) {
    myFont = myFont != nullptr ? myFont : XLoadQueryFont(myDisplay, name);
  }
  if (myFont == nullptr) {
    return Fail("the display has no font");
  }
  XSetFont(myDisplay, myContext, myFont->fid);
  return true;
}

void CNativeWindow::CImplementation::Resize(int width, int height) {
  SetSizeHints(width, height);
  XResizeWindow(myDisplay, myWindow, static_cast<unsigned>(width), static_cast<unsigned>(height));
  TakeSize(width, height);
}

void CNativeWindow::CImplementation::Show() {
  XMapRaised(myDisplay, myWindow);
  XFlush(myDisplay);
}

bool CNativeWindow::CImplementation::RunMessageLoop(CNativeWindow& owner) {
  myOwner = &owner;
  while (true) {
    while (!isQuitting && XPending(myDisplay) > 0) {
      XEvent event;
      XNextEvent(myDisplay, &event);
      Handle(event);
    }
    if (isQuitting) {
      return true;
    }
    if (myGuard.IsConnectionLost()) {
      return Fail({});
    }
    if (std::exchange(myIsStale, false)) {
      Paint();
    } else {
      Wait();
    }
  }
}

void CNativeWindow::CImplementation::Wait() const {
  pollfd connection{ConnectionNumber(myDisplay), POLLIN, 0};
  poll(&connection, 1, -1);
}

void CNativeWindow::CImplementation::Handle(XEvent& event) {
  switch (event.type) {
    case Expose:
      myIsStale = true;
      break;
    case ConfigureNotify:
      TakeSize(event.xconfigure.width, event.xconfigure.height);
      break;
    case DestroyNotify:
      myWindow = 0;
      isQuitting = true;
      break;
    case MappingNotify:
      XRefreshKeyboardMapping(&event.xmapping);
      break;
    case ButtonPress:
    case ButtonRelease:
      OnButton(event.xbutton);
      break;
    case MotionNotify:
      form.MovePointer(event.xmotion.x, event.xmotion.y, *this);
      myIsStale = true;
      break;
    case KeyPress:
      OnKey(event.xkey);
      break;
    case ClientMessage: {
      const auto& message = event.xclient;
      const bool asksToClose =
          message.format == 32 && static_cast<Atom>(message.data.l[0]) == myCloseRequest;
      if (asksToClose && (myClass.style & kNoClose) == 0) {
        Destroy();
        isQuitting = true;
      }
      break;
    }
    default:
      break;
  }
}

void CNativeWindow::CImplementation::OnButton(const XButtonEvent& event) {
  myIsStale = true;
  const bool isUp = event.button == Button4;
  if (event.type == ButtonPress && (isUp || event.button == Button5)) {
    form.Wheel(event.x, event.y, isUp ? -kWheelLines : kWheelLines, *this);
  }
  if (event.button != Button1) {
    return;
  }
  if (event.type == ButtonRelease) {
    form.MovePointer(event.x, event.y, *this);
    Click(form.Release());
    return;
  }
  // A window manager may have done that already; without one nobody else does.
  XSetInputFocus(myDisplay, myWindow, RevertToPointerRoot, event.time);
  form.Press(event.x, event.y, *this);
}

void CNativeWindow::CImplementation::OnKey(XKeyEvent& event) {
  std::array<char, 32> typed{};
  KeySym symbol = NoSymbol;
  const int length =
      XLookupString(&event, typed.data(), static_cast<int>(typed.size()), &symbol, nullptr);
  myIsStale = true;
  if (IsTab(symbol)) {
    form.FocusNext(IsBackwards(symbol, event.state));
    return;
  }
  const std::string_view text(typed.data(), static_cast<std::size_t>(length));
  Click(form.Key(ToNativeKey(symbol, event.state, text), *this));
}

void CNativeWindow::CImplementation::Click(std::optional<int> button) {
  if (!button) {
    return;
  }
  Refresh();
  myClass.procedure(*myOwner, *button);
}

void CNativeWindow::CImplementation::Refresh() {
  Paint();
  XSync(myDisplay, False);
}

void CNativeWindow::CImplementation::DropInput() {
  XSync(myDisplay, False);
  XEvent event;
  while (XCheckMaskEvent(myDisplay, KeyPressMask | ButtonPressMask | ButtonReleaseMask, &event)) {
  }
}

void CNativeWindow::CImplementation::TakeSize(int width, int height) {
  myIsStale = true;
  if (width == myWidth && height == myHeight) {
    return;
  }
  myWidth = width;
  myHeight = height;
  if (myPicture != 0) {
    XFreePixmap(myDisplay, myPicture);
  }
  const int depth = DefaultDepth(myDisplay, DefaultScreen(myDisplay));
  myPicture = XCreatePixmap(myDisplay, myWindow, static_cast<unsigned>(width),
                            static_cast<unsigned>(height), static_cast<unsigned>(depth));
}

void CNativeWindow::CImplementation::Paint() {
  if (myWindow == 0) {
    return;
  }
  FillBox({0, 0, myWidth, myHeight}, ENativeColor::kFace);
  form.Draw(*this);
  XCopyArea(myDisplay, myPicture, myWindow, myContext, 0, 0, static_cast<unsigned>(myWidth),
            static_cast<unsigned>(myHeight), 0, 0);
}

void CNativeWindow::CImplementation::FillBox(const SBox& box, ENativeColor color) {
  XSetForeground(myDisplay, myContext, myColors[static_cast<std::size_t>(color)]);
  XFillRectangle(myDisplay, myPicture, myContext, box.x, box.y, static_cast<unsigned>(box.width),
                 static_cast<unsigned>(box.height));
}

void CNativeWindow::CImplementation::Text(int x, int y, std::string_view text, const SBox& clip) {
  XRectangle rectangle{static_cast<short>(clip.x), static_cast<short>(clip.y),
                       static_cast<unsigned short>(clip.width),
                       static_cast<unsigned short>(clip.height)};
  XSetClipRectangles(myDisplay, myContext, 0, 0, &rectangle, 1, Unsorted);
  XSetForeground(myDisplay, myContext, myColors[static_cast<std::size_t>(ENativeColor::kText)]);
  XDrawString(myDisplay, myPicture, myContext, x, y + myFont->ascent, text.data(),
              static_cast<int>(text.size()));
  XSetClipMask(myDisplay, myContext, None);
}

void CNativeWindow::CImplementation::Destroy() {
  if (myPicture != 0) {
    XFreePixmap(myDisplay, std::exchange(myPicture, 0));
  }
  if (myWindow != 0) {
    XDestroyWindow(myDisplay, std::exchange(myWindow, 0));
  }
}

CNativeWindow::CNativeWindow(SNativeWindowClass windowClass)
    : myImplementation(std::make_unique<CImplementation>(std::move(windowClass))) {}

CNativeWindow::~CNativeWindow() = default;

bool CNativeWindow::Create(const std::string& title, const SBox& box, unsigned style) {
  return myImplementation->Create(title, box, style);
}

bool CNativeWindow::SetDefaultFont() { return myImplementation->SetDefaultFont(); }

std::size_t CNativeWindow::AddControl(EControlKind kind, const std::string& text, const SBox& box,
                                      int id, unsigned style) {
  return myImplementation->form.Add(kind, text, box, id, style);
}

int CNativeWindow::GetTextHeight(const std::string& text, int width) const {
  return TextHeight(text, width, *myImplementation);
}

void CNativeWindow::Resize(int width, int height) { myImplementation->Resize(width, height); }

void CNativeWindow::Show() { myImplementation->Show(); }

const std::string& CNativeWindow::GetText(std::size_t control) const {
  return myImplementation->form.GetControl(control).GetText();
}

void CNativeWindow::SetText(std::size_t control, const std::string& text) {
  myImplementation->form.GetControl(control).SetText(text);
}

bool CNativeWindow::RunMessageLoop() { return myImplementation->RunMessageLoop(*this); }

void CNativeWindow::Refresh() { myImplementation->Refresh(); }

void CNativeWindow::DropInput() { myImplementation->DropInput(); }

void CNativeWindow::Destroy() { myImplementation->Destroy(); }

void CNativeWindow::PostQuitMessage() { myImplementation->isQuitting = true; }

const std::string& CNativeWindow::GetError() const { return myImplementation->error; }

}  // namespace vask::platform
