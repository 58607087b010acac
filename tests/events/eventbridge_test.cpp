#include "support/eventrecorder.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

CEventBridge& Bridge() { return CEventBridge::GetSingleton(); }

TEST(EventBridge, ListenersComeAndGoDuringEveryDispatch) {
  // Who hears of an event that is sent twice: first "a" lets another listener come and "b" goes,
  // then "a" lets the newcomer go before its turn.
  const auto heard = [](const std::function<void()>& send) {
    std::string record;
    CEventRecorder first("a ", record);
    auto second = std::make_unique<CEventRecorder>("b ", record);
    std::unique_ptr<CEventRecorder> late;
    first.react = [&] { late = std::make_unique<CEventRecorder>("late ", record); };
    second->react = [&] { second.reset(); };
    send();
    first.react = [&] { late.reset(); };
    send();
    return record;
  };
  EXPECT_EQ(heard([] { Bridge().Resize(4, 5); }), "a resize 4 5\nb resize 4 5\na resize 4 5\n");
  EXPECT_EQ(heard([] { Bridge().KeyDown(7, 'A'); }), "a down 7 65\nb down 7 65\na down 7 65\n");
  EXPECT_EQ(heard([] { Bridge().MouseButtonDown(16); }),
            "a press 16 0\nb press 16 0\na press 16 0\n");
}

}  // namespace
}  // namespace vask::test
