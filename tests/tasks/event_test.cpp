#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <sstream>

#include "events/eventbridge.h"
#include "gfx/sdl/video.h"
#include "kernel/kernel.h"
#include "tasks/cursorimages.h"
#include "tasks/taskeventsdl.h"

namespace vask::test {

namespace {

// Writes down what the bridge hands out.
class CRecorder : public IWindowListener, public IKeyboardListener, public IMouseListener {
 public:
  CRecorder() {
    CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
    bridge.AddWindowListener(this);
    bridge.AddKeyboardListener(this);
    bridge.AddMouseListener(this);
  }
  void OnResize(int width, int height) override { Note("resize", width, height); }
  void OnFocus(bool gained) override { Note("focus", gained); }
  void OnKeyDown(int key) override { Note("down", key, GetCharacter()); }
  void OnKeyUp(int key) override { Note("up", key, GetCharacter()); }
  void OnMouseMove(int x, int y) override { Note("move", x, y); }
  void OnMouseMoveRelative(int dx, int dy) override { Note("by", dx, dy); }
  void OnMouseButtonDown(int button) override { Note("press", button); }
  void OnMouseButtonUp(int button) override { Note("release", button); }

  std::string Take() {
    const std::string text = myText.str();
    myText.str({});
    return text;
  }

 private:
  template <typename... Values>
  void Note(const char* name, Values... values) {
    myText << name;
    ((myText << ' ' << values), ...);
    myText << '\n';
  }
  std::ostringstream myText;
};

SDL_Event Key(int type, SDLKey sym, int unicode) {
  SDL_Event event{};
  event.type = static_cast<Uint8>(type);
  event.key.keysym.sym = sym;
  event.key.keysym.unicode = static_cast<Uint16>(unicode);
  return event;
}

SDL_Event Button(int type, int button) {
  SDL_Event event{};
  event.type = static_cast<Uint8>(type);
  event.button.button = static_cast<Uint8>(button);
  return event;
}

SDL_Event Active(int state, int gain) {
  SDL_Event event{};
  event.type = SDL_ACTIVEEVENT;
  event.active.state = static_cast<Uint8>(state);
  event.active.gain = static_cast<Uint8>(gain);
  return event;
}

SDL_Event Motion(int x, int y, int dx, int dy) {
  SDL_Event event{};
  event.motion = {SDL_MOUSEMOTION,
                  0,
                  0,
                  static_cast<Uint16>(x),
                  static_cast<Uint16>(y),
                  static_cast<Sint16>(dx),
                  static_cast<Sint16>(dy)};
  return event;
}

SDL_Event Resize(int width, int height) {
  SDL_Event event{};
  event.resize = {SDL_VIDEORESIZE, width, height};
  return event;
}

class CEventTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    sdl::OpenVideoMode(32, 32, 32, 0);
    for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
    }
    myTask->Start();
  }
  void TearDown() override {
    myTask.reset();
    SDL_Quit();
  }

  std::unique_ptr<CTaskEventSDL> myTask = std::make_unique<CTaskEventSDL>();
};

}  // namespace

TEST_F(CEventTest, EveryEventReachesItsListeners) {
  CRecorder recorder;
  struct {
    SDL_Event event;
    const char* heard;
  } const cases[] = {
      {Active(SDL_APPINPUTFOCUS, 1), "focus 1\n"},
      {Active(SDL_APPINPUTFOCUS | SDL_APPACTIVE, 0), "focus 0\n"},
      {Active(SDL_APPMOUSEFOCUS | SDL_APPACTIVE, 1), ""},
      {Key(SDL_KEYDOWN, SDLK_a, 'A'), "down 97 A\n"},
      {Key(SDL_KEYUP, SDLK_a, 127), "up 97 \x7f\n"},
      {Motion(60000, 7, -3, 4), "move 60000 7\nby -3 4\n"},
      {Button(SDL_MOUSEBUTTONDOWN, 1), "press 1\n"},
      {Button(SDL_MOUSEBUTTONDOWN, 2), "press 2\n"},
      {Button(SDL_MOUSEBUTTONUP, 3), "release 4\n"},
      {Button(SDL_MOUSEBUTTONDOWN, 4), "press 8\n"},
      {Button(SDL_MOUSEBUTTONUP, 5), "release 16\n"},
      {Button(SDL_MOUSEBUTTONUP, 6), "release 0\n"},
      {Resize(70, 50), "resize 70 50\n"},
      {SDL_Event{SDL_VIDEOEXPOSE}, ""},
  };
  for (const auto& c : cases) {
    SDL_Event event = c.event;
    ASSERT_EQ(SDL_PushEvent(&event), 0);
    myTask->Update();
    EXPECT_EQ(recorder.Take(), c.heard) << "event " << int{c.event.type};
  }
  for (const int unicode : {0, 128, 0x20AC}) {
    SDL_Event event = Key(SDL_KEYDOWN, SDLK_F1, unicode);
    SDL_PushEvent(&event);
    myTask->Update();
    EXPECT_EQ(recorder.Take(), std::string("down 282 ") + '\0' + '\n') << unicode;
  }
}

TEST_F(CEventTest, OneUpdateDrainsTheQueueAndAsksForCharacters) {
  CRecorder recorder;
  for (int i = 0; i < 20; ++i) {
    SDL_Event event = Button(SDL_MOUSEBUTTONDOWN, 1 + i % 3);
    SDL_PushEvent(&event);
  }
  SDL_EnableUNICODE(0);
  myTask->Update();
  EXPECT_EQ(recorder.Take().size(), 20 * std::string("press 1\n").size());
  EXPECT_EQ(SDL_EnableUNICODE(-1), 1);
}

TEST_F(CEventTest, ClosingTheWindowAsksTheKernelToQuit) {
  struct CCounter : CTask {
    void Update() override { ++updates; }
    int updates = 0;
  } counter;
  SDL_Event event{SDL_QUIT};
  SDL_PushEvent(&event);
  CKernel::GetSingletonPtr()->StartTask(&counter, nullptr);
  myTask->Update();
  CKernel::GetSingletonPtr()->Run();
  EXPECT_EQ(counter.updates, 1);
  CKernel::DeleteSingleton();
}

TEST_F(CEventTest, CursorChangesOnlyToOtherKnownTypes) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  SDL_Cursor* const initial = SDL_GetCursor();
  for (const int type : {0, -1, 10}) {
    bridge.ChangeCursor(type);
    EXPECT_EQ(SDL_GetCursor(), initial) << type;
  }
  std::set<std::vector<Uint8>> shapes;
  for (int type = 1; type <= 9; ++type) {
    bridge.ChangeCursor(type);
    const SDL_Cursor* cursor = SDL_GetCursor();
    shapes.insert(std::vector<Uint8>(cursor->data, cursor->data + 128));
    bridge.ChangeCursor(type);
    EXPECT_EQ(SDL_GetCursor(), cursor);
    EXPECT_EQ(cursor->hot_x, GetCursorImage(type)->hotX);
  }
  EXPECT_EQ(shapes.size(), 9U);
  myTask->Exit();
  EXPECT_EQ(SDL_GetCursor(), initial);
  bridge.ChangeCursor(1);
  EXPECT_EQ(SDL_GetCursor(), initial);
}

TEST_F(CEventTest, ShowAndHide) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.HideCursor();
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
  bridge.ShowCursor();
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
}

TEST_F(CEventTest, HooksAreSafeWithoutVideoAndInAnyOrder) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.ChangeCursor(4);
  SDL_Quit();
  for (const int type : {5, 4}) {
    bridge.ChangeCursor(type);
  }
  bridge.ShowCursor();
  bridge.HideCursor();
  bridge.GrabInput(true);
  myTask->Update();
  myTask->Exit();
  myTask->Exit();
  // A task that never started leaves the hardware of another alone.
  CTaskEventSDL running;
  running.Start();
  myTask->Exit();
  SDL_Init(SDL_INIT_VIDEO);
  bridge.HideCursor();
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
}

TEST(CursorImages, FitTheirShapes) {
  struct {
    std::size_t width, height;
  } const sizes[] = {{12, 19}, {27, 28}, {7, 16},  {16, 19}, {13, 22},
                     {21, 9},  {11, 21}, {15, 15}, {15, 15}};
  for (int type = 1; type <= 9; ++type) {
    const SCursorImage& image = *GetCursorImage(type);
    const auto& size = sizes[type - 1];
    std::size_t width = 0;
    for (const std::string_view row : image.rows) {
      width = std::max(width, row.size());
      EXPECT_EQ(row.find_first_not_of("X. "), std::string_view::npos) << row;
    }
    EXPECT_EQ(width, size.width) << type;
    EXPECT_EQ(image.rows.size(), size.height) << type;
  }
  EXPECT_EQ(GetCursorImage(0), nullptr);
  EXPECT_EQ(GetCursorImage(10), nullptr);
}

TEST(CursorImages, PlanesHaveTheLeftmostPixelInTheHighestBit) {
  const std::string_view rows[] = {"X.. X   .", "                               ."};
  const SCursorPlanes planes = MakeCursorPlanes({rows, 0, 0});
  const Uint8 data[] = {0x88, 0, 0, 0, 0, 0, 0, 0, 0};
  const Uint8 mask[] = {0xE8, 0x80, 0, 0, 0, 0, 0, 0x01, 0};
  for (std::size_t i = 0; i < std::size(data); ++i) {
    EXPECT_EQ(planes.data[i], data[i]) << i;
    EXPECT_EQ(planes.mask[i], mask[i]) << i;
  }
}

}  // namespace vask::test
