#include "game/effects.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/physics/arena.h"
#include "game/physics/worldstate.h"
#include "game/pilot.h"
#include "game/playstate.h"
#include "game/replay/recordingformat.h"
#include "game/replay/recordingwriter.h"
#include "game/replay/rulesversion.h"
#include "input/keyboard.h"
#include "input/keynames.h"

#include <zlib.h>

#include <cmath>
#include <regex>
#include <tuple>

namespace brumble {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHeadBytes = 10;  // the mark and two versions

using vask::test::FileText;
using vask::test::WriteFile;

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
class ReplayTest : public test::GameTaskTest {
 public:
  ReplayTest() {
    ourSeconds = 1'000'000;
    vask::platform::SetWallClock([] { return ++ourSeconds; });
    WorldState() = {};
  }
  ~ReplayTest() override { fs::remove("game.replay"); }

  static void Press(const char* key) {
    const int code = vask::KeyFromName(key);
    vask::CEventBridge::GetSingletonPtr()->KeyDown(code, 0);
    vask::CEventBridge::GetSingletonPtr()->KeyUp(code, 0);
    vask::CKeyboard::GetSingletonPtr()->Update();
  }
  // Frames of many lengths; the pointer goes round, and something may happen now and then.
  void PlayFor(
      int frames, const std::function<void()>& disturb = [] {}) {
    for (int frame = 0; frame < frames && Impl().GetScreen() == nullptr; ++frame) {
      const int x = static_cast<int>(400 + 350 * std::sin(0.2 * frame));
      const int y = static_cast<int>(400 + 150 * std::cos(0.074 * frame));
      vask::CEventBridge::GetSingletonPtr()->MouseMove(x, y, 0, 0);
      if (frame % 70 == 20) {
        disturb();
      }
      Frame(frame % 50 == 0 ? hitch : static_cast<unsigned>(frame * 7 % 23));
    }
  }
  // Leaves a game of some seconds as "game.replay".
  void RecordShortGame(int frames) {
    StartGame("recordgame(game.replay)");
    PlayFor(frames);
    task.Exit();
  }

  unsigned hitch = 300;  // milliseconds of every fiftieth frame
};

// Played again without the cast and without pictures, which must not draw from the random numbers.
TEST_F(ReplayTest, EveryGameIsPlayedAgainToTheSameStates) {
  const auto dropKitten = [this] { task.ExecuteCommand(""); };
  const auto pause = [this] { task.Pause(); };
  const auto resume = [this] { task.Resume(); };
  const auto pauseForAWhile = [&] {
    pause();
    Pass(5000);
    resume();
  };
  const auto loseFocusForAFrame = [this] {
    vask::CEventBridge::GetSingletonPtr()->FocusEvent(false);
    Frame(30);
    vask::CEventBridge::GetSingletonPtr()->FocusEvent(true);
  };
  struct {
    const char* name;
    bool isDoorOpen = false;
    std::function<void()> onTitle = [] {}, disturb = [] {};
  } const games[] = {
      {.name = "plain"},
      {.name = "open door", .isDoorOpen = true},
      {.name = "kitten left over", .onTitle = dropKitten},
      {.name = "paused first", .onTitle = pause, .disturb = resume},
      {.name = "extra kittens", .disturb = dropKitten},
      {.name = "pauses", .disturb = pauseForAWhile},
      {.name = "no focus, but it goes on", .disturb = loseFocusForAFrame},
  };
  for (const auto& game : games) {
    SCOPED_TRACE(game.name);
    vask::Gfx::SetFactory(&pictures);
    WorldState().isDoorOpen = game.isDoorOpen;
    task.Start();
    game.onTitle();
    Click();
    Click();
    PlayFor(1500, game.disturb);
    ASSERT_FALSE(Replays().empty());
    const std::string file = *Replays().rbegin();
    task.Exit();
    vask::Gfx::SetFactory(nullptr);
    unsigned time = 0;
    EXPECT_EQ(Verdict(file, &time), "");
    EXPECT_GT(time, 20000U);
    EXPECT_LT(fs::file_size(file), 25U * 1024U * time / 60000U);
  }
}

// The courses of two games that a pilot plays, alone with its kitten and in a rain of them, their
// bodies to the bit, the same in every build. After a change that means to change the rules, raise
// kRulesVersion, and put it and the hashes that the failing test prints here; a change of the pilot
// alone needs no new version.
TEST_F(ReplayTest, WholeGamesTakeTheSameCourseInEveryBuild) {
  const auto courseOf = [](bool rains) {
    CPilot pilot(CPilot::EManner::kPresser, 1);
    CPlay play;
    play.Start(play.NextStart(1));
    unsigned long hash = 0;
    SInput input;
    while (!play.IsOver()) {
      input.time += 11;
      input.appTime = input.time;
      const auto [x, y] = pilot.PointerAt(play.GetWorld(), input.time);
      input.pointerX = x;
      input.pointerY = y;
      input.kind = rains && input.time % 1100 == 0 ? EInput::kKitten : EInput::kFrame;
      play.Take(input);
      const std::string state = PackState(StateOf(play));
      hash = crc32_z(hash, reinterpret_cast<const Bytef*>(state.data()), state.size());
    }
    EXPECT_GT(play.GetGameLogic().GetStory().banked.oven, 0) << "the game has too little in it";
    return (std::ostringstream() << "rules " << kRulesVersion << ", " << std::hex << hash).str();
  };
  EXPECT_EQ(courseOf(false), "rules 1, 32736d75");
  EXPECT_EQ(courseOf(true), "rules 1, f0c85bfc");
}

TEST_F(ReplayTest, TheFirstDifferenceNamesTimeBodyFieldAndValues) {
  RecordShortGame(900);
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

TEST_F(ReplayTest, ACutRecordingPlaysUpToItsLastWholeBlock) {
  RecordShortGame(1200);
  const std::string bytes = FileText("game.replay");
  const auto blockFrom = [&bytes](std::size_t at) {
    return 12 + CByteReader(std::string_view(bytes).substr(at)).TakeWord();
  };
  std::size_t end = kHeadBytes + blockFrom(kHeadBytes);  // of the last whole block
  WriteFile("cut.replay", bytes.substr(0, kHeadBytes));
  EXPECT_EQ(Verdict("cut.replay"), "it ends before its game begins");
  for (unsigned start = 0; end < bytes.size(); start += 5000) {
    const std::size_t next = end + blockFrom(end);
    for (const std::size_t length : {end, end + 5, next - 1}) {
      WriteFile("cut.replay", bytes.substr(0, length));
      unsigned time = 0;
      const std::string verdict = Verdict("cut.replay", &time);
      EXPECT_TRUE(verdict.starts_with("it ends before its game does")) << length << " " << verdict;
      EXPECT_NEAR(time, start, 900) << length;
    }
    end = next;
  }
  EXPECT_EQ(end, bytes.size());
}

// Which of the checks finds it depends on the place; none may be taken for a whole game.
TEST_F(ReplayTest, NoFlippedBitPassesForAWholeGame) {
  RecordShortGame(20);
  EXPECT_EQ(Verdict("game.replay"), "");
  const std::string whole = FileText("game.replay");
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string bytes = whole;
    bytes[i] = static_cast<char>(bytes[i] ^ 1 << i % 8);
    WriteFile("game.replay", bytes);
    EXPECT_NE(Verdict("game.replay"), "") << "byte " << i;
  }
}

TEST_F(ReplayTest, FilesThatAreNoRecordingsAreRefusedInALine) {
  WriteFile("game.replay", "GIF89a and more");
  EXPECT_EQ(Verdict("game.replay"), "it is no recording");
  WriteFile("game.replay", "brumrec\n\x02\x01");
  EXPECT_EQ(Verdict("game.replay"), "it has version 2 of the format, and this program reads 1");
  WriteFile("game.replay", "brumrec\n\x01\x63");
  EXPECT_TRUE(
      Verdict("game.replay").starts_with("its game has version 99 of the rules, and this "));
  EXPECT_EQ(Verdict("data"), "it is no recording");
  EXPECT_EQ(Verdict("missing.replay"), "it can't be read");
  EXPECT_EQ(Verdict("/dev/zero"), "it can't be read");
}

// Whole to their checksums: what is refused is what they say.
TEST_F(ReplayTest, HostileRecordingsAreRefused) {
  const auto verdict = [](const SGameStart& start, const std::vector<SInput>& inputs) {
    fs::remove("game.replay");
    CRecordingWriter writer("game.replay", start, {});
    for (const SInput& input : inputs) {
      writer.Add(input);
    }
    writer.End(false, 0);
    return Verdict("game.replay");
  };
  constexpr int kFew = kFirstKittenIndex, kMany = kFew + kMostKittens;
  const std::string damaged = "its block 1 is damaged";
  EXPECT_EQ(verdict({.resetCounter = -kMostCounter, .bodies = kMany}, {}), "");
  EXPECT_EQ(verdict({.bodies = kFew - 1}, {}), damaged);
  EXPECT_EQ(verdict({.bodies = kMany + 1}, {}), damaged);
  EXPECT_EQ(verdict({.resetCounter = kMostCounter + 1, .bodies = kFew}, {}), damaged);
  EXPECT_EQ(verdict({.lookCounter = -1, .bodies = kFew}, {}), damaged);
  EXPECT_EQ(verdict({.lookCounter = kMostCounter + 1, .bodies = kFew}, {}), damaged);
  EXPECT_EQ(verdict({.bodies = kFew, .pointerX = kMostPointer + 1}, {}), damaged);
  EXPECT_EQ(verdict({.bodies = kFew, .pointerY = -kMostPointer - 1}, {}), damaged);
  const SGameStart start = {.bodies = kFew};
  EXPECT_EQ(verdict(start, {{.pointerX = -kMostPointer, .pointerY = kMostPointer}}), "");
  EXPECT_EQ(verdict(start, {{.pointerX = -kMostPointer - 1}}), "its block 2 is damaged");
  EXPECT_EQ(verdict(start, {{.pointerY = kMostPointer + 1}}), "its block 2 is damaged");
  std::vector<SInput> kittens(kMostKittens, {.kind = EInput::kKitten});
  EXPECT_EQ(verdict(start, kittens), "");
  kittens.push_back(kittens.back());
  EXPECT_EQ(verdict(start, kittens), "it has more than 256 extra kittens");
}

TEST_F(ReplayTest, KeepsTheLastTenGamesAndThoseOfTheBestScores) {
  fs::create_directory(kReplayFolder);
  const std::string mine = std::string(kReplayFolder) + "/0 mine.replay";
  WriteFile(mine, "not of this game");
  std::vector<std::string> games;
  for (int game = 0; game < 12; ++game) {
    StartGame();
    GameState().isGameOver = true;
    Frame(101);
    games.push_back(*Replays().rbegin());
    EXPECT_EQ(ReadScores()->back().recording, games.back()) << "equal scores stay in order";
    WriteFile(kScoresFile, "90 2001-01-01 " + games[0] + "\n");
    task.Exit();
  }
  std::set<std::string> kept(games.begin() + 2, games.end());
  kept.insert({mine, games[0]});
  EXPECT_EQ(Replays(), kept);
}

TEST_F(ReplayTest, NothingIsOverwritten) {
  vask::platform::SetWallClock([] { return std::int64_t{5}; });
  for (const std::size_t game : {1U, 2U, 3U}) {
    StartGame();
    EXPECT_EQ(Replays().size(), game) << "in the same second";
  }
  WriteFile("game.replay", "mine");
  EXPECT_EQ(Line("recordgame(game.replay)"), "Error: RecordGame() game.replay is there already.");
}

TEST_F(ReplayTest, AFolderThatCannotBeWrittenIsReportedOnce) {
  for (int game = 0; game < 2; ++game) {
    StartGame("recordgame(missing/game.replay)");
    EXPECT_EQ(log.Count("Recording: missing/game.replay can't be written: No such file"), 1U);
  }
}

TEST_F(ReplayTest, AVariableTurnsRecordingOffUnlessItIsWanted) {
  Line("game_record = 0");
  StartGame("recordgame(game.replay)");
  StartGame();
  EXPECT_TRUE(fs::exists("game.replay"));
  EXPECT_TRUE(Replays().empty());
  Line("game_record = 1");
}

TEST_F(ReplayTest, AFailedAssertionWritesTheGameUpToItsFrameAndTellsTheFile) {
  StartGame();
  const unsigned start = clock.Now();
  PlayFor(100);
  VASK_ASSERT(false, "told below");
  const std::string file = *Replays().begin();
  EXPECT_EQ(vask::GetAssertNote(),
            "The game up to this frame is in " + file + "; replaygame(" + file + ") plays it.");
  unsigned time = 0;
  EXPECT_TRUE(Verdict(file, &time).starts_with("it ends before its game does"));
  EXPECT_NEAR(time, clock.Now() - start, 5) << "less than a step";
  task.Exit();
  VASK_ASSERT(false, "nothing is recorded");
  EXPECT_EQ(vask::GetAssertNote(), "");
}

TEST_F(ReplayTest, TheTitlePlaysADemoUntilSomebodyComes) {
  const auto isDemo = [this](unsigned wait) {
    Frame(wait);
    return !test::Shown(kDemoFile).empty() && Impl().GetReplay() != nullptr;
  };
  task.Start();
  EXPECT_FALSE(isDemo(100000)) << "not unless it is wanted";
  Line("game_demo_after = 30");
  EXPECT_TRUE(isDemo(0));
  for (void (*const touch)() : {+[] { Click(); }, +[] { Press("p"); }}) {
    EXPECT_TRUE(isDemo(1000));
    touch();
    EXPECT_FALSE(isDemo(10));
    EXPECT_EQ(test::Shown(kTitleScreenFile).size(), 1U) << "no more than the title";
    EXPECT_FALSE(isDemo(29980));
    EXPECT_TRUE(isDemo(20));
  }
  for (int second = 0; second < 200 && isDemo(1000); ++second) {
  }
  EXPECT_EQ(test::Shown(kTitleScreenFile).size(), 1U) << "after its end";
  EXPECT_TRUE(ReadScores()->empty());
  EXPECT_EQ(Verdict(kDemoRecording), "");
  Line("game_demo_after = 0");
}

TEST_F(ReplayTest, KeysAndPausesHoldAReplayAndKeysChangeItsSpeed) {
  hitch = 0;
  RecordShortGame(900);
  task.Start();
  Line("replaygame(game.replay)");
  ASSERT_NE(Impl().GetReplay(), nullptr);
  const auto timeAfter = [this](const char* key, unsigned wait) {
    Press(key);
    Frame(wait);
    return Impl().GetReplay()->GetGame().GetTime();
  };
  constexpr unsigned kNear = 25;
  EXPECT_NEAR(timeAfter("", 1000), 1000, kNear);
  EXPECT_NEAR(timeAfter("space", 500), 1000, kNear) << "held";
  EXPECT_NEAR(timeAfter("right", 500), 1016, 8) << "on to the next frame";
  EXPECT_NEAR(timeAfter("space", 484), 1500, kNear);
  EXPECT_NEAR(timeAfter("up", 500), 2500, kNear);
  EXPECT_TRUE(AreEffectsShown());
  EXPECT_NEAR(timeAfter("up", 500), 4500, kNear);
  EXPECT_FALSE(AreEffectsShown()) << "at four times the speed";
  timeAfter("down", 0);
  timeAfter("down", 0);
  EXPECT_NEAR(timeAfter("down", 1000), 5000, kNear);
  EXPECT_TRUE(AreEffectsShown());
  task.Pause();
  Frame(60000);
  task.Resume();
  EXPECT_NEAR(timeAfter("", 0), 5000, kNear) << "no time passes in a pause";
  EXPECT_NEAR(timeAfter("", 1000), 5500, kNear) << "and goes on after it";
  Line("stopreplay");
  task.Pause();
  Line("replaygame(game.replay)");
  EXPECT_NEAR(timeAfter("", 1000), 0, kNear) << "the game is paused already";
}

TEST_F(ReplayTest, AReplayLeavesNoTrace) {
  RecordShortGame(300);
  task.Start();
  task.ExecuteCommand("");  // an extra kitten
  const auto traces = [this] {
    const SWorldState& state = WorldState();
    return std::tuple(Impl().GetWorld().GetBodyCount(), state.resetCounter, state.lookCounter,
                      Replays(), ReadScores()->size(), test::Shown(kTitleScreenFile).size());
  };
  const auto before = traces();
  EXPECT_TRUE(Line("replaygame(data)").starts_with("Error: ReplayGame() data: it "));
  Line("replaygame(game.replay)");
  EXPECT_TRUE(test::Shown(kTitleScreenFile).empty());
  task.ExecuteCommand("");  // an extra kitten
  Frame(1000);
  Line("stopreplay");
  EXPECT_EQ(traces(), before);
  Line("replaygame(game.replay)");
  Frame(20000);
  EXPECT_TRUE(log.Has("Replay: held, score"));
  EXPECT_EQ(traces(), before) << "after the end of the recording";
}

}  // namespace
}  // namespace brumble
