#include "events/eventrecorder.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

CEventBridge& Bridge() { return CEventBridge::GetSingleton(); }

TEST(EventBridge, ListenersComeAndGoDuringEveryDispatch) {
  const struct {
    std::string heard;
    std::function<void()> send;
  } events[] = {
      {.heard = "resize 4 5\n", .send = [] { Bridge().Resize(4, 5); }},
      {.heard = "down 7 65\n", .send = [] { Bridge().KeyDown(7, 'A'); }},
      {.heard = "press 16 0\n", .send = [] { Bridge().MouseButtonDown(16); }},
  };
  for (const auto& [heard, send] : events) {
    std::string record;
    CEventRecorder first("a ", record);
    auto second = std::make_unique<CEventRecorder>("b ", record);
    std::unique_ptr<CEventRecorder> late;
    first.react = [&] { late = std::make_unique<CEventRecorder>("late ", record); };
    second->react = [&] { second.reset(); };
    send();
    EXPECT_EQ(std::exchange(record, {}), "a " + heard + "b " + heard) << "the late one waits";
    first.react = [&] { late.reset(); };
    send();
    EXPECT_EQ(record, "a " + heard) << "the one after it has left";
  }
}

TEST(EventBridge, AListenerMayDieBetweenTheTwoPartsOfAMotion) {
  std::string record;
  auto first = std::make_unique<CEventRecorder>("a ", record);
  const CEventRecorder second("b ", record);
  first->react = [&] { first.reset(); };
  Bridge().MouseMove(1, 2, -3, 4);
  EXPECT_EQ(record, "a move 1 2\nb move 1 2\nb by -3 4\n");
  CEventBridge::DeleteSingleton();  // and the listener, who outlives it, does not make a new one
  EXPECT_EQ(CEventBridge::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace vask::test
