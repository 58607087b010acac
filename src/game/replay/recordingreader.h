#pragma once

#include "game/replay/bytes.h"
#include "game/replay/gamestart.h"
#include "game/replay/input.h"

#include <cstddef>
#include <istream>
#include <memory>
#include <string>

namespace brumble {

// The end of a recorded game.
struct SRecordedEnd {
  bool isOver = false;  // all kittens are gone; else somebody has left the game
  int score = 0;
};

// Reads a recording, whoever has made it: no file crashes it, and none makes it take much memory.
class CRecordingReader {
 public:
  enum class EItem {
    kInput,
    kState,  // after the last input; never two of them without an input between
    kEnd,    // nothing follows
    kNone,   // the recording goes on no further: it was cut, or, with an error, is damaged
  };

  // Opens the file and reads the start.
  explicit CRecordingReader(const std::string& file);
  explicit CRecordingReader(std::unique_ptr<std::istream> stream);
  CRecordingReader(const CRecordingReader&) = delete;
  CRecordingReader& operator=(const CRecordingReader&) = delete;

  // One line that tells why the file, or the rest of it, is refused; empty while all is well.
  const std::string& GetError() const { return myError; }
  const SGameStart& GetStart() const { return myStart; }

  EItem Next();
  // The last input; its times count from the start of the game.
  const SInput& GetInput() const { return myInput; }
  // As PackState has made it.
  const std::string& GetState() const { return myState; }
  const SRecordedEnd& GetEnd() const { return myEnd; }

 private:
  void ReadHead();
  void ReadStart();
  // Return whether there was one; a cut one counts as none.
  bool ReadColumns();
  bool ReadBlock();
  std::string Unpack(const std::string& packed, std::size_t size);
  EItem TakeEntry();
  EItem TakeSpecial(unsigned special);
  EItem TakeState();
  EItem TakeMotion(EInput kind, unsigned wait);
  EItem TakeInput(EInput kind, unsigned wait, int dx, int dy);
  EItem Refuse(const std::string& reason);
  EItem RefuseBlock();

  std::unique_ptr<std::istream> myStream;
  std::string myError;
  SGameStart myStart;
  std::string myBlock;
  CByteReader myEntries{""};  // these three are the block's columns
  CByteReader myMotionX{""};
  CByteReader myMotionY{""};
  int myBlocks = 0;            // read so far
  std::size_t myBytes = 0;     // in them
  std::int32_t myKittens = 0;  // beside those of the rules
  int mySkew = 0;              // of the application timer, up to the next entry
  bool myHasState = false;     // since the last input
  SInput myInput;
  std::string myState;
  SRecordedEnd myEnd;
};

}  // namespace brumble
