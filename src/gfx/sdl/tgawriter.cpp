#include "gfx/sdl/tgawriter.h"

#include "gfx/sdl/surface.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace vask::sdl {

namespace {

using Bytes = std::vector<std::uint8_t>;

enum EImageType : std::uint8_t { kColorMapped = 1, kTrueColor = 2 };
constexpr std::uint8_t kTopLeftOrigin = 0x20;
constexpr std::uint8_t kEightAlphaBits = 8;

// The files' byte order: blue, green, red, alpha.
constexpr SPixelFormat Layout(bool hasAlpha) {
  constexpr bool kLittle = SDL_BYTEORDER == SDL_LIL_ENDIAN;
  if (hasAlpha) {
    return kLittle ? SPixelFormat{32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000}
                   : SPixelFormat{32, 0x0000FF00, 0x00FF0000, 0xFF000000, 0x000000FF};
  }
  return kLittle ? SPixelFormat{24, 0x00FF0000, 0x0000FF00, 0x000000FF, 0}
                 : SPixelFormat{24, 0x000000FF, 0x0000FF00, 0x00FF0000, 0};
}

bool IsKeyed(const SDL_Surface& surface) { return (surface.flags & SDL_SRCCOLORKEY) != 0; }

void Append16(Bytes& bytes, int value) {
  bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8 & 0xFF));
}

Bytes MakeHeader(const SDL_Surface& surface) {
  const SDL_Palette* palette = surface.format->palette;
  const bool hasAlpha = palette != nullptr ? IsKeyed(surface) : surface.format->Amask != 0;
  const std::uint8_t depth = hasAlpha ? 32 : 24;
  Bytes header = {0, static_cast<std::uint8_t>(palette != nullptr ? 1 : 0),
                  palette != nullptr ? kColorMapped : kTrueColor};
  Append16(header, 0);
  Append16(header, palette != nullptr ? palette->ncolors : 0);
  header.push_back(palette != nullptr ? depth : std::uint8_t{0});
  Append16(header, 0);
  Append16(header, 0);
  Append16(header, surface.w);
  Append16(header, surface.h);
  header.push_back(palette != nullptr ? std::uint8_t{8} : depth);
  header.push_back(hasAlpha ? kTopLeftOrigin | kEightAlphaBits : kTopLeftOrigin);
  return header;
}

Bytes MakePalette(const SDL_Surface& surface) {
  Bytes bytes;
  const SDL_Palette* palette = surface.format->palette;
  for (int i = 0; palette != nullptr && i < palette->ncolors; ++i) {
    const SDL_Color& color = palette->colors[i];
    bytes.insert(bytes.end(), {color.b, color.g, color.r});
    if (IsKeyed(surface)) {
      const bool isKey = static_cast<std::uint32_t>(i) == surface.format->colorkey;
      bytes.push_back(isKey ? SDL_ALPHA_TRANSPARENT : SDL_ALPHA_OPAQUE);
    }
  }
  return bytes;
}

class COutFile {
 public:
  explicit COutFile(const std::string& name) : myStream(SDL_RWFromFile(name.c_str(), "wb")) {}
  ~COutFile() { Close(); }
  COutFile(const COutFile&) = delete;
  COutFile& operator=(const COutFile&) = delete;

  bool Write(const void* bytes, int count) {
    return count == 0 || (myStream != nullptr && SDL_RWwrite(myStream, bytes, count, 1) == 1);
  }
  bool Write(const Bytes& bytes) { return Write(bytes.data(), static_cast<int>(bytes.size())); }

  // The last bytes may fail only here.
  bool Close() {
    SDL_RWops* stream = std::exchange(myStream, nullptr);
    return stream != nullptr && SDL_RWclose(stream) == 0;
  }

 private:
  SDL_RWops* myStream;
};

bool WriteIndices(SDL_Surface* surface, COutFile& out) {
  const CSurfaceLock lock(surface);
  bool isGood = lock.IsOpen();
  for (int y = 0; isGood && y < surface->h; ++y) {
    isGood = out.Write(RowAddress(*surface, y), surface->w);
  }
  return isGood;
}

bool WriteColors(SDL_Surface* surface, COutFile& out) {
  const SPixelFormat layout = Layout(surface->format->Amask != 0);
  const SurfacePtr row(SDL_CreateRGBSurface(SDL_SWSURFACE, surface->w, 1, layout.bits,
                                            layout.redMask, layout.greenMask, layout.blueMask,
                                            layout.alphaMask));
  const CPlainSource plain(surface);
  bool isGood = row != nullptr;
  for (int y = 0; isGood && y < surface->h; ++y) {
    SDL_Rect from{0, static_cast<Sint16>(y), static_cast<Uint16>(surface->w), 1};
    SDL_Rect to{0, 0, 0, 0};
    isGood = SDL_UpperBlit(surface, &from, row.get(), &to) == 0 &&
             out.Write(row->pixels, surface->w * layout.bits / 8);
  }
  return isGood;
}

}  // namespace

bool SaveTga(SDL_Surface* surface, const std::string& file) {
  if (surface->format->BitsPerPixel < 8) {
    SDL_SetError("cannot save <8bpp images as TGA");
    return false;
  }
  COutFile out(file);
  const bool isIndexed = surface->format->palette != nullptr;
  const bool isWritten = out.Write(MakeHeader(*surface)) && out.Write(MakePalette(*surface)) &&
                         (isIndexed ? WriteIndices(surface, out) : WriteColors(surface, out));
  return out.Close() && isWritten;
}

}  // namespace vask::sdl
