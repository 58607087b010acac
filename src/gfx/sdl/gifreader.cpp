#include "gfx/sdl/gifreader.h"

#include "utils/inputfile.h"

#include <SDL_image.h>

#include <sstream>
#include <string_view>

namespace vask::sdl {

namespace {

constexpr int kHasColors = 0x80;
constexpr int kColorBits = 7;  // the mask of their number, less 1
constexpr std::string_view kMark = "GIF";
// More than the largest block of data: a block that the file cuts off ends in it, and so does all.
constexpr std::size_t kPadding = 512;

std::string ReadAll(const std::string& fileName) {
  return (std::ostringstream() << OpenInputFile(fileName).rdbuf()).str();
}

int TakeByte(std::istream& file) { return file.get() & 0xFF; }

int TakeWord(std::istream& file) {
  const int low = TakeByte(file);
  return low | TakeByte(file) << 8;
}

void SkipHeader(std::istream& file) {
  file.ignore(10);  // the mark, and the size of the whole
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

// Whether SDL has surfaces for the size of the first picture.
bool HasValidSize(const std::string& bytes) {
  std::istringstream file(bytes);
  SkipHeader(file);
  for (int mark = file.get(); file && mark != ';'; mark = file.get()) {
    if (mark == '!') {
      SkipExtension(file);
    }
    if (mark == ',') {
      file.ignore(4);  // its place
      const int width = TakeWord(file);
      return IsValidSize(width, TakeWord(file));
    }
  }
  return false;
}

}  // namespace

bool IsGifFile(const std::string& fileName) {
  std::ifstream file = OpenInputFile(fileName);
  std::string mark(kMark.size(), '\0');
  file.read(mark.data(), static_cast<std::streamsize>(mark.size()));
  return mark == kMark;
}

SurfacePtr LoadGifFile(const std::string& fileName) {
  std::string bytes = ReadAll(fileName);
  if (!HasValidSize(bytes)) {
    return nullptr;
  }
  bytes.append(kPadding, '\0');
  SDL_RWops* const source = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
  if (source == nullptr) {
    return nullptr;
  }
  SurfacePtr picture(IMG_LoadGIF_RW(source));
  SDL_RWclose(source);
  return picture;
}

}  // namespace vask::sdl
