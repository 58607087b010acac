#pragma once

#include "gfx/text/font.h"
#include "utils/rect.h"

#include <cstddef>
#include <memory>
#include <string>

namespace vask {

// Lays a text out in a rectangle: breaks it into lines at blanks and line ends, and places each.
class IFontAlign {
 public:
  enum EType : int { kLeft = 0, kCenter = 1, kRight = 2, kJustify = 3 };

  virtual ~IFontAlign() = default;
  // Draws the text; only measures when the target is null or empty. Returns where the last line
  // ended, with a y below that line.
  virtual SPenPosition Print(CFont& font, IPixel* target, const std::string& text,
                             const CRect<int>& rect) = 0;
  virtual int GetType() const = 0;
  // How many characters of the text, from `start` on, fit on one line, its line end included; 0
  // when the first word is wider than the rectangle.
  virtual int FitLine(const CFont& font, const std::string& text, const CRect<int>& rect,
                      int start) = 0;
};

// The alignment of a type number; null for any other number.
std::unique_ptr<IFontAlign> CreateFontAlign(int type);

// What all alignments share: everything but the x of a line.
class CFontAlign : public IFontAlign {
 public:
  SPenPosition Print(CFont& font, IPixel* target, const std::string& text,
                     const CRect<int>& rect) override;
  int FitLine(const CFont& font, const std::string& text, const CRect<int>& rect,
              int start) override;

 protected:
  // Draws the line that was fitted last, without its line end, at y; returns the x of its end.
  virtual int DrawLine(CFont& font, IPixel* target, const std::string& line, const CRect<int>& rect,
                       int y);
  // The x where a line of that width begins.
  virtual int LineX(const CRect<int>& rect, int width) const = 0;

  int myLineWidth = 0;           // of the line that was fitted last, in pixels
  bool myEndsParagraph = false;  // whether that line is the last of its paragraph
};

class CFontAlignLeft : public CFontAlign {
 public:
  int GetType() const override { return kLeft; }

 protected:
  int LineX(const CRect<int>& rect, int width) const override;
};

class CFontAlignCenter : public CFontAlign {
 public:
  int GetType() const override { return kCenter; }

 protected:
  int LineX(const CRect<int>& rect, int width) const override;
};

class CFontAlignRight : public CFontAlign {
 public:
  int GetType() const override { return kRight; }

 protected:
  int LineX(const CRect<int>& rect, int width) const override;
};

// Widens the blanks of every line but a paragraph's last, so that the lines end at the right edge.
class CFontAlignJustify : public CFontAlignLeft {
 public:
  int GetType() const override { return kJustify; }

 protected:
  int DrawLine(CFont& font, IPixel* target, const std::string& line, const CRect<int>& rect,
               int y) override;
};

}  // namespace vask
