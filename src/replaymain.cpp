// Plays recorded games without window and sound, as fast as it can, and tells whether they come to
// the same states and scores again. Can also let a pilot play one, and record it.

#include "game/effects.h"
#include "game/gamerecording.h"
#include "game/pilot.h"
#include "game/play.h"
#include "game/replayedgame.h"
#include "utils/containers/varref.h"
#include "utils/log/log.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kUsage =
    "Usage: brumble_replay [--stop] FILE...\n"
    "       brumble_replay --record MANNER SEED FILE\n\n"
    "Plays recorded games. Ends with status 0 when all of them were whole and came to the same\n"
    "states and scores as recorded, else with 1.\n\n"
    "  --stop    ends each game at its first difference\n"
    "  --record  lets a pilot play a game, and records it into a new file; the manners are idle,\n"
    "            sweeper, chaser, bouncer, spinner, presser and fidgeter\n";

constexpr unsigned kLongestGame = 3'600'000;  // milliseconds, of a pilot

// Every seventh seed is of a game that follows another one: the door is open, kittens are left
// over, and the task is paused; and the window loses the focus at times.
bool FollowsAnother(std::uint32_t seed) { return seed % 7 == 0; }

brumble::SGameStart StartOf(const brumble::CPlay& play, std::uint32_t seed) {
  brumble::SGameStart start = play.NextStart(seed);
  if (FollowsAnother(seed)) {
    start.isDoorOpen = true;
    start.bodies += 3;
    start.isPaused = true;
  }
  return start;
}

// The frames of a machine that isn't always equally fast, and a task that is paused at times; every
// fifth seed has extra kittens.
class CFrames {
 public:
  CFrames(std::uint32_t seed, bool isPaused) : mySeed(seed) {
    myInput.kind = isPaused ? brumble::EInput::kPause : brumble::EInput::kFrame;
  }

  brumble::SInput Next() {
    myNoise = myNoise * 1664525U + 1013904223U + mySeed;
    const unsigned roll = myNoise >> 16U;
    const bool isSlow = roll % 97 == 0;
    const unsigned usual = 5 + mySeed % 4 * 4;  // 5, 9, 13 or 17 milliseconds
    const unsigned wait = isSlow ? roll % 400 : usual + roll % 3;
    const bool hasFocus = !FollowsAnother(mySeed) || roll % 13 != 0;
    myInput.time += wait;
    myInput.appTime += hasFocus ? wait : 0;
    myInput.kind = NextKind(roll);
    return myInput;
  }

 private:
  brumble::EInput NextKind(unsigned roll) const {
    if (myInput.kind == brumble::EInput::kPause) {
      return brumble::EInput::kResume;
    }
    if (roll % 3001 == 0) {
      return brumble::EInput::kPause;
    }
    const bool drops = mySeed % 5 == 0 && roll % 1999 == 0;
    return drops ? brumble::EInput::kKitten : brumble::EInput::kFrame;
  }

  std::uint32_t mySeed;
  std::uint32_t myNoise = 0;
  brumble::SInput myInput;
};

// Returns whether the game came to its end and into the file.
bool Record(brumble::CPilot::EManner manner, std::uint32_t seed, const std::string& file) {
  brumble::CPlay play;
  brumble::CPilot pilot(manner, seed);
  const brumble::SGameStart start = StartOf(play, seed);
  CFrames frames(seed, start.isPaused);
  play.Start(start);
  brumble::CGameRecording recording(play, file, start, {});
  brumble::SInput input;
  while (!play.IsOver() && input.time < kLongestGame) {
    input = frames.Next();
    const brumble::SScreenPoint pointer = pilot.PointerAt(play.GetWorld(), input.time);
    input.pointerX = pointer.x;
    input.pointerY = pointer.y;
    if (play.IsDue(input)) {
      recording.Note(input);
      play.Take(input);
    }
  }
  recording.End();
  if (!recording.GetFile().IsGood()) {
    std::cerr << file << ": " << recording.GetFile().GetError() << "\n";
  }
  return play.IsOver() && recording.GetFile().IsGood();
}

// Prints a line or two; returns whether all held.
bool Play(const std::string& file, bool stopsAtDifference) {
  brumble::CPlay play;
  brumble::CReplayedGame game(play, file, stopsAtDifference);
  while (!game.IsDone()) {
    game.PlayNext();
  }
  std::cout << file << ": " << (game.HasHeld() ? "held, " : "NOT held, ") << game.GetSummary()
            << "\n";
  for (const std::string& line : {game.GetDifference(), game.GetProblem()}) {
    if (!line.empty()) {
      std::cout << "  " << line << "\n";
    }
  }
  return game.HasHeld();
}

int Usage() {
  std::cerr << kUsage;
  return 2;
}

// MANNER SEED FILE
int RecordAsTold(const std::vector<std::string>& words) {
  brumble::CPilot::EManner manner = {};
  std::uint32_t seed = 0;
  if (words.size() != 3 || !brumble::CPilot::FindManner(words[0], manner) ||
      !vask::ReadFromText(words[1], seed)) {
    return Usage();
  }
  return Record(manner, seed, words[2]) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> files(argv + 1, argv + argc);
  vask::CLog::KeepOffDisk();
  brumble::SetEffectsShown(false);
  if (!files.empty() && files.front() == "--record") {
    return RecordAsTold({files.begin() + 1, files.end()});
  }
  const bool stops = std::erase(files, "--stop") > 0;
  if (files.empty() || files.front().starts_with("--")) {
    return Usage();
  }
  bool haveAllHeld = true;
  for (const std::string& file : files) {
    haveAllHeld = Play(file, stops) && haveAllHeld;
  }
  return haveAllHeld ? 0 : 1;
}
