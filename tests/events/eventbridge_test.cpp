#include "events/eventrecorder.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

CEventBridge& Bridge() { return CEventBridge::GetSingleton(); }

TEST(EventBridge, ListenersComeAndGoDuringEveryDispatch) {
  // clang-format off
  const std::pair<std::string, std::function<void()>> events[] = {
      {"resize 4 5\n", [] { Bridge().Resize(4, 5); }}, {"focus 1 0\n", [] { Bridge().FocusEvent(true); }},
      {"down 7 65\n", [] { Bridge().KeyDown(7, 'A'); }}, {"release 4 0\n", [] { Bridge().MouseButtonUp(4); }},
      {"press 16 0\n", [] { Bridge().MouseButtonDown(16); }}, {"up 27 0\n", [] { Bridge().KeyUp(27, 0); }},
  };
  // clang-format on
  for (const auto& [what, send] : events) {
    std::string record;
    CEventRecorder first("a ", record);
    auto second = std::make_unique<CEventRecorder>("b ", record);
    std::unique_ptr<CEventRecorder> late;
    first.react = [&] { late = std::make_unique<CEventRecorder>("late ", record); };
    second->react = [&] { second.reset(); };
    send();
    EXPECT_EQ(std::exchange(record, {}), "a " + what + "b " + what) << "the late one waits";
    first.react = [&] { late.reset(); };
    send();
    EXPECT_EQ(record, "a " + what) << "the one behind has left";
  }
}

TEST(EventBridge, AListenerMayDieBetweenTheTwoPartsOfAMotion) {
  std::string record;
  auto first = std::make_unique<CEventRecorder>("a ", record);
  const CEventRecorder second("b ", record);
  first->react = [&] { first.reset(); };
  Bridge().MouseMove(1, 2, -3, 4);
  EXPECT_EQ(record, "a move 1 2\nb move 1 2\nb by -3 4\n");
  CEventBridge::DeleteSingleton();  // and the listener, who outlives it, does not raise it again
}

}  // namespace
}  // namespace vask::test
