#include "events/eventbridge.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vask {
namespace {

CEventBridge& Bridge() { return CEventBridge::GetSingleton(); }

// Writes every call down, then does what the test wants of it, once.
struct CListener : IWindowListener, IKeyboardListener, IMouseListener {
  CListener(const char* itsName, std::string& itsRecord) : name(itsName), record(itsRecord) {
    Bridge().AddWindowListener(this);
    for (int twice = 0; twice < 2; ++twice) {
      Bridge().AddKeyboardListener(this);
      Bridge().AddMouseListener(this);
    }
  }
  void OnResize(int w, int h) override { Note("resize", w, h); }
  void OnFocus(bool gained) override { Note("focus", gained, 0); }
  void OnKeyDown(int key) override { Note("down", key, GetCharacter()); }
  void OnKeyUp(int key) override { Note("up", key, GetCharacter()); }
  void OnMouseMove(int x, int y) override { Note("move", x, y); }
  void OnMouseMoveRelative(int x, int y) override { Note("relative", x, y); }
  void OnMouseButtonDown(int button) override { Note("press", button, 0); }
  void OnMouseButtonUp(int button) override { Note("release", button, 0); }
  void Note(const std::string& what, int a, int b) {
    record += name + (" " + what) + " " + std::to_string(a) + " " + std::to_string(b) + "\n";
    if (const auto once = std::exchange(react, nullptr)) {
      once();
    }
  }
  const char* name;
  std::string& record;
  std::function<void()> react;
};

TEST(EventBridge, ListenersComeAndGoDuringEveryDispatch) {
  const std::pair<std::string, std::function<void()>> events[] = {
      {" resize 640 480\n", [] { Bridge().Resize(640, 480); }},
      {" focus 1 0\n", [] { Bridge().FocusEvent(true); }},
      {" down 27 65\n", [] { Bridge().KeyDown(27, 'A'); }},
      {" up 27 0\n", [] { Bridge().KeyUp(27, 0); }},
      {" press 16 0\n", [] { Bridge().MouseButtonDown(16); }},
      {" release 4 0\n", [] { Bridge().MouseButtonUp(4); }},
  };
  for (const auto& [what, send] : events) {
    std::string record;
    CListener first("a", record);
    auto second = std::make_unique<CListener>("b", record);
    std::unique_ptr<CListener> late;
    first.react = [&] { late = std::make_unique<CListener>("late", record); };
    second->react = [&] { second.reset(); };
    send();
    EXPECT_EQ(std::exchange(record, {}), "a" + what + "b" + what) << "the late one waits";
    first.react = [&] { late.reset(); };
    send();
    EXPECT_EQ(record, "a" + what) << "the one behind has left";
  }
  std::string record;
  auto first = std::make_unique<CListener>("a", record);
  const CListener second("b", record);
  first->react = [&] { first.reset(); };
  Bridge().MouseMove(1, 2, -3, 4);
  EXPECT_EQ(record, "a move 1 2\nb move 1 2\nb relative -3 4\n");
}

TEST(EventBridge, ResizesGoInTheOrderOfRegistration) {
  struct COwner {
    void OnResize(int width, int height) { *record += "owner " + std::to_string(width + height); }
    std::string* record;
  };
  std::string record;
  COwner owner{&record};
  CListener second("b", record);
  Bridge().AddResizeListener(&owner);
  Bridge().AddResizeListener(&owner);
  const CListener first("a", record);
  Bridge().Resize(1, 2);
  EXPECT_EQ(std::exchange(record, {}), "b resize 1 2\nowner 3owner 3a resize 1 2\n");
  Bridge().RemoveResizeListener(&owner);
  Bridge().RemoveWindowListener(&second);
  Bridge().Resize(3, 4);
  Bridge().FocusEvent(false);
  EXPECT_EQ(record, "a resize 3 4\na focus 0 0\n");
  EXPECT_EQ(Bridge().GetWidth() * 10 + Bridge().GetHeight(), 34);
  CEventBridge::DeleteSingleton();  // and the listeners, who outlive it, do not raise it again
}

}  // namespace
}  // namespace vask
