#include "game/replay/recordingwriter.h"

#include "game/replay/recordingformat.h"
#include "game/replay/rulesversion.h"

#include <zlib.h>

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

bool FitsByte(int delta) { return delta >= INT8_MIN && delta <= INT8_MAX; }

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
  myBlock.PutWord(start.seed);
  myBlock.PutByte(start.isDoorOpen ? 1 : 0);
  myBlock.PutByte(start.isPaused ? 1 : 0);
  for (const std::int32_t value :
       {start.resetCounter, start.lookCounter, start.bodies, start.pointerX, start.pointerY}) {
    myBlock.PutSigned(value);
  }
  Flush();
}

void CRecordingWriter::Add(const SInput& input) {
  FlushIfFull();
  const unsigned wait = input.time - myLast.time;
  const int skew = static_cast<int>(input.appTime - myLast.appTime - wait);
  if (skew != 0) {
    AddSpecial(kSpecialSkew);
    myBlock.PutSigned(skew);
  }
  if (input.kind == EInput::kFrame) {
    AddMoment(input);
  } else {
    AddSpecial(SpecialOf(input.kind));
    myBlock.PutVarint(wait);
    myBlock.PutSigned(input.pointerX - myLast.pointerX);
    myBlock.PutSigned(input.pointerY - myLast.pointerY);
  }
  myLast = input;
}

void CRecordingWriter::AddMoment(const SInput& input) {
  const unsigned wait = input.time - myLast.time;
  const int dx = input.pointerX - myLast.pointerX;
  const int dy = input.pointerY - myLast.pointerY;
  const bool stays = dx == 0 && dy == 0;
  const bool isNear = FitsByte(dx) && FitsByte(dy);
  const unsigned nearForm = isNear ? kPointerMoves : kPointerJumps;
  const unsigned form = stays ? kPointerStays : nearForm;
  myBlock.PutByte((wait < kLongWait ? wait : kLongWait) << kFormBits | form);
  if (wait >= kLongWait) {
    myBlock.PutVarint(wait);
  }
  if (form == kPointerMoves) {
    myBlock.PutByte(static_cast<unsigned>(dx));
    myBlock.PutByte(static_cast<unsigned>(dy));
  } else if (form == kPointerJumps) {
    myBlock.PutSigned(dx);
    myBlock.PutSigned(dy);
  }
}

void CRecordingWriter::AddState(const CStateFields& fields) {
  const std::string bytes = PackState(fields);
  AddSpecial(kSpecialState);
  myBlock.PutVarint(static_cast<std::uint32_t>(bytes.size()));
  myBlock.PutBytes(bytes);
}

void CRecordingWriter::End(bool isOver, int score) {
  AddSpecial(kSpecialEnd);
  myBlock.PutByte(isOver ? 1 : 0);
  myBlock.PutSigned(score);
  Flush();
}

void CRecordingWriter::AddSpecial(unsigned special) {
  myBlock.PutByte(special << kFormBits | kSpecial);
}

void CRecordingWriter::FlushIfFull() {
  if (myLast.time - myBlockTime >= kBlockTime || myBlock.GetBytes().size() >= kBlockBytes) {
    Flush();
  }
}

void CRecordingWriter::Flush() {
  const std::string& bytes = myBlock.GetBytes();
  if (bytes.empty()) {
    return;
  }
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
  myBlock.Clear();
  myBlockTime = myLast.time;
}

}  // namespace brumble
