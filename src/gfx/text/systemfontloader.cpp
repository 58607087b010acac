#include "gfx/text/systemfontloader.h"

#include "gfx/text/font.h"
#include "gfx/text/systemfontglyphs.h"

namespace vask {

namespace {

using namespace systemfont;

constexpr int kColumns = 16;
constexpr int kRows = 256 / kColumns;

bool IsStroke(const Glyph& glyph, int x, int y) {
  return x >= 0 && x < kStrokeColumns && y >= 0 && y < kStrokeRows &&
         (glyph[static_cast<std::size_t>(y)] >> (kStrokeColumns - 1 - x) & 1) != 0;
}

// The shadow lies one pixel to the right and below, so that white text is readable on any ground.
void DrawGlyph(IPixel& sheet, const Glyph& glyph, const CRect<int>& cell) {
  const CColor white(255, 255, 255);
  const CColor shadow(16, 16, 24);
  for (int y = 0; y < kCellHeight - kTopMargin; ++y) {
    for (int x = 0; x < kCellWidth; ++x) {
      const bool stroke = IsStroke(glyph, x, y);
      if (stroke || IsStroke(glyph, x - 1, y - 1)) {
        sheet.PutPixel(cell.x + x, cell.y + kTopMargin + y, stroke ? white : shadow);
      }
    }
  }
}

// What lays a text out is never drawn.
bool IsLayout(int character) { return character == '\n' || character == '\r' || character == '\t'; }

}  // namespace

void CSystemFontLoader::Load(CFont& font, const std::string& fileName) {
  font.myFileName = fileName;
  Gfx::ImagePtr sheet(Gfx::NewBuffer(kColumns * kCellWidth, kRows * kCellHeight));
  if (sheet->IsEmpty()) {
    return;
  }
  for (int character = 0; character < kColumns * kRows; ++character) {
    if (!IsLayout(character)) {
      const CRect<int> cell{character % kColumns * kCellWidth, character / kColumns * kCellHeight,
                            kCellWidth, kCellHeight};
      DrawGlyph(*sheet, GlyphOf(character), cell);
      font.AddGlyph(static_cast<unsigned char>(character), cell);
    }
  }
  font.SetSheet(sheet.release());
  font.SetMetrics(kCellHeight);
}

}  // namespace vask
