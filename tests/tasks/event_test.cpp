#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "events/eventbridge.h"
#include "gfx/sdl/video.h"
#include "support/tasks.h"
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
  void OnResize(int width, int height) override { Note("resize ", width, height); }
  void OnFocus(bool gained) override { Note("focus ", gained); }
  void OnKeyDown(int key) override { Note("down ", key, GetCharacter()); }
  void OnKeyUp(int key) override { Note("up ", key, GetCharacter()); }
  void OnMouseMove(int x, int y) override { Note("move ", x, y); }
  void OnMouseMoveRelative(int dx, int dy) override { Note("by ", dx, dy); }
  void OnMouseButtonDown(int button) override { Note("press ", button); }
  void OnMouseButtonUp(int button) override { Note("release ", button); }

  void Note(const char* what, int first, std::optional<int> second = {}) {
    text += what + std::to_string(first) + (second ? " " + std::to_string(*second) : "") + "\n";
  }
  std::string text;
};

class CEventTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    sdl::OpenVideoMode(32, 32, 32, 0);
    myTask->Start();
    myTask->Update();  // the window's own first events
  }
  void TearDown() override {
    myTask.reset();
    SDL_Quit();
  }

  CEventBridge& myBridge = *CEventBridge::GetSingletonPtr();
  std::unique_ptr<CTaskEventSDL> myTask = std::make_unique<CTaskEventSDL>();
};

}  // namespace

TEST_F(CEventTest, EveryEventReachesItsListeners) {
  CRecorder recorder;
  struct {
    SDL_Event event;
    const char* heard;
  } cases[] = {
      {{.active = {SDL_ACTIVEEVENT, 1, SDL_APPINPUTFOCUS}}, "focus 1\n"},
      {{.active = {SDL_ACTIVEEVENT, 0, SDL_APPINPUTFOCUS | SDL_APPACTIVE}}, "focus 0\n"},
      {{.active = {SDL_ACTIVEEVENT, 1, SDL_APPMOUSEFOCUS | SDL_APPACTIVE}}, ""},
      {{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_a, KMOD_NONE, 'A'}}}, "down 97 65\n"},
      {{.key = {SDL_KEYUP, 0, 0, {0, SDLK_a, KMOD_NONE, 127}}}, "up 97 127\n"},
      {{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_F1, KMOD_NONE, 128}}}, "down 282 0\n"},
      {{.key = {SDL_KEYUP, 0, 0, {0, SDLK_F1, KMOD_NONE, 0x2041}}}, "up 282 0\n"},
      {{.motion = {SDL_MOUSEMOTION, 0, 0, 60000, 7, -3, 4}}, "move 60000 7\nby -3 4\n"},
      {{.button = {SDL_MOUSEBUTTONDOWN, 0, 1, 0, 0, 0}}, "press 1\n"},
      {{.button = {SDL_MOUSEBUTTONDOWN, 0, 2, 0, 0, 0}}, "press 2\n"},
      {{.button = {SDL_MOUSEBUTTONUP, 0, 3, 0, 0, 0}}, "release 4\n"},
      {{.button = {SDL_MOUSEBUTTONDOWN, 0, 4, 0, 0, 0}}, "press 8\n"},
      {{.button = {SDL_MOUSEBUTTONUP, 0, 5, 0, 0, 0}}, "release 16\n"},
      {{.button = {SDL_MOUSEBUTTONUP, 0, 6, 0, 0, 0}}, "release 0\n"},
      {{.resize = {SDL_VIDEORESIZE, 70, 50}}, "resize 70 50\n"},
      {{.expose = {SDL_VIDEOEXPOSE}}, ""},
      {{.quit = {SDL_QUIT}}, ""},
  };
  std::string expected;
  for (auto& c : cases) {
    ASSERT_EQ(SDL_PushEvent(&c.event), 0);
    expected += c.heard;
  }
  SDL_EnableUNICODE(0);
  myTask->Update();
  EXPECT_EQ(recorder.text, expected);
  EXPECT_EQ(SDL_EnableUNICODE(-1), 1);
  EXPECT_TRUE(IsQuitting());
  EXPECT_FALSE(IsQuitting());
}

TEST_F(CEventTest, CursorChangesOnlyToOtherKnownTypes) {
  SDL_Cursor* const initial = SDL_GetCursor();
  for (const int type : {0, -1, 10}) {
    myBridge.ChangeCursor(type);
    EXPECT_EQ(SDL_GetCursor(), initial) << type;
  }
  std::set<std::vector<Uint8>> shapes;
  for (int type = 1; type <= 9; ++type) {
    myBridge.ChangeCursor(type);
    const SDL_Cursor* cursor = SDL_GetCursor();
    shapes.insert(std::vector<Uint8>(cursor->data, cursor->data + 128));
    myBridge.ChangeCursor(type);
    EXPECT_EQ(SDL_GetCursor(), cursor);
  }
  EXPECT_EQ(shapes.size(), 9U);
  myTask->Exit();
  EXPECT_EQ(SDL_GetCursor(), initial);
  myBridge.ChangeCursor(1);
  EXPECT_EQ(SDL_GetCursor(), initial);
}

TEST_F(CEventTest, HooksAreSafeWithoutVideoAndInAnyOrder) {
  myBridge.ChangeCursor(4);
  SDL_Quit();
  myBridge.ChangeCursor(5);
  myBridge.ShowCursor();
  myBridge.GrabInput(true);
  myTask->Update();
  myTask->Exit();
  // A task that is not running leaves the hardware of another alone.
  CTaskEventSDL running;
  running.Start();
  myTask->Exit();
  SDL_Init(SDL_INIT_VIDEO);
  for (const int state : {SDL_DISABLE, SDL_ENABLE}) {
    state == SDL_ENABLE ? myBridge.ShowCursor() : myBridge.HideCursor();
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), state);
  }
}

TEST(CursorImages, PlanesHaveTheLeftmostPixelInTheHighestBit) {
  const std::string_view rows[] = {"X.. X   .", "                               ."};
  const SCursorPlanes planes = MakeCursorPlanes({rows, 0, 0});
  const Uint8 data[] = {0x88, 0, 0, 0, 0, 0, 0, 0, 0};
  const Uint8 mask[] = {0xE8, 0x80, 0, 0, 0, 0, 0, 0x01, 0};
  EXPECT_TRUE(std::equal(std::begin(data), std::end(data), planes.data.begin()));
  EXPECT_TRUE(std::equal(std::begin(mask), std::end(mask), planes.mask.begin()));
}

}  // namespace vask::test
