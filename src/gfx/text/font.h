#pragma once

#include "gfx/picture/gfx.h"
#include "utils/rect.h"

#include <array>
#include <map>
#include <memory>
#include <string>

namespace vask {

class IFontAlign;

// Where the next glyph would be drawn, in pixels of the target.
struct SPenPosition {
  int x = 0;
  int y = 0;
};

// A bitmap font: a sheet of glyphs and a rectangle for each character. A font without glyphs (its
// file was bad) draws nothing and measures 0.
//
//     const std::unique_ptr<CFont> font = LoadFont("numbers.ogf");
//     font->WriteLine(target.get(), "+500", 0, 0);
class CFont {
 public:
  CFont();
  CFont(const CFont&) = delete;
  CFont& operator=(const CFont&) = delete;

  virtual ~CFont();
  // A font that shares the sheet; owned by the caller.
  virtual CFont* Clone() const;
  // Lays the text out in the rectangle by the alignment, or draws it as one line from the cursor
  // when none is set. Returns where the text ended, with a y below its last line. With a null or
  // empty target nothing is drawn, only measured. The short forms start at the rectangle's corner;
  // the one with (x, y) uses the rest of the target from there as the rectangle.
  virtual SPenPosition Write(IPixel* target, const std::string& text, const CRect<int>& rect,
                             const SPenPosition& cursor);
  virtual SPenPosition Write(IPixel* target, const std::string& text, const CRect<int>& rect);
  // Draws one line of glyphs, without any layout. Returns the pen position after it.
  virtual SPenPosition WriteLine(IPixel* target, const std::string& text, int x, int y);
  virtual SPenPosition Write(IPixel* target, const std::string& text, int x, int y);
  // 0 left, 1 centre, 2 right, 3 justify; any other number removes the alignment.
  virtual void SetAlign(int kind);
  virtual int GetLineHeight() const;
  // The sum of the glyph widths, in pixels.
  virtual int GetTextWidth(const std::string& text) const;
  virtual int GetCharWidth(unsigned char character) const;

  // What GetCharWidth returns for each character, for loops over long texts.
  const std::array<int, 256>& GetCharWidths() const { return myWidths; }
  // The glyph sheet; the null picture when the font could not be loaded.
  IPixel* GetSheet() const { return mySheet; }
  bool HasGlyphs() const { return !myCharRects.empty(); }
  int GetSpaceWidth() const { return mySpaceWidth; }
  const std::string& GetFileName() const { return myFileName; }

 private:
  friend class COgfFontLoader;
  friend class CSystemFontLoader;

  void SetSheet(IPixel* sheet);
  void AddGlyph(unsigned char character, const CRect<int>& rect);
  void SetMetrics(int lineHeight);

  IPixel* mySheet;
  std::map<unsigned char, CRect<int>> myCharRects;
  std::unique_ptr<IFontAlign> myAlign;
  int myLineHeight = 0;
  int myReserved = 0;
  int mySpaceWidth = 0;
  std::string myFileName;
  // The widths of myCharRects as an array, for speed: a log view measures its whole log when its
  // width changes.
  std::array<int, 256> myWidths{};
};

}  // namespace vask
