#include "events/eventbridge.h"
#include "game/effects.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/gamerecording.h"
#include "game/physics/arena.h"
#include "game/physics/physicshandle.h"
#include "game/physics/worldstate.h"
#include "game/pilot.h"
#include "game/play.h"
#include "game/playstate.h"
#include "game/replay/recordingformat.h"
#include "game/replay/recordingwriter.h"
#include "game/replay/rulesversion.h"
#include "game/replayedgame.h"
#include "gfx/text/textsprite.h"
#include "input/keyboard.h"
#include "input/keynames.h"
#include "ui/desktopwidget.h"

#include <zlib.h>

#include <cmath>
#include <functional>
#include <set>
#include <sstream>
#include <tuple>

namespace brumble {
namespace {

namespace fs = std::filesystem;

using vask::test::Execute;
using vask::test::FileText;
using vask::test::WriteFile;

std::set<fs::path> Replays() {
  std::error_code missing;
  return {fs::directory_iterator(kReplayFolder, missing), fs::directory_iterator()};
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

// In a rain of kittens.
unsigned long PhysicsCourse() {
  CPhysicsHandle physics;
  physics.ResetWorld(1);
  unsigned long hash = 0;
  for (int step = 0; step < 2000; ++step) {
    if (step % 20 == 0) {
      physics.SpawnKitten();
    }
    physics.SetMousePosition(step * 23 % 800, 300 + step * 7 % 250);
    physics.Step(15);
    for (const CPhysicsBody& body : physics.GetWorld()->GetBodies()) {
      const float motion[] = {body.x, body.y, body.angle, body.vx, body.vy, body.angularVelocity};
      hash = crc32_z(hash, reinterpret_cast<const Bytef*>(motion), sizeof motion);
    }
  }
  return hash;
}

std::int64_t ourSeconds = 0;

// Games that are played and recorded by the task, each with another seed.
class ReplayTest : public test::GameTaskTest {
 public:
  ReplayTest() {
    ourSeconds = 1'000'000;
    vask::platform::SetWallClock([] { return ++ourSeconds; });
    WorldState() = {};
    vask::Gfx::SetFactory(nullptr);  // turned pictures would take most of the time
  }
  ~ReplayTest() override {
    Execute("game_record = 1; game_demo_after = 0");
    fs::remove("game.replay");
  }

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
  // What may happen in a game.
  void Pause() { task.Pause(); }
  void Resume() { task.Resume(); }
  void DropKitten() { task.ExecuteCommand(""); }
  void PauseForAWhile() {
    Pause();
    Pass(5000);
    Resume();
  }
  void LoseFocusForAFrame() {
    vask::CEventBridge::GetSingletonPtr()->FocusEvent(false);
    Frame(30);
    vask::CEventBridge::GetSingletonPtr()->FocusEvent(true);
  }
  // Leaves a game of some seconds as "game.replay".
  void RecordShortGame(int frames) {
    StartGame("recordgame(game.replay)");
    PlayFor(frames);
    task.Exit();
  }
  // Leaves a replay in the task, at its beginning.
  void ShowReplay() {
    hitch = 0;
    RecordShortGame(900);
    task.Start();
    Execute("replaygame(game.replay)");
  }
  // How far the replay is, in milliseconds.
  unsigned ReplayTime() const {
    return Impl().GetReplay() != nullptr ? Impl().GetReplay()->GetGame().GetTime() : ~0U;
  }

  unsigned hitch = 300;  // milliseconds of every fiftieth frame
};

// Played again without the cast and without pictures, which must not draw from the random numbers.
TEST_F(ReplayTest, EveryGameIsPlayedAgainToTheSameStates) {
  struct {
    const char* name;
    bool isDoorOpen = false;
    std::function<void()> onTitle = [] {};
    std::function<void()> disturb = [] {};
  } const games[] = {
      {.name = "plain"},
      {.name = "open door", .isDoorOpen = true},
      {.name = "kitten of the title", .onTitle = [this] { DropKitten(); }},
      {.name = "paused first", .onTitle = [this] { Pause(); }, .disturb = [this] { Resume(); }},
      {.name = "extra kittens", .disturb = [this] { DropKitten(); }},
      {.name = "pauses", .disturb = [this] { PauseForAWhile(); }},
      {.name = "frames without the focus", .disturb = [this] { LoseFocusForAFrame(); }},
  };
  for (const auto& game : games) {
    SCOPED_TRACE(game.name);
    const std::size_t before = Replays().size();
    vask::Gfx::SetFactory(&pictures);
    WorldState().isDoorOpen = game.isDoorOpen;
    task.Start();
    game.onTitle();
    Click();
    Click();
    PlayFor(1500, game.disturb);
    ASSERT_EQ(Replays().size(), before + 1);
    const std::string file = *Replays().rbegin();
    task.Exit();
    vask::Gfx::SetFactory(nullptr);
    unsigned time = 0;
    EXPECT_EQ(Verdict(file, &time), "");
    EXPECT_GT(time, 20000U);
  }
}

// The courses of the physics alone and of a game that a pilot plays, their bodies to the bit, the
// same in every build, as is the recorded game of the demo. After a change that means to change the
// rules, raise kRulesVersion, and put it and the hashes that the failing test prints here; a change
// of the pilot alone needs no new version.
TEST_F(ReplayTest, PhysicsAndAWholeGameTakeTheSameCourseInEveryBuild) {
  std::ostringstream courses;
  courses << "rules " << kRulesVersion << ", " << std::hex << PhysicsCourse();
  CPilot pilot(CPilot::EManner::kPresser, 1);
  CPlay play;
  play.Start(play.NextStart(1));
  unsigned long hash = 0;
  for (unsigned time = 11; !play.IsOver(); time += 11) {
    const auto [x, y] = pilot.PointerAt(play.GetWorld(), time);
    play.Take({.time = time, .appTime = time, .pointerX = x, .pointerY = y});
    const std::string state = PackState(StateOf(play));
    hash = crc32_z(hash, reinterpret_cast<const Bytef*>(state.data()), state.size());
  }
  courses << ", " << hash;
  EXPECT_EQ(courses.str(), "rules 1, dcf13f33, 32736d75");
  EXPECT_GT(play.GetGameLogic().GetStory().banked.oven, 0) << "the game has too little in it";
  EXPECT_EQ(Verdict(kDemoRecording), "");
}

TEST_F(ReplayTest, TheFirstDifferenceEndsTheGameWhenItShould) {
  const auto endAfter = [this](const char* line) {
    Execute(line);
    ShowReplay();
    unsigned time = 0;
    while (Impl().GetReplay() != nullptr) {
      Bodies()[kMonsterIndex].invMass = 0.5F;
      time = ReplayTime();
      Frame(100);
    }
    EXPECT_TRUE(log.Has("body 7, inverse mass is 0.5, recorded 0."));
    return time;
  };
  EXPECT_LT(endAfter("game_replay_stop = 1"), 1500U) << "at the first state";
  EXPECT_GT(endAfter("game_replay_stop = 0"), 5000U);
}

// In its place, and with both values.
TEST_F(ReplayTest, EachFieldOfTheStateIsCompared) {
  const SGameStart start = CPlay().NextStart(1);
  // Records a second of a game with an extra kitten, whose state may have a bit of a field flipped.
  const auto fieldsOf = [&start](std::size_t flipped) {
    CPlay play;
    play.Start(start);
    fs::remove("game.replay");
    CRecordingWriter writer("game.replay", start, {});
    for (unsigned time = 9; time < 1000; time += 9) {
      const EInput kind = time == 9 ? EInput::kKitten : EInput::kFrame;
      const SInput input = {.kind = kind, .time = time, .appTime = time, .pointerX = 300};
      writer.Add(input);
      play.Take(input);
    }
    CStateFields fields = StateOf(play);
    if (flipped < fields.size()) {
      fields[flipped].bits ^= 1U;
    }
    writer.AddState(fields);
    writer.End(false, 0);
    return fields;
  };
  const CStateFields fields = fieldsOf(~std::size_t{0});
  EXPECT_EQ(Verdict("game.replay"), "");
  EXPECT_EQ(fields.back().Name(), "kitten 9, push wait") << "there are two kittens";
  for (std::size_t i = 1; i < fields.size(); ++i) {  // the first is how many follow
    const SStateField flipped = fieldsOf(i)[i];
    EXPECT_EQ(Verdict("game.replay"), "after 0.999 s: " + fields[i].Name() + " is " +
                                          fields[i].ValueText(fields[i].bits) + ", recorded " +
                                          fields[i].ValueText(flipped.bits));
  }
}

// As often as a step can be due, and a hand that sweeps over the window three times a second.
TEST_F(ReplayTest, TheFastestFramesAndTheWildestHandStaySmall) {
  CPlay play;
  const SGameStart start = play.NextStart(1);
  play.Start(start);
  CGameRecording recording(play, "game.replay", start, {});
  for (unsigned time = 1; time <= 60000; ++time) {
    const double angle = time * 0.001 * 3 * 6.283;
    const SInput input = {.time = time,
                          .appTime = time,
                          .pointerX = static_cast<int>(400 + 350 * std::cos(angle)),
                          .pointerY = static_cast<int>(300 + 250 * std::sin(0.77 * angle))};
    if (play.IsDue(input)) {
      recording.Note(input);
      play.Take(input);
    }
  }
  recording.End();
  const std::string bytes = FileText("game.replay");
  std::size_t unpacked = 0;
  for (std::size_t block = 10; block < bytes.size();) {  // after the mark and the versions
    CByteReader head(std::string_view(bytes).substr(block));
    block += 12 + head.TakeWord();
    unpacked += head.TakeWord();
  }
  EXPECT_LT(unpacked, 45U * 1024);
  EXPECT_LT(bytes.size(), 25U * 1024);
}

// A block has the entries of five seconds: its last one comes just before they are over.
TEST_F(ReplayTest, ACutRecordingPlaysUpToItsLastWholeBlock) {
  RecordShortGame(1200);
  const std::string bytes = FileText("game.replay");
  std::set<unsigned> times;
  for (std::size_t length = 10; length < bytes.size(); length += 101) {  // after its head
    WriteFile("game.replay", bytes.substr(0, length));
    unsigned time = 0;
    const std::string verdict = Verdict("game.replay", &time);
    EXPECT_TRUE(verdict.starts_with("it ends before its game ")) << length << " " << verdict;
    times.insert(time);
  }
  EXPECT_EQ(times.size(), 5U) << "none, or one block to four";
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
  WriteFile("game.replay", "brumrec\n\x01\x01");
  EXPECT_EQ(Verdict("game.replay"), "it has version 1 of the format, and this program reads 2");
  WriteFile("game.replay", "brumrec\n\x02\x63");
  EXPECT_TRUE(
      Verdict("game.replay").starts_with("its game has version 99 of the rules, and this "));
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
  constexpr int kLeast = kFirstKittenIndex, kMost = kLeast + kMostKittens;  // bodies
  const std::string damaged = "its block 1 is damaged";
  EXPECT_EQ(verdict({.resetCounter = -kMostCounter, .bodies = kMost}, {}), "");
  EXPECT_EQ(verdict({.bodies = kLeast - 1}, {}), damaged);
  EXPECT_EQ(verdict({.bodies = kMost + 1}, {}), damaged);
  EXPECT_EQ(verdict({.resetCounter = kMostCounter + 1, .bodies = kLeast}, {}), damaged);
  EXPECT_EQ(verdict({.lookCounter = -1, .bodies = kLeast}, {}), damaged);
  EXPECT_EQ(verdict({.lookCounter = kMostCounter + 1, .bodies = kLeast}, {}), damaged);
  EXPECT_EQ(verdict({.bodies = kLeast, .pointerX = kMostPointer + 1}, {}), damaged);
  EXPECT_EQ(verdict({.bodies = kLeast, .pointerY = -kMostPointer - 1}, {}), damaged);
  const SGameStart start = {.bodies = kLeast};
  EXPECT_EQ(verdict(start, {{.pointerX = -kMostPointer, .pointerY = kMostPointer}}), "");
  EXPECT_EQ(verdict(start, {{.pointerX = -kMostPointer - 1}}), "its block 2 is damaged");
  EXPECT_EQ(verdict(start, {{.pointerY = kMostPointer + 1}}), "its block 2 is damaged");
  std::vector<SInput> kittens(kMostKittens, {.kind = EInput::kKitten});
  EXPECT_EQ(verdict(start, kittens), "");
  kittens.push_back(kittens.back());
  EXPECT_EQ(verdict(start, kittens), "it has more than 256 extra kittens");
  fs::remove("game.replay");
  CRecordingWriter writer("game.replay", start, {});
  writer.AddState({});
  writer.AddState({});
  writer.End(false, 0);
  EXPECT_TRUE(Verdict("game.replay").ends_with("its block 2 is damaged")) << "states take long";
}

TEST_F(ReplayTest, KeepsTheLastTenGamesAndThoseOfTheBestScores) {
  fs::create_directory(kReplayFolder);
  const std::string mine = std::string(kReplayFolder) + "/0 mine.replay";
  WriteFile(mine, "not of this game");
  std::vector<std::string> games;
  for (int game = 0; game < 12; ++game) {
    StartGame();
    EndGame();
    games.push_back(*Replays().rbegin());
    EXPECT_EQ(ReadScores()->back().recording, games.back()) << "equal scores stay in order";
    WriteFile(kScoresFile, "90 2001-01-01 " + games[0] + "\n");
    task.Exit();
  }
  std::set<fs::path> kept(games.begin() + 2, games.end());
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
  EXPECT_EQ(Execute("recordgame(game.replay)"),
            "Error: RecordGame() game.replay is there already.");
}

TEST_F(ReplayTest, AFolderThatCannotBeWrittenIsReportedOnceAndANamedFileEachTime) {
  WriteFile(kReplayFolder, "in the way");
  for (const std::size_t game : {1U, 2U}) {
    StartGame("recordgame(missing/game.replay)");
    EXPECT_EQ(log.Count("Recording: missing/game.replay can't be written: No such file"), game);
    StartGame();
    EXPECT_EQ(log.Count("Recording: replays can't be written: File exists"), 1U);
  }
}

TEST_F(ReplayTest, AVariableTurnsRecordingOffUnlessItIsWanted) {
  Execute("game_record = 0");
  StartGame("recordgame(game.replay)");
  StartGame();
  EXPECT_TRUE(fs::exists("game.replay"));
  EXPECT_TRUE(Replays().empty());
}

TEST_F(ReplayTest, FailedAssertionsWriteTheRecordingIfAnyAndTellItsFile) {
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
  for (int failure = 2; failure <= 101; ++failure) {
    const auto size = fs::file_size(file);
    Frame(6);
    VASK_ASSERT(false, "a hundred are written at once");
    EXPECT_EQ(fs::file_size(file) > size, failure <= 100) << failure;
  }
  EXPECT_EQ(log.Count(vask::GetAssertNote()), 101U);
  task.Exit();
  VASK_ASSERT(false, "nothing is recorded");
  EXPECT_EQ(vask::GetAssertNote(), "");
}

TEST_F(ReplayTest, TheTitlePlaysADemoWithoutAScoreUntilSomebodyComes) {
  const auto signsAndDemosAfter = [this](unsigned wait) {
    Frame(wait);
    return test::Shown(kDemoFile).size() + (Impl().GetReplay() != nullptr ? 1 : 0);
  };
  struct CBound : vask::IKeyEvent {
    bool Trigger(int) override {
      ADD_FAILURE() << "the key does something";
      return true;
    }
  };
  vask::CKeyboard::GetSingletonPtr()->BindKey(vask::KeyFromName("f5"),
                                              vask::CSmartPtr<vask::IKeyEvent>(new CBound), 0);
  vask::CEventBridge& events = *vask::CEventBridge::GetSingletonPtr();
  vask::Gfx::SetFactory(&pictures);
  task.Start();
  EXPECT_EQ(signsAndDemosAfter(100000), 0U) << "not unless it is wanted";
  Execute("game_demo_after = 30");
  EXPECT_EQ(signsAndDemosAfter(0), 2U);
  for (const std::function<void()>& touch : std::vector<std::function<void()>>{
           [] { Click(); }, [] { Press("f5"); }, [&] { events.MouseMove(9, 9, 1, 1); }}) {
    EXPECT_EQ(signsAndDemosAfter(1000), 2U);
    touch();
    EXPECT_EQ(signsAndDemosAfter(10), 0U);
    EXPECT_EQ(test::Shown(kTitleScreenFile).size(), 1U) << "no more than the title";
    EXPECT_EQ(signsAndDemosAfter(29980), 0U);
    EXPECT_EQ(signsAndDemosAfter(20), 2U);
  }
  for (int second = 0; second < 200 && signsAndDemosAfter(1000) == 2; ++second) {
  }
  EXPECT_EQ(signsAndDemosAfter(0), 0U);
  EXPECT_EQ(test::Shown(kTitleScreenFile).size(), 1U) << "after its end";
  EXPECT_TRUE(ReadScores()->empty());
  events.FocusEvent(false);
  EXPECT_EQ(signsAndDemosAfter(100000), 0U) << "without the focus";
  events.FocusEvent(true);
  vask::ui::CDesktopWidget::GetSingletonPtr()->AddChild(new vask::ui::CWidget);
  EXPECT_EQ(signsAndDemosAfter(100000), 0U) << "below a console";
  vask::ui::CDesktopWidget::DeleteSingleton();
  Click();
  EXPECT_EQ(signsAndDemosAfter(100000), 0U) << "not over the help";
}

TEST_F(ReplayTest, KeysHoldAReplayAndChangeItsSpeed) {
  ShowReplay();
  // What it shows after a key and a while. The game is as far as that, but for a frame.
  const auto shownAfter = [this](const char* key, unsigned wait, unsigned time) {
    Press(key);
    Frame(wait);
    EXPECT_NEAR(ReplayTime(), time, 14);
    const auto& readout = dynamic_cast<vask::CTextSprite&>(*test::Shown("").at(0));
    return readout.GetText() + (AreEffectsShown() ? "" : ", no effects");
  };
  EXPECT_EQ(shownAfter("", 1000, 1000), "Replay 0:01.0");
  EXPECT_EQ(shownAfter("right", 500, 1016), "Replay 0:01.0  held") << "on to the next frame";
  EXPECT_EQ(shownAfter("space", 484, 1500), "Replay 0:01.5");
  EXPECT_EQ(shownAfter("space", 500, 1500), "Replay 0:01.5  held");
  Press("space");
  EXPECT_EQ(shownAfter("up", 500, 2500), "Replay 0:02.5  x 2");
  EXPECT_EQ(shownAfter("up", 500, 4500), "Replay 0:04.5  x 4, no effects");
  Press("down");
  Press("down");
  EXPECT_EQ(shownAfter("down", 1000, 5000), "Replay 0:05.0  x 1/2");
}

TEST_F(ReplayTest, APauseHoldsAReplayAlsoOneThatBeginsInIt) {
  ShowReplay();
  Pause();
  Frame(60000);
  Press("right");
  EXPECT_EQ(ReplayTime(), 0U);
  Resume();
  Frame(1000);
  EXPECT_NEAR(ReplayTime(), 1000, 25);
  Execute("stopreplay");
  Pause();
  Execute("replaygame(game.replay)");
  Frame(1000);
  EXPECT_EQ(ReplayTime(), 0U) << "the game is paused already";
}

TEST_F(ReplayTest, AReplayLeavesNoTraceAlsoOneThatIsRefused) {
  RecordShortGame(300);
  task.Start();
  DropKitten();
  const auto traces = [this] {
    const SWorldState& state = WorldState();
    return std::tuple(Impl().GetWorld().GetBodyCount(), state.resetCounter, state.lookCounter,
                      Replays(), ReadScores()->size(), test::Shown(kTitleScreenFile).size());
  };
  const auto before = traces();
  EXPECT_TRUE(Execute("replaygame(data)").starts_with("Error: ReplayGame() data: it "));
  WriteFile("cut.replay", FileText("game.replay").substr(0, 60));  // within its second block
  EXPECT_TRUE(Execute("replaygame(cut.replay)").ends_with("game does, after 0.000 s."));
  Execute("replaygame(game.replay)");
  EXPECT_TRUE(test::Shown(kTitleScreenFile).empty());
  DropKitten();
  Frame(1000);
  Execute("stopreplay");
  EXPECT_EQ(traces(), before);
  Execute("replaygame(game.replay)");
  Frame(20000);
  EXPECT_TRUE(log.Has("Replay: held, score"));
  EXPECT_EQ(traces(), before) << "after the end of the recording";
  Click();
  Click();
  EXPECT_EQ(Execute("replaygame(game.replay)"), "Error: ReplayGame() A game is being played.");
}

// The shipped game opens the door soon.
TEST_F(ReplayTest, AReplayOfAnOpenDoorLeavesNothingBehind) {
  vask::Gfx::SetFactory(&pictures);
  const auto shown = [] { return vask::CScreenLayer::GetSingletonPtr()->GetChildren().size(); };
  const auto playToTheOpenDoor = [this] {
    Execute(std::string("replaygame(") + kDemoRecording + ")");
    Press("up");
    Press("up");
    while (!Impl().GetGameLogic().GetStory().isDoorOpen) {
      Frame(50);
    }
  };
  task.Start();
  playToTheOpenDoor();
  task.Exit();
  EXPECT_FALSE(WorldState().isDoorOpen);
  task.Start();
  const std::size_t before = shown();
  playToTheOpenDoor();
  Frame(1000);
  EXPECT_EQ(audio.played, "") << "four times as fast";
  Press("down");
  Frame(10);
  EXPECT_EQ(test::Shown(kOvenBreathFile).size(), 1U);
  Execute("stopreplay");
  EXPECT_EQ(shown(), before);
  playToTheOpenDoor();
  while (Impl().GetScreen() == nullptr) {
    Frame(1000);
  }
  EXPECT_TRUE(ReadScores()->empty() && Replays().empty());
  DropKitten();
  Click();
  Click();
  EXPECT_EQ(Impl().GetWorld().GetBodyCount(), kFirstKittenIndex + 1) << "dropped at the panel";
}

}  // namespace
}  // namespace brumble
