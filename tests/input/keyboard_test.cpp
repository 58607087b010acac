#include "input/keyboard.h"

#include "events/eventbridge.h"
#include "input/heldinput.h"
#include "input/keynames.h"
#include "input/keyplaces.h"
#include "input/multikeyevent.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

namespace vask {
namespace {

std::string ourRecord;
char ourStopper = ' ';
std::map<char, std::function<void()>> ourReactions;  // each called once, by the event of that name
std::map<char, std::unique_ptr<IKeyEvent>> ourAdded;

// Adds its name to the record. One with a capital letter hears of keys that come up, too.
struct CMyEvent : IKeyEvent {
  explicit CMyEvent(char sign = 'E') : name(sign) {}
  bool Trigger(int) override {
    ourRecord += name;
    if (const auto reaction = ourReactions.extract(name)) {
      reaction.mapped()();
    }
    return true;
  }
  bool ListensToKeyUp() override { return name < 'a'; }
  bool StopsKey() override { return name == ourStopper; }
  char name;
};

struct KeyboardTest : testing::Test {
  ~KeyboardTest() override {
    CKeyboard::DeleteSingleton();
    ourReactions.clear();
    ourAdded.clear();
  }
};

// Adds events, each told by its letter and its priority: those before "o" for the key "k", the
// others for all keys.
void Put(const std::string& events) {
  CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
  std::istringstream stream(events);
  char name = ' ';
  for (int priority = 0; stream >> name >> priority;) {
    auto* const event = new CMyEvent(name);
    if (std::tolower(name) < 'o') {
      keyboard.BindKey('k', CSmartPtr<IKeyEvent>(event), priority);
    } else {
      ourAdded[name].reset(event);
      keyboard.AddKeyEvent(event, priority);
    }
  }
}

// Lets keys go down ("+a") and up ("-a") within one frame, and returns who heard of them.
std::string Hear(const std::string& keys) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  for (std::size_t i = 0; i < keys.size(); i += 2) {
    const auto handler = keys[i] == '+' ? &CEventBridge::KeyDown : &CEventBridge::KeyUp;
    (bridge.*handler)(keys[i + 1], 0);
  }
  ourRecord.clear();
  CKeyboard::GetSingletonPtr()->Update();
  return ourRecord;
}

TEST(KeyNamesTest, AreThoseOfSdlWithoutBlanks) {
  SDL_Init(SDL_INIT_VIDEO);
  for (int key = 1; key < kKeyCount; ++key) {
    std::string name = SDL_GetKeyName(static_cast<SDLKey>(key));
    std::replace(name.begin(), name.end(), ' ', '_');
    name = name == "unknown_key" ? "" : name == "`" ? "backquote" : name;
    name = name == ");" ? ";" : name;  // a slip of the compatibility library
    EXPECT_EQ(NameFromKey(key), name) << key;
    EXPECT_EQ(KeyFromName(name), name.empty() ? 0 : key) << name;
  }
  SDL_Quit();
}

constexpr int kWorld = 218;  // SDL's code of a key without a Latin name

TEST(KeyPlacesTest, OnlyKeysWithoutALatinNameGoByTheirPlace) {
  EXPECT_EQ(KeyByPlace(kWorld, 33), 'p') << "Russian P";
  EXPECT_EQ(KeyByPlace(kWorld, 58), 'm') << "Russian M";
  EXPECT_EQ(KeyByPlace(kWorld, 38), 'a') << "Greek A";
  EXPECT_EQ(KeyByPlace('q', 38), 'q') << "French A, which types q";
  EXPECT_EQ(KeyByPlace(kWorld, 34), kWorld) << "beside P";
  EXPECT_EQ(KeyByPlace(kWorld, 47), kWorld) << "beside L";
  EXPECT_EQ(KeyByPlace(0, 49), kBackquoteKey) << "under Escape, dead";
}

// SDL may forget the place by then, or have two keys of one code.
TEST(HeldInputTest, AKeyComesUpUnderTheNameThatItWentDownWith) {
  CHeldInput held;
  // SDL's code of the key, X's code of its place (P is 33, under Escape is 49), its name.
  held.Press(kWorld, 33, 'p');
  EXPECT_EQ(held.Release(kWorld, 0, kWorld), 'p');
  held.Press(0, 49, '`');
  EXPECT_EQ(held.Release(0, 21, 0), 0);
  EXPECT_EQ(held.Release(0, 49, 0), '`');
  held.Press('a', 38, 'a');
  held.Press('a', 38, 'b');
  EXPECT_EQ(held.Release('a', 38, 0), 'b');
  EXPECT_EQ(held.Release('a', 38, 0), 0) << "held once";
}

TEST_F(KeyboardTest, EventsHearInTheOrderOfTheirPrioritiesUntilOneStopsTheKey) {
  Put("c10 b10 a5 q10 R10 p5 s30");
  const CSmartPtr<IKeyEvent> last(new CMyEvent('Z'));
  CKeyboard::GetSingletonPtr()->BindKey('k', last, 20);
  const auto hear = [](char stopper, const std::string& keys) {
    ourStopper = stopper;
    return Hear(keys);
  };
  EXPECT_EQ(hear('q', "+k"), "paq");
  EXPECT_EQ(hear('a', "+k"), "paqRs") << "a bound event stops bound ones only";
  EXPECT_EQ(hear('R', "-k"), "R");
  EXPECT_EQ(hear(' ', "-k+k"), "paqRbcZsRZ")
      << "down before up; of equals: the added ones, then the newest bound one";
  EXPECT_EQ(hear(' ', "+j-j"), "") << "nothing is bound to it";
  // Further bindings change priorities; each event gets a key once all the same.
  CKeyboard::GetSingletonPtr()->AddKeyEvent(ourAdded['s'].get(), 1);
  CKeyboard::GetSingletonPtr()->BindKeys({'j', 'k', 'j'}, last, 7);
  EXPECT_EQ(Hear("+k+j"), "spaZqRbcspZqR");
}

TEST_F(KeyboardTest, ASetOfKeysTriggersWhileAllAreDown) {
  const CSmartPtr<IKeyEvent> both(new CMultiKeyEvent({'j', 'k'}));
  EXPECT_FALSE(CMultiKeyEvent({}).Trigger('j')) << "not bound";
  CKeyboard::GetSingletonPtr()->BindKeys({'j', 'k'}, both, 10);
  Hear("+j");
  EXPECT_FALSE(both->Trigger('j'));
  Hear("+k");
  EXPECT_TRUE(both->Trigger('k'));
  Hear("-j");
  EXPECT_FALSE(both->Trigger('k'));
}

TEST_F(KeyboardTest, AnInterceptorMayTakeAPressButNoRelease) {
  struct CTaker : IKeyInterceptor {
    bool TakesPress(int key) override { return key == kEscapeKey; }
  } taker;
  CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
  keyboard.BindKey(KeyFromName("escape"), CSmartPtr<IKeyEvent>(new CMyEvent), 10);
  keyboard.AddInterceptor(&taker);
  EXPECT_EQ(Hear({'+', kEscapeKey, '-', kEscapeKey}), "E");
}

TEST_F(KeyboardTest, AnEventMayDeleteItselfAndOthersAndBindMore) {
  // Who hears of a key when that event kills them all.
  const auto heard = [](char killer) {
    ourReactions[killer] = [] {
      ourAdded.clear();
      Put("n10 t10");
    };
    Put("b10 p5 q5 r15");
    const std::string names = Hear("+k");
    EXPECT_EQ(Hear("+k"), "tnb") << "newcomers wait for the next key";
    CKeyboard::DeleteSingleton();
    return names;
  };
  EXPECT_EQ(heard('p'), "pb");
  EXPECT_EQ(heard('q'), "pqb");
  EXPECT_EQ(heard('r'), "pqbr");
  ourAdded.clear();
  EXPECT_EQ(CKeyboard::PeekSingletonPtr(), nullptr) << "a dying event must not bring it back";
}

}  // namespace
}  // namespace vask
