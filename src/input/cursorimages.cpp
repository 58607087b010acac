#include "input/cursorimages.h"

#include <cstddef>

namespace vask {

namespace {

// One row of pixels on each line.
// clang-format off
constexpr std::string_view kArrow[] = {
    "X",
    "XX",
    "X.X",
    "X..X",
    "X...X",
    "X....X",
    "X.....X",
    "X......X",
    "X.......X",
    "X........X",
    "X.........X",
    "X......XXXXX",
    "X...X..X",
    "X..X X..X",
    "X.X  X..X",
    "XX    X..X",
    "X     X..X",
    "       X..X",
    "        XX",
};

constexpr std::string_view kCross[] = {
    "",
    "",
    "",
    "",
    "",
    "              XXX",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "    XXXXXXXXXXX.XXXXXXXXXXX",
    "    X.....................X",
    "    XXXXXXXXXXX.XXXXXXXXXXX",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              X.X",
    "              XXX",
};

constexpr std::string_view kText[] = {
    "XXX XXX",
    "X..X..X",
    "XXX.XXX",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "  X.X",
    "XXX.XXX",
    "X..X..X",
    "XXX XXX",
};

constexpr std::string_view kHand[] = {
    "     XX",          "    X..X",         "    X..X",         "    X..X",
    "    X..X",         "    X..XXX",       "    X..X..XXX",    "    X..X..X..XX",
    " XX X..X..X..X.X", "X..XX..........X", "X...X..........X", " X..X..........X",
    "  X............X", "  X...........X",  "   X..........X",  "   X.........X",
    "    X........X",   "    X........X",   "    XXXXXXXXXX",
};

constexpr std::string_view kBusy[] = {
    "XXXXXXXXXXXXX", "X...........X", "XXXXXXXXXXXXX", " X.........X", " X.........X",
    " X..X.X.X..X",  " X...X.X...X",  "  X...X...X",   "   X..X..X",   "    X.X.X",
    "     X.X",      "     X.X",      "    X...X",     "   X..X..X",   "  X...X...X",
    " X....X....X",  " X...X.X...X",  " X..X.X.X..X",  " X.X.X.X.X.X", "XXXXXXXXXXXXX",
    "X...........X", "XXXXXXXXXXXXX",
};

constexpr std::string_view kResizeHorizontal[] = {
    "    XX         XX",    "   X.X         X.X",    "  X..X         X..X",
    " X...XXXXXXXXXXX...X", "X...................X", " X...XXXXXXXXXXX...X",
    "  X..X         X..X",  "   X.X         X.X",    "    XX         XX",
};

constexpr std::string_view kResizeVertical[] = {
    "     X",  "    X.X",     "   X...X",   "  X.....X", " X.......X", "XXXXX.XXXXX", "    X.X",
    "    X.X", "    X.X",     "    X.X",    "    X.X",   "    X.X",    "    X.X",     "    X.X",
    "    X.X", "XXXXX.XXXXX", " X.......X", "  X.....X", "   X...X",   "    X.X",     "     X",
};

constexpr std::string_view kResizeDiagonal1[] = {
    " XXXXXX",         "X......X",        "X.....X",         "X....X",          "X....X",
    "X..XX.X",         "X.X  X.X",        " X    X.X    X",  "       X.X  X.X", "        X.XX..X",
    "         X....X", "         X....X", "        X.....X", "       X......X", "        XXXXXX",
};

constexpr std::string_view kResizeDiagonal2[] = {
    "        XXXXXX",  "       X......X", "        X.....X", "         X....X", "         X....X",
    "        X.XX..X", "       X.X  X.X", " X    X.X    X",  "X.X  X.X",        "X..XX.X",
    "X....X",          "X....X",          "X.....X",         "X......X",        " XXXXXX",
};

// clang-format on

constexpr SCursorImage kImages[] = {
    {kArrow, 0, 0},
    {kCross, 16, 16},
    {kText, 3, 7},
    {kHand, 5, 0},
    {kBusy, 0, 0},
    {kResizeHorizontal, 10, 4},
    {kResizeVertical, 6, 9},
    {kResizeDiagonal1, 6, 7},
    {kResizeDiagonal2, 6, 7},
};

// Rows may be shorter than the cell, and the cell may have fewer rows than 32.
char PixelAt(const SCursorImage& image, std::size_t x, std::size_t y) {
  return y < image.rows.size() && x < image.rows[y].size() ? image.rows[y][x] : ' ';
}

}  // namespace

const SCursorImage* GetCursorImage(int type) {
  const bool isKnown = type >= 1 && type <= static_cast<int>(std::size(kImages));
  return isKnown ? &kImages[type - 1] : nullptr;
}

SCursorPlanes MakeCursorPlanes(const SCursorImage& image) {
  SCursorPlanes planes{};
  for (std::size_t index = 0; index < planes.data.size() * 8; ++index) {
    const char pixel = PixelAt(image, index % SCursorImage::kSide, index / SCursorImage::kSide);
    std::uint8_t& data = planes.data[index / 8];
    std::uint8_t& mask = planes.mask[index / 8];
    data = static_cast<std::uint8_t>(data << 1 | (pixel == 'X' ? 1 : 0));
    mask = static_cast<std::uint8_t>(mask << 1 | (pixel == 'X' || pixel == '.' ? 1 : 0));
  }
  return planes;
}

}  // namespace vask
