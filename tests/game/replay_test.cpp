#include "console/console.h"
#include "events/eventbridge.h"
#include "game/brumbletask.h"
#include "game/brumbletaskimpl.h"
#include "game/effects.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/physics/arena.h"
#include "game/physics/worldstate.h"
#include "game/pilot.h"
#include "game/playstate.h"
#include "game/replay/recordingformat.h"
#include "game/replay/rulesversion.h"
#include "game/replayfiles.h"
#include "game/scores.h"
#include "input/buttons.h"
#include "input/keyboard.h"
#include "input/keynames.h"
#include "input/mouse.h"
#include "kernel/applicationfactory.h"
#include "platform/wallclock.h"
#include "utils/assert.h"

#include <zlib.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>

namespace brumble {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHeadBytes = 10;  // the mark and two versions

std::string ReadAll(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteAll(const std::string& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

std::set<std::string> Replays() {
  std::set<std::string> files;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(kReplayFolder, missing)) {
    files.insert(entry.path().string());
  }
  return files;
}

// Plays a file with play of its own; returns its difference or problem, empty when it held.
std::string Verdict(const std::string& file, unsigned* time = nullptr) {
  CPlay play;
  CReplayedGame game(play, file);
  while (!game.IsDone()) {
    game.PlayNext();
  }
  if (time != nullptr) {
    *time = game.GetTime();
  }
  return game.GetDifference() + game.GetProblem();
}

std::int64_t ourSeconds = 0;

// Games that are played and recorded by the task, each with another seed.
class ReplayTest : public test::GameTest {
 public:
  using GameTest::Pass;
  CBrumbleTask task;
  unsigned hitch = 300;  // milliseconds of every fiftieth frame

 protected:
  ReplayTest() {
    ourSeconds = 1'000'000;
    vask::platform::SetWallClock([] { return ++ourSeconds; });
    WorldState() = {};
  }
  ~ReplayTest() override {
    task.Exit();
    vask::platform::SetWallClock(nullptr);
    fs::remove(kScoresFile);
    fs::remove("game.replay");
  }

  static void Click() { vask::CMouse::GetSingletonPtr()->OnMouseButtonDown(vask::kLeftButton); }
  static std::string Line(const std::string& line) {
    return vask::CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
  }
  static void Press(const char* key) {
    const int code = vask::KeyFromName(key);
    vask::CEventBridge::GetSingletonPtr()->KeyDown(code, 0);
    vask::CEventBridge::GetSingletonPtr()->KeyUp(code, 0);
    vask::CKeyboard::GetSingletonPtr()->Update();
  }

  void StartGame(const std::string& line = "") {
    task.Start();
    Line(line);
    Click();
    Click();
  }
  // Frames of many lengths; the pointer goes round.
  void PlayFor(
      int frames, const std::function<void(int)>& between = [](int) {}) {
    for (int frame = 0; frame < frames && Impl().GetScreen() == nullptr; ++frame) {
      const int x = static_cast<int>(400 + 350 * std::sin(0.2 * frame));
      const int y = static_cast<int>(400 + 150 * std::cos(0.074 * frame));
      vask::CEventBridge::GetSingletonPtr()->MouseMove(x, y, 0, 0);
      Pass(frame % 50 == 0 ? hitch : static_cast<unsigned>(frame * 7 % 23));
      between(frame);
      task.Update();
    }
  }
  // Leaves a game of some seconds as "game.replay".
  void RecordShortGame(int frames = 900) {
    StartGame("recordgame(game.replay)");
    PlayFor(frames);
    task.Exit();
  }
  CBrumbleTaskImpl& Impl() const { return *task.GetImpl(); }
};

TEST_F(ReplayTest, EveryGameIsPlayedAgainToTheSameStates) {
  struct {
    const char* name;
    int kittensLeftOver = 0;
    bool isDoorOpen = false;
    bool beginsPaused = false;
    std::function<void(ReplayTest&, int)> between = [](ReplayTest&, int) {};
  } const games[] = {
      {.name = "plain"},
      {.name = "kittens left over", .kittensLeftOver = 3},
      {.name = "open door", .isDoorOpen = true},
      {.name = "paused at the start",
       .beginsPaused = true,
       .between =
           [](ReplayTest& t, int frame) {
             if (frame == 20) {
               t.task.Resume();
             }
           }},
      {.name = "extra kittens",
       .between =
           [](ReplayTest& t, int frame) {
             if (frame % 90 == 9) {
               t.task.ExecuteCommand("");
             }
           }},
      {.name = "pauses",
       .between =
           [](ReplayTest& t, int frame) {
             if (frame % 70 == 7) {
               t.task.Pause();
               t.Pass(5000);
               t.task.Resume();
               t.Pass(4);
             }
           }},
      {.name = "focus lost, but the task goes on",
       .between =
           [](ReplayTest&, int frame) {
             if (frame % 70 < 2) {
               vask::CEventBridge::GetSingletonPtr()->FocusEvent(frame % 70 == 1);
             }
           }},
  };
  for (const auto& game : games) {
    SCOPED_TRACE(game.name);
    WorldState().isDoorOpen = game.isDoorOpen;
    task.Start();
    for (int i = 0; i < game.kittensLeftOver; ++i) {
      task.ExecuteCommand("");
    }
    if (game.beginsPaused) {
      task.Pause();
    }
    Click();
    Click();
    PlayFor(3000, [&](int frame) { game.between(*this, frame); });
    const std::string file = *Replays().rbegin();
    task.Exit();
    unsigned time = 0;
    EXPECT_EQ(Verdict(file, &time), "");
    EXPECT_GT(time, 20000U);
    EXPECT_LT(fs::file_size(file), 25U * 1024U * time / 60000U);
  }
}

// The course of a game that a pilot plays, the same in every build. After a change that means to
// change the rules, raise kRulesVersion, and put it and the hash that the failing test prints here;
// a change of the pilot alone needs no new version.
constexpr unsigned kVersion = 1;
constexpr unsigned long kHash = 0x32736D75;

TEST_F(ReplayTest, AWholeGameTakesTheSameCourseInEveryBuild) {
  CPilot pilot(CPilot::EManner::kPresser, 1);
  CPlay play;
  play.Start(play.NextStart(1));
  unsigned long hash = crc32(0, nullptr, 0);
  SInput input;
  while (!play.IsOver()) {
    input.time += 11;
    input.appTime = input.time;
    const SScreenPoint pointer = pilot.PointerAt(play.GetWorld(), input.time);
    std::tie(input.pointerX, input.pointerY) = std::pair(pointer.x, pointer.y);
    play.Take(input);
    const std::string state = PackState(StateOf(play));
    hash =
        crc32(hash, reinterpret_cast<const Bytef*>(state.data()), static_cast<uInt>(state.size()));
  }
  EXPECT_GT(play.GetGameLogic().GetStory().banked.bonuses, 0) << "all has happened";
  EXPECT_EQ(hash, kHash) << std::hex << hash;
  EXPECT_EQ(kRulesVersion, kVersion);
}

TEST_F(ReplayTest, TheFirstDifferenceNamesTimeBodyFieldAndValues) {
  RecordShortGame();
  CPlay play;
  CReplayedGame game(play, "game.replay");
  while (!game.IsDone()) {
    game.PlayNext();
    const_cast<CPhysicsBody&>(play.GetWorld().GetBodies()[kMonsterIndex]).invMass = 0.5F;
  }
  EXPECT_FALSE(game.HasHeld());
  const std::regex form(R"(after \d\.\d+ s: body 7, inverse mass is 0\.5, recorded 0\.\d+)");
  EXPECT_TRUE(std::regex_match(game.GetDifference(), form)) << game.GetDifference();
  EXPECT_GT(game.GetTime(), 5000U) << "it goes on";
}

// Where each block of a recording ends.
std::vector<std::size_t> BlockEnds(const std::string& bytes) {
  std::vector<std::size_t> ends;
  for (std::size_t at = kHeadBytes; at < bytes.size(); ends.push_back(at)) {
    at += 12 + CByteReader(std::string_view(bytes).substr(at)).TakeWord();
  }
  return ends;
}

TEST_F(ReplayTest, ACutRecordingPlaysUpToItsLastWholeBlock) {
  RecordShortGame(2200);
  const std::string bytes = ReadAll("game.replay");
  const std::vector<std::size_t> ends = BlockEnds(bytes);
  ASSERT_GE(ends.size(), 4U);
  EXPECT_EQ(ends.back(), bytes.size());
  for (std::size_t block = 0; block + 1 < ends.size(); ++block) {
    for (const std::size_t length : {ends[block], ends[block] + 5, ends[block + 1] - 1}) {
      WriteAll("cut.replay", bytes.substr(0, length));
      unsigned time = 0;
      EXPECT_TRUE(Verdict("cut.replay", &time).starts_with("it ends before its game does"));
      EXPECT_NEAR(time, 5000.0 * static_cast<double>(block), 1500.0) << "5 s a block";
    }
  }
  for (const std::size_t length : {std::size_t{0}, kHeadBytes - 1, kHeadBytes, ends[0] - 1}) {
    WriteAll("cut.replay", bytes.substr(0, length));
    EXPECT_NE(Verdict("cut.replay"), "") << length;
  }
}

// Which of the checks finds it depends on the place; none may be taken for a whole game.
TEST_F(ReplayTest, NoFlippedBitPassesForAWholeGame) {
  RecordShortGame(60);
  const std::string whole = ReadAll("game.replay");
  for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
    std::string bytes = whole;
    bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ 1 << bit % 8);
    CRecordingReader reader(std::make_unique<std::istringstream>(bytes));
    CRecordingReader::EItem item = reader.Next();
    while (item != CRecordingReader::EItem::kNone && item != CRecordingReader::EItem::kEnd) {
      item = reader.Next();
    }
    EXPECT_EQ(item, CRecordingReader::EItem::kNone) << "bit " << bit;
  }
}

std::string Block(const std::string& bytes) {
  std::string packed(compressBound(bytes.size()), '\0');
  uLongf size = packed.size();
  compress(reinterpret_cast<Bytef*>(packed.data()), &size,
           reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
  CByteWriter block;
  block.PutWord(static_cast<std::uint32_t>(size));
  block.PutWord(static_cast<std::uint32_t>(bytes.size()));
  block.PutWord(static_cast<std::uint32_t>(
      crc32(0, reinterpret_cast<const Bytef*>(packed.data()), static_cast<uInt>(size))));
  return block.GetBytes() + packed.substr(0, size);
}

std::string Start(std::int32_t bodies = 8, std::int32_t counter = 0, unsigned door = 0) {
  CByteWriter start;
  start.PutWord(1);
  start.PutByte(door);
  start.PutByte(0);
  for (const std::int32_t value : {counter, 0, bodies, 400, 300}) {
    start.PutSigned(value);
  }
  return start.GetBytes();
}

// Sound to the checksums: what is refused is what they say.
TEST_F(ReplayTest, HostileFilesAreRefusedInALine) {
  const std::string versions = {static_cast<char>(kFormatVersion),
                                static_cast<char>(kRulesVersion)};
  const std::string head = std::string(kRecordingMark) + versions;
  const auto special = [](unsigned code) {
    return std::string(1, static_cast<char>(code << kFormBits | kSpecial));
  };
  const std::string most = "\xFF\xFF\xFF\xFF\x0F";  // the greatest varint
  const std::string kitten = special(kSpecialKitten) + std::string(3, '\0');
  std::string kittens;
  for (int i = 0; i <= kMostKittens; ++i) {
    kittens += kitten;
  }
  struct {
    const char* name;
    std::string bytes;
    std::string error;
  } const files[] = {
      {"something else", "GIF89a and more", "it is no recording"},
      {"a later format", std::string(kRecordingMark) + "\x02\x01",
       "it has version 2 of the format, and this program reads 1"},
      {"other rules", std::string(kRecordingMark) + "\x01\x63",
       "its game has version 99 of the rules, and this program has " +
           std::to_string(kRulesVersion)},
      {"too few bodies", head + Block(Start(7)), "its block 1 is damaged"},
      {"too many bodies", head + Block(Start(1'000'000'000)), "its block 1 is damaged"},
      {"a counter before its wrap", head + Block(Start(8, INT32_MAX)), "its block 1 is damaged"},
      {"half a door", head + Block(Start(8, 0, 2)), "its block 1 is damaged"},
      {"more than a start", head + Block(Start() + "x"), "its block 1 is damaged"},
      {"an unknown entry", head + Block(Start()) + Block(special(9)), "its block 2 is damaged"},
      {"an endless number", head + Block(Start()) + Block(special(kSpecialSkew) + most + most),
       "its block 2 is damaged"},
      {"a state beyond its block", head + Block(Start()) + Block(special(kSpecialState) + most),
       "its block 2 is damaged"},
      {"a pointer far away",
       head + Block(Start()) + Block(std::string(1, kPointerJumps) + most + most),
       "its block 2 is damaged"},
      {"something after the end",
       head + Block(Start()) + Block(special(kSpecialEnd) + std::string(3, '\0')),
       "its block 2 is damaged"},
      {"too many kittens", head + Block(Start()) + Block(kittens),
       "it has more than 256 extra kittens"},
      {"a huge block", head + Block(Start()) + std::string(8, '\x7F') + std::string(400, 'x'),
       "its block 2 is damaged"},
  };
  for (const auto& [name, bytes, error] : files) {
    WriteAll("game.replay", bytes);
    EXPECT_EQ(Verdict("game.replay"), error) << name;
  }
  for (const char* name : {"missing.replay", "data", "/dev/zero"}) {
    EXPECT_NE(Verdict(name), "") << name;
  }
}

TEST_F(ReplayTest, KeepsTheLastTenGamesAndThoseOfTheBestScores) {
  fs::create_directory(kReplayFolder);
  const std::string mine = std::string(kReplayFolder) + "/0 mine.replay";
  WriteAll(mine, "not of this game");
  std::vector<std::string> games;
  for (int game = 0; game < 12; ++game) {
    StartGame();
    PlayFor(20);
    GameState().isGameOver = true;
    PlayFor(40);
    ASSERT_EQ(ReadScores()->back().recording, *Replays().rbegin()) << "equal scores stay in order";
    games.push_back(*Replays().rbegin());
    if (game == 0) {
      WriteAll(kScoresFile, "90 2001-01-01 " + games[0] + "\n");
    } else {
      WriteAll(kScoresFile, "90 2001-01-01 " + games[0] + "\n80 2001-01-01 -\n");
    }
    task.Exit();
  }
  std::set<std::string> kept(games.begin() + 2, games.end());
  kept.insert({mine, games[0]});
  EXPECT_EQ(Replays(), kept);
}

TEST_F(ReplayTest, NothingIsOverwrittenAndAFolderThatCannotBeWrittenIsReportedOnce) {
  vask::platform::SetWallClock([] { return std::int64_t{5}; });
  for (const int game : {1, 2, 3}) {
    StartGame();
    EXPECT_EQ(Replays().size(), static_cast<std::size_t>(game)) << "in the same second";
  }
  WriteAll("game.replay", "mine");
  EXPECT_EQ(Line("recordgame(game.replay)"), "Error: RecordGame() game.replay is there already.");
  for (int game = 0; game < 2; ++game) {
    StartGame("recordgame(missing/game.replay)");
    PlayFor(30);
    EXPECT_EQ(log.Count("Recording: missing/game.replay can't be written: No such file"), 1U);
  }
  Line("game_record = 0");
  StartGame("recordgame(off.replay)");
  EXPECT_TRUE(fs::exists("off.replay")) << "wanted all the same";
  task.Exit();
  const std::size_t before = Replays().size();
  StartGame();
  EXPECT_EQ(Replays().size(), before);
  Line("game_record = 1");
  fs::remove("off.replay");
}

TEST_F(ReplayTest, AFailedAssertionWritesTheGameUpToItsFrameAndTellsTheFile) {
  StartGame();
  const unsigned start = clock.Now();
  PlayFor(100);
  const unsigned end = clock.Now();
  VASK_ASSERT(false, "told below");
  const std::string file = *Replays().begin();
  EXPECT_EQ(vask::GetAssertNote(),
            "The game up to this frame is in " + file + "; replaygame(" + file + ") plays it.");
  EXPECT_TRUE(log.Has("replaygame(" + file + ") plays it."));
  unsigned time = 0;
  EXPECT_TRUE(Verdict(file, &time).starts_with("it ends before its game does"));
  EXPECT_NEAR(time, end - start, 5) << "less than a step";
  task.Exit();
  VASK_ASSERT(false, "nothing is recorded");
  EXPECT_EQ(vask::GetAssertNote(), "");
}

TEST_F(ReplayTest, TheTitlePlaysADemoUntilSomebodyComes) {
  const auto isDemo = [this](unsigned wait) {
    Pass(wait);
    task.Update();
    return !test::Shown(kDemoFile).empty() && Impl().GetReplay() != nullptr;
  };
  EXPECT_EQ(Verdict(kDemoRecording), "");
  task.Start();
  EXPECT_FALSE(isDemo(100000)) << "not unless it is wanted";
  Line("game_demo_after = 30");
  EXPECT_TRUE(isDemo(0));
  for (const bool isClick : {true, false}) {
    EXPECT_TRUE(isDemo(1000));
    if (isClick) {
      Click();
    } else {
      Press("p");
    }
    EXPECT_FALSE(isDemo(10));
    EXPECT_EQ(test::Shown(kTitleScreenFile).size(), 1U) << "no more than the title";
    EXPECT_FALSE(isDemo(29980));
    EXPECT_TRUE(isDemo(20));
  }
  for (int second = 0; second < 200 && Impl().GetReplay() != nullptr; ++second) {
    isDemo(1000);
  }
  EXPECT_EQ(test::Shown(kTitleScreenFile).size(), 1U) << "after its end";
  EXPECT_TRUE(ReadScores()->empty());
  Line("game_demo_after = 0");
}

TEST_F(ReplayTest, ARecordedGamePlaysOnTheScreenAndLeavesNoTrace) {
  hitch = 0;
  RecordShortGame();
  task.Start();
  task.ExecuteCommand("");
  const int bodies = Impl().GetWorld().GetBodyCount();
  const SWorldState state = WorldState();
  const std::set<std::string> replays = Replays();
  EXPECT_TRUE(Line("replaygame(data)").starts_with("Error: ReplayGame() data: it "));
  EXPECT_EQ(Line("replaygame(game.replay)"), "");
  ASSERT_NE(Impl().GetReplay(), nullptr);
  EXPECT_TRUE(test::Shown("data/gfx/title_screen.xml").empty());
  const auto time = [this] { return Impl().GetReplay()->GetGame().GetTime(); };
  const auto pass = [this](unsigned milliseconds) {
    Pass(milliseconds);
    task.Update();
  };
  pass(1000);
  EXPECT_NEAR(time(), 1000, 30);
  task.ExecuteCommand("");
  task.Pause();
  Pass(60000);
  task.Resume();
  pass(0);
  EXPECT_NEAR(time(), 1000, 30) << "paused";
  Press("space");
  pass(500);
  EXPECT_NEAR(time(), 1000, 30) << "held";
  const unsigned before = time();
  Press("right");
  EXPECT_GT(time(), before);
  EXPECT_LT(time(), before + 50);
  Press("space");
  Press("up");
  EXPECT_TRUE(AreEffectsShown());
  Press("up");
  EXPECT_FALSE(AreEffectsShown()) << "at four times the speed";
  pass(500);
  EXPECT_NEAR(time(), 3000, 50);
  Press("down");
  Press("down");
  Press("down");
  EXPECT_TRUE(AreEffectsShown());
  pass(1000);
  EXPECT_NEAR(time(), 3500, 50);
  Line("stopreplay");
  EXPECT_EQ(test::Shown("data/gfx/title_screen.xml").size(), 1U);
  EXPECT_EQ(Impl().GetWorld().GetBodyCount(), bodies);
  EXPECT_EQ(WorldState().resetCounter, state.resetCounter);
  EXPECT_EQ(WorldState().lookCounter, state.lookCounter);
  Line("replaygame(game.replay)");
  for (int i = 0; i < 30; ++i) {
    pass(1000);
  }
  EXPECT_TRUE(log.Has("Replay: held, score"));
  EXPECT_EQ(test::Shown("data/gfx/title_screen.xml").size(), 1U) << "somebody had left it";
  EXPECT_EQ(Replays(), replays);
  EXPECT_TRUE(ReadScores()->empty());
}

}  // namespace
}  // namespace brumble
