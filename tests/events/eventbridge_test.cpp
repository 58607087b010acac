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

}  // namespace
}  // namespace vask::test
