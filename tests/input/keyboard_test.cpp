#include "input/keyboard.h"

#include "events/eventbridge.h"
#include "input/heldinput.h"
#include "input/keynames.h"
#include "input/keyplaces.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>

namespace vask {
namespace {

std::string theRecord;
char theStopper = ' ';
char theKiller = ' ';
std::map<char, std::unique_ptr<IKeyEvent>> theAdded;

void KillAndBindMore();

// Adds its name to the record. One with a capital letter hears of keys that come up, too.
struct CEvent : IKeyEvent {
  explicit CEvent(char sign) : name(sign) {}
  bool Trigger(int) override {
    theRecord += name;
    if (name == theKiller) {
      KillAndBindMore();
    }
    return true;
  }
  bool ListensToKeyUp() override { return name < 'a'; }
  bool StopsKey() override { return name == theStopper; }
  char name;
};

struct SPut {
  char name;
  int priority;
};

// Binds events to "k" or, if their letter comes after "o", adds them for all keys.
void Put(std::initializer_list<SPut> puts) {
  CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
  for (const auto& [name, priority] : puts) {
    auto* event = new CEvent(name);
    if (std::tolower(name) < 'o') {
      keyboard.BindKey('k', CSmartPtr<IKeyEvent>(event), priority);
    } else {
      theAdded[name].reset(event);
      keyboard.AddKeyEvent(event, priority);
    }
  }
}

void KillAndBindMore() {
  theKiller = ' ';
  theAdded.clear();
  Put({{'n', 10}, {'t', 10}});
}

// Lets keys go down ("+a") and up ("-a") within one frame, and answers who heard of them.
std::string Hear(const std::string& keys) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.KeyDown(-1, 0);  // no key: must go nowhere
  bridge.KeyDown(kKeyCount, 0);
  for (std::size_t i = 0; i < keys.size(); i += 2) {
    if (keys[i] == '+') {
      bridge.KeyDown(keys[i + 1], 0);
    } else {
      bridge.KeyUp(keys[i + 1], 0);
    }
  }
  theRecord.clear();
  CKeyboard::GetSingletonPtr()->Update();
  return theRecord;
}

TEST(KeyNamesTest, AreThoseOfSdlWithoutBlanks) {
  SDL_Init(SDL_INIT_VIDEO);
  for (int key = 1; key < kKeyCount; ++key) {
    std::string name = SDL_GetKeyName(static_cast<SDLKey>(key));
    std::replace(name.begin(), name.end(), ' ', '_');
    name = name == "unknown_key" ? "" : name == "`" ? "backquote" : name;
    name = name == ");" ? ";" : name;  // a slip of the compatibility library
    EXPECT_EQ(NameFromKey(key), name);
    EXPECT_EQ(KeyFromName(name), name.empty() ? 0 : key) << name;
  }
  SDL_Quit();
}

TEST(KeyPlacesTest, OnlyKeysWithoutALatinNameGoByTheirPlace) {
  constexpr int kWorld = 218;
  struct {
    const char* name;
    int key, place, expected;
  } const cases[] = {
      {.name = "Russian P", .key = kWorld, .place = 33, .expected = 'p'},
      {.name = "Russian M", .key = kWorld, .place = 58, .expected = 'm'},
      {.name = "Greek A", .key = kWorld, .place = 38, .expected = 'a'},
      {.name = "French A, which types q", .key = 'q', .place = 38, .expected = 'q'},
      {.name = "beside P", .key = kWorld, .place = 34, .expected = kWorld},
      {.name = "beside L", .key = kWorld, .place = 47, .expected = kWorld},
      {.name = "no known place", .key = kWorld, .place = 0, .expected = kWorld},
      {.name = "under Escape", .key = '\'', .place = 49, .expected = kBackquoteKey},
      {.name = "under Escape, dead", .key = 0, .place = 49, .expected = kBackquoteKey},
  };
  for (const auto& [name, key, place, expected] : cases) {
    EXPECT_EQ(KeyByPlace(key, place), expected) << name;
  }
}

// SDL may forget the place by then, or have two keys of one code.
TEST(HeldInputTest, AKeyComesUpUnderTheNameThatItWentDownWith) {
  CHeldInput held;
  held.Press(218, 33, 'p');
  EXPECT_EQ(held.Release(218, 0, 218), 'p');
  held.Press(0, 49, '`');
  EXPECT_EQ(held.Release(0, 21, 0), 0);
  EXPECT_EQ(held.Release(0, 49, 0), '`');
}

TEST(KeyboardTest, EventsHearInTheOrderOfTheirPrioritiesUntilOneStopsTheKey) {
  Put({{'c', 10}, {'b', 10}, {'a', 5}, {'q', 10}, {'R', 10}, {'p', 5}, {'s', 30}});
  const CSmartPtr<IKeyEvent> last(new CEvent('Z'));
  CKeyboard::GetSingletonPtr()->BindKey('k', last, 20);
  struct {
    char stopper;
    const char *keys, *heard;
  } const cases[] = {
      {.stopper = 'q', .keys = "+k", .heard = "paq"},
      {.stopper = 'a', .keys = "+k", .heard = "paqRs"},  // a bound event stops bound ones only
      {.stopper = 'R', .keys = "-k", .heard = "R"},
      // Down before up; of equals: the added ones, then the newest bound one.
      {.stopper = ' ', .keys = "-k+k", .heard = "paqRbcZsRZ"},
      {.stopper = ' ', .keys = "+j-j", .heard = ""},  // nothing is bound to it
  };
  for (const auto& [stopper, keys, heard] : cases) {
    theStopper = stopper;
    EXPECT_EQ(Hear(keys), heard);
  }
  // Further bindings change priorities; each event gets a key once all the same.
  CKeyboard::GetSingletonPtr()->AddKeyEvent(theAdded['s'].get(), 1);
  CKeyboard::GetSingletonPtr()->BindKeys({'j', 'k', 'j'}, last, 7);
  EXPECT_EQ(Hear("+k+j"), "spaZqRbcspZqR");
  CKeyboard::DeleteSingleton();
}

// A null event is none. The interceptor leaves the keyboard when it dies.
TEST(KeyboardTest, AnInterceptorMayTakeAPressButNoRelease) {
  struct CMyEvent : CEvent {
    CMyEvent() : CEvent('E') {}
  };
  struct CTaker : IKeyInterceptor {
    bool TakesPress(int key) override { return key == kEscapeKey; }
  };
  CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
  keyboard.BindKey(KeyFromName("escape"), CSmartPtr<IKeyEvent>(new CMyEvent), 10);
  keyboard.Update();
  keyboard.BindKey(kEscapeKey, {}, 10);
  keyboard.BindKeys({kEscapeKey}, {}, 10);
  keyboard.AddKeyEvent(nullptr, 10);
  {
    CTaker taker;
    keyboard.AddInterceptor(&taker);
    EXPECT_EQ(Hear(std::string{'+', kEscapeKey, '-', kEscapeKey}), "E");
  }
  EXPECT_EQ(Hear(std::string{'+', kEscapeKey, '-', kEscapeKey}), "EE");
  CKeyboard::DeleteSingleton();
}

TEST(KeyboardTest, AnEventMayDeleteItselfAndOthersAndBindMore) {
  const std::pair<char, const char*> cases[] = {{'p', "pb"}, {'q', "pqb"}, {'r', "pqbr"}};
  for (const auto& [killer, heard] : cases) {
    theKiller = killer;
    Put({{'b', 10}, {'p', 5}, {'q', 5}, {'r', 15}});
    EXPECT_EQ(Hear("+k"), heard) << "newcomers wait for the next key";
    EXPECT_EQ(Hear("+k"), "tnb");
    CKeyboard::DeleteSingleton();
  }
  theAdded.clear();
  EXPECT_EQ(CKeyboard::PeekSingletonPtr(), nullptr) << "a dying event must not bring it back";
}

}  // namespace
}  // namespace vask
