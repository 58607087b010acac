#pragma once

#include "game/replay/bytes.h"
#include "game/replay/gamestart.h"
#include "game/replay/input.h"
#include "game/replay/statefield.h"
#include "platform/newfile.h"

#include <string>

namespace brumble {

// Writes the recording of one game. Entries are kept until their block is full, or flushed: what a
// crash leaves plays up to its last block. After a failure nothing more is written.
class CRecordingWriter {
 public:
  // Makes the file, which must not exist, and writes the start. The times of the inputs count from
  // those of `now`.
  CRecordingWriter(const std::string& file, const SGameStart& start, const SInput& now);

  void Add(const SInput& input);
  // The state after the last input.
  void AddState(const CStateFields& fields);
  // The last entry.
  void End(bool isOver, int score);
  // Writes the entries so far as a block.
  void Flush();

  const vask::platform::CNewFile& GetFile() const { return myFile; }

 private:
  void AddFrame(unsigned form, unsigned wait);
  void AddMotion(const SInput& input);
  void AddSpecial(unsigned special);
  void FlushIfFull();
  void WriteBlock(const std::string& bytes);

  vask::platform::CNewFile myFile;
  // The columns of the block.
  CByteWriter myEntries;
  CByteWriter myMotionX;
  CByteWriter myMotionY;
  SInput myLast;         // its times and its pointer, from which the next ones count
  unsigned myBlockTime;  // the time of the block's first entry
};

}  // namespace brumble
