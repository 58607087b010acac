#pragma once

#include "game/gamerecording.h"

#include <memory>
#include <string>

namespace brumble {

// Records every game into a file of its own in the folder "replays" where the program runs, unless
// the variable "game_record" is 0. The last ten are kept, and those of the best scores. What can't
// be written is reported once in a run, and the game goes on without.
class CGameRecorder {
 public:
  // `play` is not owned.
  explicit CGameRecorder(const CPlay& play) : myPlay(play) {}
  // Ends the recording.
  ~CGameRecorder();
  CGameRecorder(const CGameRecorder&) = delete;
  CGameRecorder& operator=(const CGameRecorder&) = delete;

  // The next game goes into this file instead, also with recording turned off.
  void NameNext(const std::string& file) { myNextFile = file; }

  void Begin(const SGameStart& start, const SInput& now);
  // To be called before play takes the input.
  void Note(const SInput& input);
  // Returns the name of the file as a score's line has it: "-" without one.
  std::string End();
  // Removes the recordings that are not to be kept.
  static void RemoveOld();

 private:
  std::unique_ptr<CGameRecording> MakeRecording(const SGameStart& start, const SInput& now);
  std::string TellAssertion();
  void GiveUpIfFailed();

  const CPlay& myPlay;
  std::string myNextFile;
  bool myIsNamed = false;                       // by NameNext
  std::unique_ptr<CGameRecording> myRecording;  // null between games
  int myKittens = 0;                            // in it, beside those of the rules
  int myAssertions = 0;                         // that have been told in this game
};

}  // namespace brumble
