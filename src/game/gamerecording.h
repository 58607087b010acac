#pragma once

#include "game/replay/recordingwriter.h"

#include <string>

namespace brumble {

class CPlay;

// The recording of the game that runs: its inputs and, once a second of it, its state.
class CGameRecording {
 public:
  // The game has just been started so, at the times of `now`. `play` is not owned.
  CGameRecording(const CPlay& play, const std::string& file, const SGameStart& start,
                 const SInput& now);

  // To be called before play takes the input.
  void Note(const SInput& input);
  // The game is over, or has been left.
  void End();
  // Writes what has been noted so far.
  void Flush() { myWriter.Flush(); }

  const std::string& GetFileName() const { return myFileName; }
  const vask::platform::CNewFile& GetFile() const { return myWriter.GetFile(); }

 private:
  const CPlay& myPlay;
  std::string myFileName;
  CRecordingWriter myWriter;
  unsigned myStateTime;  // of the last state
};

}  // namespace brumble
