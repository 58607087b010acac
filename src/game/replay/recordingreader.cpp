#include "game/replay/recordingreader.h"

#include "game/physics/arena.h"
#include "game/replay/recordingformat.h"
#include "game/replay/rulesversion.h"
#include "utils/inputfile.h"

#include <zlib.h>

#include <cstdlib>
#include <fstream>
#include <utility>

namespace brumble {
namespace {

constexpr std::size_t kBlockHeadBytes = 12;

bool IsWithin(std::int32_t value, std::int32_t limit) { return value >= -limit && value <= limit; }

bool IsSound(const SGameStart& start) {
  return IsWithin(start.resetCounter, kMostCounter) && start.lookCounter >= 0 &&
         start.lookCounter <= kMostCounter && start.bodies >= kFirstKittenIndex &&
         start.bodies <= kFirstKittenIndex + kMostKittens &&
         IsWithin(start.pointerX, kMostPointer) && IsWithin(start.pointerY, kMostPointer);
}

// As many bytes as are there, at most `count`.
std::string ReadBytes(std::istream& stream, std::size_t count) {
  std::string bytes(count, '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

}  // namespace

CRecordingReader::CRecordingReader(const std::string& file)
    : CRecordingReader(std::make_unique<std::ifstream>(vask::OpenInputFile(file))) {}

CRecordingReader::CRecordingReader(std::unique_ptr<std::istream> stream)
    : myStream(std::move(stream)) {
  if (!myStream->good()) {
    Refuse("it can't be read");
    return;
  }
  ReadHead();
  if (myError.empty()) {
    ReadStart();
  }
}

void CRecordingReader::ReadHead() {
  if (ReadBytes(*myStream, kRecordingMark.size()) != kRecordingMark) {
    Refuse("it is no recording");
    return;
  }
  const int format = myStream->get();
  const int rules = myStream->get();
  if (format != static_cast<int>(kFormatVersion)) {
    Refuse("it has version " + std::to_string(format) + " of the format, and this program reads " +
           std::to_string(kFormatVersion));
  } else if (rules != static_cast<int>(kRulesVersion)) {
    Refuse("its game has version " + std::to_string(rules) +
           " of the rules, and this program has " + std::to_string(kRulesVersion));
  }
}

void CRecordingReader::ReadStart() {
  if (!ReadBlock()) {
    if (myError.empty()) {
      Refuse("it ends before its game begins");
    }
    return;
  }
  CByteReader begin(myBlock);
  myStart.seed = begin.TakeWord();
  const unsigned isDoorOpen = begin.TakeByte();
  const unsigned isPaused = begin.TakeByte();
  myStart.isDoorOpen = isDoorOpen == 1;
  myStart.isPaused = isPaused == 1;
  for (std::int32_t* value : {&myStart.resetCounter, &myStart.lookCounter, &myStart.bodies,
                              &myStart.pointerX, &myStart.pointerY}) {
    *value = begin.TakeSigned();
  }
  if (begin.HasFailed() || !begin.IsAtEnd() || isDoorOpen > 1 || isPaused > 1 ||
      !IsSound(myStart)) {
    RefuseBlock();
    return;
  }
  myInput.pointerX = myStart.pointerX;
  myInput.pointerY = myStart.pointerY;
  myKittens = myStart.bodies - kFirstKittenIndex;
}

CRecordingReader::EItem CRecordingReader::Next() {
  EItem item = EItem::kNone;
  while (myError.empty() && item == EItem::kNone) {
    if (myEntries.IsAtEnd() && !ReadColumns()) {
      return EItem::kNone;
    }
    item = TakeEntry();
  }
  return item;
}

bool CRecordingReader::ReadColumns() {
  if (!myMotionX.IsAtEnd() || !myMotionY.IsAtEnd()) {
    RefuseBlock();
    return false;
  }
  if (!ReadBlock()) {
    return false;
  }
  CByteReader block(myBlock);
  const std::size_t entries = block.TakeVarint();
  const std::size_t motions = block.TakeVarint();
  myEntries = CByteReader(block.TakeBytes(entries));
  myMotionX = CByteReader(block.TakeBytes(motions));
  myMotionY = CByteReader(block.TakeRest());
  if (block.HasFailed() || entries == 0) {
    RefuseBlock();
    return false;
  }
  return true;
}

bool CRecordingReader::ReadBlock() {
  const std::string head = ReadBytes(*myStream, kBlockHeadBytes);
  if (head.size() < kBlockHeadBytes) {
    return false;
  }
  ++myBlocks;
  CByteReader words(head);
  const std::size_t packedSize = words.TakeWord();
  const std::size_t size = words.TakeWord();
  const std::uint32_t checksum = words.TakeWord();
  myBytes += size;
  if (packedSize > kMostBlockBytes || size == 0 || size > kMostBlockBytes) {
    RefuseBlock();
    return false;
  }
  if (myBytes > kMostRecordingBytes) {
    Refuse("it is too long");
    return false;
  }
  const std::string packed = ReadBytes(*myStream, packedSize);
  if (packed.size() < packedSize) {
    return false;
  }
  myBlock = Unpack(packed, size);
  const auto sum =
      crc32(0, reinterpret_cast<const Bytef*>(packed.data()), static_cast<uInt>(packed.size()));
  if (sum != checksum || myBlock.size() != size) {
    RefuseBlock();
    return false;
  }
  return true;
}

std::string CRecordingReader::Unpack(const std::string& packed, std::size_t size) {
  std::string bytes(size, '\0');
  auto unpacked = static_cast<uLongf>(size);
  auto taken = static_cast<uLong>(packed.size());
  const int result = uncompress2(reinterpret_cast<Bytef*>(bytes.data()), &unpacked,
                                 reinterpret_cast<const Bytef*>(packed.data()), &taken);
  const bool isWhole = result == Z_OK && taken == packed.size();
  bytes.resize(isWhole ? unpacked : 0);
  return bytes;
}

CRecordingReader::EItem CRecordingReader::TakeEntry() {
  const unsigned head = myEntries.TakeByte();
  const unsigned form = head & kFormMask;
  const unsigned number = head >> kFormBits;
  if (form == kSpecial) {
    return TakeSpecial(number);
  }
  const unsigned wait = number < kLongWait ? number : myEntries.TakeVarint();
  switch (form) {
    case kPointerStays:
      return TakeInput(EInput::kFrame, wait, 0, 0);
    case kPointerMoves:
      return TakeMotion(EInput::kFrame, wait);
    default:
      return RefuseBlock();
  }
}

// A skew is no item of its own.
CRecordingReader::EItem CRecordingReader::TakeSpecial(unsigned special) {
  switch (special) {
    case kSpecialPause:
    case kSpecialResume:
    case kSpecialKitten: {
      constexpr EInput kKinds[] = {EInput::kPause, EInput::kResume, EInput::kKitten};
      return TakeMotion(kKinds[special], myEntries.TakeVarint());
    }
    case kSpecialSkew:
      mySkew = myEntries.TakeSigned();
      return myEntries.HasFailed() ? RefuseBlock() : EItem::kNone;
    case kSpecialState:
      return TakeState();
    case kSpecialEnd:
      myEnd.isOver = myEntries.TakeByte() == 1;
      myEnd.score = myEntries.TakeSigned();
      return myEntries.HasFailed() || !myEntries.IsAtEnd() ? RefuseBlock() : EItem::kEnd;
    default:
      return RefuseBlock();
  }
}

// To compare a state takes long, so a hostile file must not have many at once.
CRecordingReader::EItem CRecordingReader::TakeState() {
  myState = myEntries.TakeBytes(myEntries.TakeVarint());
  if (myEntries.HasFailed() || std::exchange(myHasState, true)) {
    return RefuseBlock();
  }
  return EItem::kState;
}

CRecordingReader::EItem CRecordingReader::TakeMotion(EInput kind, unsigned wait) {
  const int dx = myMotionX.TakeSigned();
  const int dy = myMotionY.TakeSigned();
  return myMotionX.HasFailed() || myMotionY.HasFailed() ? RefuseBlock()
                                                        : TakeInput(kind, wait, dx, dy);
}

CRecordingReader::EItem CRecordingReader::TakeInput(EInput kind, unsigned wait, int dx, int dy) {
  // In 64 bits, because a hostile motion would overflow.
  const std::int64_t x = std::int64_t{myInput.pointerX} + dx;
  const std::int64_t y = std::int64_t{myInput.pointerY} + dy;
  if (myEntries.HasFailed() || std::abs(x) > kMostPointer || std::abs(y) > kMostPointer) {
    return RefuseBlock();
  }
  myKittens += kind == EInput::kKitten ? 1 : 0;
  if (myKittens > kMostKittens) {
    return Refuse("it has more than " + std::to_string(kMostKittens) + " extra kittens");
  }
  myInput = {.kind = kind,
             .time = myInput.time + wait,
             .appTime = myInput.appTime + wait + static_cast<unsigned>(mySkew),
             .pointerX = static_cast<int>(x),
             .pointerY = static_cast<int>(y)};
  mySkew = 0;
  myHasState = false;
  return EItem::kInput;
}

CRecordingReader::EItem CRecordingReader::Refuse(const std::string& reason) {
  myError = reason;
  return EItem::kNone;
}

CRecordingReader::EItem CRecordingReader::RefuseBlock() {
  return Refuse("its block " + std::to_string(myBlocks) + " is damaged");
}

}  // namespace brumble
