#include "game/replay/recordingwriter.h"

#include "game/replay/recordingformat.h"
#include "game/replay/rulesversion.h"

#include <zlib.h>

#include <algorithm>
#include <cerrno>

namespace brumble {
namespace {

constexpr unsigned kBlockTime = 5000;  // milliseconds
constexpr std::size_t kBlockBytes = 32768;

// Empty when the library lacks memory.
std::string Pack(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string packed(size, '\0');
  const int result = compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                               reinterpret_cast<const Bytef*>(bytes.data()),
                               static_cast<uLong>(bytes.size()), Z_BEST_COMPRESSION);
  packed.resize(result == Z_OK ? size : 0);
  return packed;
}

std::uint32_t Checksum(const std::string& bytes) {
  return static_cast<std::uint32_t>(
      crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

unsigned SpecialOf(EInput kind) {
  switch (kind) {
    case EInput::kPause:
      return kSpecialPause;
    case EInput::kResume:
      return kSpecialResume;
    default:
      return kSpecialKitten;
  }
}

}  // namespace

CRecordingWriter::CRecordingWriter(const std::string& file, const SGameStart& start,
                                   const SInput& now)
    : myFile(file), myLast(now), myBlockTime(now.time) {
  myLast.pointerX = start.pointerX;
  myLast.pointerY = start.pointerY;
  CByteWriter head;
  head.PutBytes(kRecordingMark);
  head.PutByte(kFormatVersion);
  head.PutByte(kRulesVersion);
  myFile.Write(head.GetBytes());
  CByteWriter begin;
  begin.PutWord(start.seed);
  begin.PutByte(start.isDoorOpen ? 1 : 0);
  begin.PutByte(start.isPaused ? 1 : 0);
  for (const std::int32_t value :
       {start.resetCounter, start.lookCounter, start.bodies, start.pointerX, start.pointerY}) {
    begin.PutSigned(value);
  }
  WriteBlock(begin.GetBytes());
}

void CRecordingWriter::Add(const SInput& input) {
  FlushIfFull();
  const unsigned wait = input.time - myLast.time;
  const int skew = static_cast<int>(input.appTime - myLast.appTime - wait);
  if (skew != 0) {
    AddSpecial(kSpecialSkew);
    myEntries.PutSigned(skew);
  }
  const bool stays = input.pointerX == myLast.pointerX && input.pointerY == myLast.pointerY;
  if (input.kind != EInput::kFrame) {
    AddSpecial(SpecialOf(input.kind));
    myEntries.PutVarint(wait);
    AddMotion(input);
  } else if (stays) {
    AddFrame(kPointerStays, wait);
  } else {
    AddFrame(kPointerMoves, wait);
    AddMotion(input);
  }
  myLast = input;
}

void CRecordingWriter::AddFrame(unsigned form, unsigned wait) {
  myEntries.PutByte(std::min(wait, kLongWait) << kFormBits | form);
  if (wait >= kLongWait) {
    myEntries.PutVarint(wait);
  }
}

void CRecordingWriter::AddMotion(const SInput& input) {
  myMotionX.PutSigned(input.pointerX - myLast.pointerX);
  myMotionY.PutSigned(input.pointerY - myLast.pointerY);
}

void CRecordingWriter::AddState(const CStateFields& fields) {
  const std::string bytes = PackState(fields);
  AddSpecial(kSpecialState);
  myEntries.PutVarint(static_cast<std::uint32_t>(bytes.size()));
  myEntries.PutBytes(bytes);
}

void CRecordingWriter::End(bool isOver, int score) {
  AddSpecial(kSpecialEnd);
  myEntries.PutByte(isOver ? 1 : 0);
  myEntries.PutSigned(score);
  Flush();
}

void CRecordingWriter::AddSpecial(unsigned special) {
  myEntries.PutByte(special << kFormBits | kSpecial);
}

void CRecordingWriter::FlushIfFull() {
  const std::size_t size =
      myEntries.GetBytes().size() + myMotionX.GetBytes().size() + myMotionY.GetBytes().size();
  if (myLast.time - myBlockTime >= kBlockTime || size >= kBlockBytes) {
    Flush();
  }
}

void CRecordingWriter::Flush() {
  if (myEntries.GetBytes().empty()) {
    return;
  }
  CByteWriter block;
  block.PutVarint(static_cast<std::uint32_t>(myEntries.GetBytes().size()));
  block.PutVarint(static_cast<std::uint32_t>(myMotionX.GetBytes().size()));
  for (CByteWriter* const column : {&myEntries, &myMotionX, &myMotionY}) {
    block.PutBytes(column->GetBytes());
    column->Clear();
  }
  WriteBlock(block.GetBytes());
  myBlockTime = myLast.time;
}

void CRecordingWriter::WriteBlock(const std::string& bytes) {
  const std::string packed = Pack(bytes);
  if (packed.empty()) {
    myFile.Fail(ENOMEM);
  }
  CByteWriter block;
  block.PutWord(static_cast<std::uint32_t>(packed.size()));
  block.PutWord(static_cast<std::uint32_t>(bytes.size()));
  block.PutWord(Checksum(packed));
  block.PutBytes(packed);
  myFile.Write(block.GetBytes());
}

}  // namespace brumble
