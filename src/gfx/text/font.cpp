#include "gfx/text/font.h"

#include "gfx/text/fontalign.h"

namespace vask {

namespace {

// The side of the rectangle for a text that is only measured.
constexpr int kUnlimited = 1 << 20;

bool CanDraw(const IPixel* target) { return target != nullptr && !target->IsEmpty(); }

}  // namespace

CFont::CFont() : mySheet(Gfx::NullImage()) {}

CFont::~CFont() { SetSheet(Gfx::NullImage()); }

CFont* CFont::Clone() const {
  auto* clone = new CFont;
  if (!mySheet->IsStatic()) {
    clone->SetSheet(Gfx::NewBuffer(mySheet));
  }
  clone->myCharRects = myCharRects;
  clone->myWidths = myWidths;
  clone->SetAlign(myAlign == nullptr ? -1 : myAlign->GetType());
  clone->myLineHeight = myLineHeight;
  clone->myReserved = myReserved;
  clone->mySpaceWidth = mySpaceWidth;
  clone->myFileName = myFileName;
  return clone;
}

SPenPosition CFont::Write(IPixel* target, const std::string& text, const CRect<int>& rect,
                          const SPenPosition& cursor) {
  if (myAlign != nullptr) {
    return myAlign->Print(*this, target, text, rect);
  }
  SPenPosition pen = WriteLine(target, text, cursor.x, cursor.y);
  pen.y += text.empty() ? 0 : myLineHeight;
  return pen;
}

SPenPosition CFont::Write(IPixel* target, const std::string& text, const CRect<int>& rect) {
  return Write(target, text, rect, {rect.x, rect.y});
}

SPenPosition CFont::WriteLine(IPixel* target, const std::string& text, int x, int y) {
  if (!CanDraw(target)) {
    return {x + GetTextWidth(text), y};
  }
  const CRect<int> sheet{0, 0, mySheet->GetWidth(), mySheet->GetHeight()};
  for (const char character : text) {
    const auto glyph = myCharRects.find(static_cast<unsigned char>(character));
    if (glyph == myCharRects.end()) {
      continue;
    }
    // A wide glyph may reach over the edge of the sheet, and a file may promise more cells than the
    // sheet has.
    const CRect<int> source = glyph->second.Intersection(sheet);
    if (!source.IsEmpty()) {
      mySheet->Blit(target, source, {x, y, source.w, source.h});
    }
    x += glyph->second.w;
  }
  return {x, y};
}

SPenPosition CFont::Write(IPixel* target, const std::string& text, int x, int y) {
  const bool canDraw = CanDraw(target);
  const int right = canDraw ? target->GetWidth() : x + kUnlimited;
  const int bottom = canDraw ? target->GetHeight() : y + kUnlimited;
  return Write(target, text, {x, y, right - x, bottom - y});
}

void CFont::SetAlign(int kind) { myAlign = CreateFontAlign(kind); }

int CFont::GetLineHeight() const { return myLineHeight; }

int CFont::GetTextWidth(const std::string& text) const {
  int width = 0;
  for (const char character : text) {
    width += myWidths[static_cast<unsigned char>(character)];
  }
  return width;
}

int CFont::GetCharWidth(unsigned char character) const { return myWidths[character]; }

void CFont::SetSheet(IPixel* sheet) {
  if (!mySheet->IsStatic()) {
    Gfx::FreeImage(mySheet);
  }
  mySheet = sheet;
}

void CFont::AddGlyph(unsigned char character, const CRect<int>& rect) {
  myCharRects[character] = rect;
  myWidths[character] = rect.w;
}

void CFont::SetMetrics(int lineHeight) {
  myLineHeight = lineHeight;
  myReserved = 0;
  mySpaceWidth = myWidths[' '];
}

}  // namespace vask
