#include "events/eventbridge.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vask {
namespace {

// Writes every call down, then does what the test wants of it.
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

  void Join(CEventBridge& bridge) {
    bridge.AddWindowListener(this);
    bridge.AddKeyboardListener(this);
    bridge.AddMouseListener(this);
  }

  std::function<void()> react;

 private:
  void Note(const std::string& what, int first, int second) {
    myRecord +=
        myName + " " + what + " " + std::to_string(first) + " " + std::to_string(second) + "\n";
    if (react) {
      const auto once = std::exchange(react, nullptr);
      once();
    }
  }

  std::string myName;
  std::string& myRecord;
};

class EventBridgeTest : public testing::Test {
 protected:
  EventBridgeTest() {
    CEventBridge::DeleteSingleton();
    for (const char* name : {"a", "b", "c"}) {
      listeners.push_back(std::make_unique<CListener>(name, record));
    }
  }
  ~EventBridgeTest() override { listeners.clear(); }

  CEventBridge& Bridge() { return CEventBridge::GetSingleton(); }
  std::string Take() { return std::exchange(record, {}); }

  std::string record;
  std::vector<std::unique_ptr<CListener>> listeners;
};

struct CEvent {
  const char* name;
  std::function<void(CEventBridge&)> send;
};

const std::vector<CEvent> kEvents = {
    {"resize 640 480", [](CEventBridge& b) { b.Resize(640, 480); }},
    {"focus 1 0", [](CEventBridge& b) { b.FocusEvent(true); }},
    {"down 27 65", [](CEventBridge& b) { b.KeyDown(27, 'A'); }},
    {"up 27 0", [](CEventBridge& b) { b.KeyUp(27, 0); }},
    {"press 16 0", [](CEventBridge& b) { b.MouseButtonDown(16); }},
    {"release 4 0", [](CEventBridge& b) { b.MouseButtonUp(4); }},
};

TEST_F(EventBridgeTest, EachListenerHearsEachEventOnce) {
  for (int twice = 0; twice < 2; ++twice) {
    listeners[0]->Join(Bridge());
  }
  for (const CEvent& event : kEvents) {
    event.send(Bridge());
    EXPECT_EQ(Take(), "a " + std::string(event.name) + "\n");
  }
  Bridge().MouseMove(3, 4, -1, 2);
  EXPECT_EQ(Take(), "a move 3 4\na relative -1 2\n");
}

TEST_F(EventBridgeTest, ListenersComeAndGoDuringEveryDispatch) {
  for (const CEvent& event : kEvents) {
    const std::string what = std::string(" ") + event.name + "\n";
    for (const auto& listener : {"a", "b", "c"}) {
      listeners.push_back(std::make_unique<CListener>(listener, record));
    }
    listeners.erase(listeners.begin(), listeners.begin() + 3);
    for (const auto& listener : listeners) {
      listener->Join(Bridge());
    }
    CListener late("late", record);
    listeners[0]->react = [&] { late.Join(Bridge()); };   // waits for the next event
    listeners[1]->react = [&] { listeners[1].reset(); };  // dies in its own call
    event.send(Bridge());
    EXPECT_EQ(Take(), "a" + what + "b" + what + "c" + what);
    listeners[0]->react = [&] {  // the one behind dies, and so do all others, the caller included
      listeners[2].reset();
      listeners[0].reset();
    };
    event.send(Bridge());
    EXPECT_EQ(Take(), "a" + what + "late" + what);
  }
}

TEST_F(EventBridgeTest, WhoLeavesInTheMotionHearsNoRelativeMotion) {
  listeners[0]->Join(Bridge());
  listeners[1]->Join(Bridge());
  listeners[0]->react = [this] { listeners[0].reset(); };
  Bridge().MouseMove(1, 2, 3, 4);
  EXPECT_EQ(Take(), "a move 1 2\nb move 1 2\nb relative 3 4\n");
}

struct COwner {
  void OnResize(int width, int height) { *record += "owner " + std::to_string(width + height); }
  std::string* record;
};

TEST_F(EventBridgeTest, ResizesGoInTheOrderOfRegistration) {
  Bridge().Resize(3, 4);
  EXPECT_EQ(Bridge().GetWidth() * 10 + Bridge().GetHeight(), 34);
  COwner owner{&record};
  listeners[1]->Join(Bridge());
  Bridge().AddResizeListener(&owner);
  Bridge().AddResizeListener(&owner);
  listeners[0]->Join(Bridge());
  Bridge().Resize(1, 1);
  EXPECT_EQ(Take(), "b resize 1 1\nowner 2owner 2a resize 1 1\n");
  Bridge().RemoveResizeListener(&owner);
  Bridge().RemoveWindowListener(listeners[1].get());
  Bridge().Resize(2, 2);
  Bridge().FocusEvent(false);
  EXPECT_EQ(Take(), "a resize 2 2\na focus 0 0\n");
}

TEST_F(EventBridgeTest, ListenersThatOutliveTheBridgeDoNotRaiseIt) {
  listeners[0]->Join(Bridge());
  CEventBridge::DeleteSingleton();
  listeners.clear();
  EXPECT_EQ(CEventBridge::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace vask
