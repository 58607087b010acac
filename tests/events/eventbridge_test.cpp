#include "events/eventrecorder.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

CEventBridge& Bridge() { return CEventBridge::GetSingleton(); }

TEST(EventBridge, ListenersComeAndGoDuringEveryDispatch) {
  const std::pair<const char*, std::function<void()>> events[] = {
      {"resize 4 5\n", [] { Bridge().Resize(4, 5); }},
      {"down 7 65\n", [] { Bridge().KeyDown(7, 'A'); }},
      {"press 16 0\n", [] { Bridge().MouseButtonDown(16); }}};
  for (const auto& [heard, send] : events) {
    std::string record;
    CEventRecorder first("a ", record);
    auto second = std::make_unique<CEventRecorder>("b ", record);
    std::unique_ptr<CEventRecorder> late;
    first.react = [&] { late = std::make_unique<CEventRecorder>("late ", record); };
    second->react = [&] { second.reset(); };
    send();
    first.react = [&] { late.reset(); };
    send();
    const std::string a = std::string("a ") + heard;
    EXPECT_EQ(record, a + "b " + heard + a) << "newcomers wait, and who has left hears no more";
  }
}

}  // namespace
}  // namespace vask::test
