#pragma once

#include "game/replay/recordingreader.h"

#include <string>

namespace brumble {

class CPlay;

// Plays a recorded game: gives play the inputs in its file, and compares the states that it comes
// to with those in the file.
//
//     CReplayedGame game(play, file);
//     while (!game.IsDone()) {
//       game.PlayNext();
//     }
class CReplayedGame {
 public:
  // Starts the game in `play`, which is not owned, unless the file is refused or has nothing of a
  // game in it. At the first difference the game ends when `stopsAtDifference` is set.
  CReplayedGame(CPlay& play, const std::string& file, bool stopsAtDifference = false);

  // Gives the next input.
  void PlayNext();
  bool IsDone() const { return myIsDone; }
  // When the next input is due: milliseconds since the start, without the pauses of the task.
  unsigned GetNextTime() const { return myNextTime; }
  // The time of the last input.
  unsigned GetTime() const { return myTime; }

  // Whether the file was whole, and all that could be compared was equal.
  bool HasHeld() const { return myIsDone && myProblem.empty() && myDifference.empty(); }
  // Why the file, or the rest of it, could not be played, in one line; or empty.
  const std::string& GetProblem() const { return myProblem; }
  // The first difference, with its time, in one line; or empty.
  const std::string& GetDifference() const { return myDifference; }
  // What the game came to: score, what made it, frames and time, in one line.
  std::string GetSummary() const;

 private:
  void Advance();
  // Returns whether the next one has to be read, too.
  bool TakeItem(CRecordingReader::EItem item);
  void Await();
  void CheckState();
  void CheckEnd();
  void NoteDifference(const std::string& what);
  void Finish() { myIsDone = true; }

  CPlay& myPlay;
  CRecordingReader myReader;
  bool myStopsAtDifference;
  bool myIsDone = false;
  bool myIsPaused = false;     // the task of the recorded game
  unsigned myTime = 0;         // milliseconds without the pauses
  unsigned myNextTime = 0;     // of the input that the reader holds
  unsigned myLastReading = 0;  // of the recorded clock
  int myFrames = 0;
  std::string myProblem;
  std::string myDifference;
};

}  // namespace brumble
