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
class CListener : public IWindowListener, public IKeyboardListener, public IMouseListener {
 public:
  CListener(std::string name, std::string& record) : myName(std::move(name)), myRecord(record) {}

  void OnResize(int w, int h) override { Note("resize", w, h); }
  void OnFocus(bool gained) override { Note("focus", gained, 0); }
  void OnKeyDown(int key) override { Note("down", key, GetCharacter()); }
  void OnKeyUp(int key) override { Note("up", key, GetCharacter()); }
  void OnMouseMove(int x, int y) override { Note("move", x, y); }
  void OnMouseMoveRelative(int x, int y) override { Note("relative", x, y); }
  void OnMouseButtonDown(int button) override { Note("press", button, 0); }
  void OnMouseButtonUp(int button) override { Note("release", button, 0); }

  void Join() {
    Bridge().AddWindowListener(this);
    Bridge().AddKeyboardListener(this);
    Bridge().AddMouseListener(this);
  }

  std::function<void()> react;

 private:
  void Note(const std::string& what, int a, int b) {
    myRecord += myName + " " + what + " " + std::to_string(a) + " " + std::to_string(b) + "\n";
    if (const auto once = std::exchange(react, nullptr)) {
      once();
    }
  }

  std::string myName;
  std::string& myRecord;
};

// clang-format off
const struct {
  const char* name;
  std::function<void()> send;
} kEvents[] = {
    {" resize 640 480\n", [] { Bridge().Resize(640, 480); }},
    {" focus 1 0\n", [] { Bridge().FocusEvent(true); }},
    {" down 27 65\n", [] { Bridge().KeyDown(27, 'A'); }},
    {" up 27 0\n", [] { Bridge().KeyUp(27, 0); }},
    {" press 16 0\n", [] { Bridge().MouseButtonDown(16); }},
    {" release 4 0\n", [] { Bridge().MouseButtonUp(4); }},
};
// clang-format on

TEST(EventBridge, ListenersComeAndGoDuringEveryDispatch) {
  for (const auto& event : kEvents) {
    std::string record;
    std::vector<std::unique_ptr<CListener>> all;
    for (const char* name : {"a", "b", "c"}) {
      all.push_back(std::make_unique<CListener>(name, record));
      all.back()->Join();
    }
    CListener late("late", record);
    all[0]->react = [&] { late.Join(); };     // waits for the next event
    all[1]->react = [&] { all[1].reset(); };  // dies in its own call
    const std::string what = event.name;
    event.send();
    EXPECT_EQ(std::exchange(record, {}), "a" + what + "b" + what + "c" + what);
    all[0]->react = [&] { all.clear(); };  // itself, and the one behind
    event.send();
    EXPECT_EQ(record, "a" + what + "late" + what);
  }
}

TEST(EventBridge, AListenerHearsEachMotionOnceWhileItStays) {
  std::string record;
  auto first = std::make_unique<CListener>("a", record);
  CListener second("b", record);
  Bridge().AddMouseListener(first.get());
  Bridge().AddMouseListener(&second);
  Bridge().AddMouseListener(&second);
  first->react = [&] { first.reset(); };
  Bridge().MouseMove(1, 2, -3, 4);
  EXPECT_EQ(record, "a move 1 2\nb move 1 2\nb relative -3 4\n");
}

struct COwner {
  void OnResize(int width, int height) { *record += "owner " + std::to_string(width + height); }
  std::string* record;
};

TEST(EventBridge, ResizesGoInTheOrderOfRegistration) {
  std::string record;
  CListener first("a", record);
  CListener second("b", record);
  Bridge().Resize(3, 4);
  EXPECT_EQ(Bridge().GetWidth() * 10 + Bridge().GetHeight(), 34);
  COwner owner{&record};
  second.Join();
  Bridge().AddResizeListener(&owner);
  Bridge().AddResizeListener(&owner);
  first.Join();
  Bridge().Resize(1, 1);
  EXPECT_EQ(std::exchange(record, {}), "b resize 1 1\nowner 2owner 2a resize 1 1\n");
  Bridge().RemoveResizeListener(&owner);
  Bridge().RemoveWindowListener(&second);
  Bridge().Resize(2, 2);
  Bridge().FocusEvent(false);
  EXPECT_EQ(record, "a resize 2 2\na focus 0 0\n");
}

TEST(EventBridge, ListenersThatOutliveTheBridgeDoNotRaiseIt) {
  std::string record;
  auto listener = std::make_unique<CListener>("a", record);
  listener->Join();
  CEventBridge::DeleteSingleton();
  listener.reset();
  EXPECT_EQ(CEventBridge::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace vask
