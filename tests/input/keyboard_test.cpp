#include "input/keyboard.h"

#include "events/eventbridge.h"
#include "input/heldinput.h"
#include "input/keynames.h"
#include "input/keyplaces.h"

#include <SDL.h>
#include <gtest/gtest.h>

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
    name == theKiller ? KillAndBindMore() : void();
    return true;
  }
  bool ListensToKeyUp() override { return name < 'a'; }
  bool StopsKey() override { return name == theStopper; }
  char name;
};

// Binds an event to "k" or, if its letter comes after "o", adds it for all keys.
void Put(char name, int priority) {
  auto* event = new CEvent(name);
  if (std::tolower(name) < 'o') {
    CKeyboard::GetSingletonPtr()->BindKey('k', CSmartPtr<IKeyEvent>(event), priority);
  } else {
    theAdded[name].reset(event);
    CKeyboard::GetSingletonPtr()->AddKeyEvent(event, priority);
  }
}

void KillAndBindMore() {
  theKiller = ' ';
  theAdded.clear();
  Put('n', 10), Put('t', 10);
}

// Lets keys go down ("+a") and up ("-a") within one frame, and answers who heard of them.
std::string Hear(const std::string& keys) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.KeyDown(-1, 0), bridge.KeyDown(kKeyCount, 0);  // no keys: must go nowhere
  for (std::size_t i = 0; i < keys.size(); i += 2) {
    keys[i] == '+' ? bridge.KeyDown(keys[i + 1], 0) : bridge.KeyUp(keys[i + 1], 0);
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
  const struct {
    const char* what;
    int key, place, expected;
  } cases[] = {
      {"Russian P", kWorld, 33, 'p'},        {"Russian M", kWorld, 58, 'm'},
      {"Greek A", kWorld, 38, 'a'},          {"French A, which types q", 'q', 38, 'q'},
      {"beside P", kWorld, 34, kWorld},      {"beside L", kWorld, 47, kWorld},
      {"no known place", kWorld, 0, kWorld}, {"under Escape", '\'', 49, '`'},
      {"under Escape, dead", 0, 49, '`'},
  };
  for (const auto& [what, key, place, expected] : cases) {
    EXPECT_EQ(KeyByPlace(key, place), expected) << what;
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
  Put('c', 10), Put('b', 10), Put('a', 5), Put('q', 10), Put('R', 10), Put('p', 5), Put('s', 30);
  const CSmartPtr<IKeyEvent> last(new CEvent('Z'));
  CKeyboard::GetSingletonPtr()->BindKey('k', last, 20);
  const std::tuple<char, const char*, const char*> cases[] = {
      {'q', "+k", "paq"},
      {'a', "+k", "paqRs"},  // a bound event keeps it from bound ones only
      {'R', "-k", "R"},
      {' ', "-k+k", "paqRbcZsRZ"},  // down before up; of equals: added ones, newest bound one
      {' ', "+j-j", ""},            // nothing is bound to it
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

TEST(KeyboardTest, AnEventMayDeleteItselfAndOthersAndBindMore) {
  const std::pair<char, const char*> cases[] = {{'p', "pb"}, {'q', "pqb"}, {'r', "pqbr"}};
  for (const auto& [killer, heard] : cases) {
    theKiller = killer;
    Put('b', 10), Put('p', 5), Put('q', 5), Put('r', 15);
    EXPECT_EQ(Hear("+k"), heard) << "newcomers wait for the next key";
    EXPECT_EQ(Hear("+k"), "tnb");
    CKeyboard::DeleteSingleton();
  }
  theAdded.clear();
  EXPECT_EQ(CKeyboard::PeekSingletonPtr(), nullptr) << "a dying event must not bring it back";
}

}  // namespace
}  // namespace vask
