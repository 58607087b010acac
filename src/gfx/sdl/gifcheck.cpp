#include "gfx/sdl/gifcheck.h"

#include "gfx/sdl/surface.h"
#include "utils/inputfile.h"

namespace vask::sdl {

namespace {

constexpr int kHasColors = 0x80;
constexpr int kColorBits = 7;  // the mask of their number, less 1

int TakeByte(std::istream& file) { return file.get() & 0xFF; }

int TakeWord(std::istream& file) {
  const int low = TakeByte(file);
  return low | TakeByte(file) << 8;
}

void SkipHeader(std::istream& file) {
  file.ignore(7);  // the rest of the mark, and the size of the whole
  const int flags = TakeByte(file);
  file.ignore(2);
  if ((flags & kHasColors) != 0) {
    file.ignore(3 << ((flags & kColorBits) + 1));
  }
}

void SkipExtension(std::istream& file) {
  file.ignore(1);  // its kind
  for (int size = TakeByte(file); file && size > 0; size = TakeByte(file)) {
    file.ignore(size);
  }
}

}  // namespace

bool CheckGifFile(const std::string& fileName) {
  std::ifstream file = OpenInputFile(fileName);
  if (file.get() != 'G' || file.get() != 'I' || file.get() != 'F') {
    return true;
  }
  SkipHeader(file);
  for (int mark = file.get(); file && mark != ';'; mark = file.get()) {
    if (mark == '!') {
      SkipExtension(file);
      if (!file) {
        return false;
      }
    }
    if (mark == ',') {
      file.ignore(4);  // its place
      const int width = TakeWord(file);
      const int height = TakeWord(file);
      return !file || IsValidSize(width, height);
    }
  }
  return true;
}

}  // namespace vask::sdl
