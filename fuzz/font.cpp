// The first line is an OGF file, the rest is a text: what is measured is what is drawn, and no
// pixel outside changes.

#include "gfx/text/font.h"

#include "fuzz.h"
#include "gfx/text/fontalign.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"
#include "support/testpicture.h"

namespace {

constexpr int kWidth = 90;
constexpr int kHeight = 60;
constexpr vask::CRect<int> kPlace{7, 5, kWidth - 9, kHeight};

void CheckOutside(const vask::IPixel& target, int left, int right, int bottom) {
  const std::vector<std::uint32_t> pixels = vask::test::PixelsOf(target);
  for (int i = 0; i < kWidth * kHeight; ++i) {
    const int x = i % kWidth, y = i / kWidth;
    const bool isInside = x >= left && x < right && y >= kPlace.y && y < bottom;
    vask::fuzz::Require(isInside || pixels[static_cast<std::size_t>(i)] == 0);
  }
}

void Write(vask::CFont& font, const std::string& text) {
  int width = 0;
  for (const char character : text) {
    width += font.GetCharWidth(static_cast<unsigned char>(character));
  }
  vask::fuzz::Require(font.GetTextWidth(text) == width);
  for (int align = -1; align <= 3; ++align) {
    font.SetAlign(align);
    const vask::Gfx::ImagePtr target(vask::Gfx::NewBuffer(kWidth, kHeight));
    const vask::SPenPosition drawn = font.Write(target.get(), text, kPlace);
    const vask::SPenPosition measured = font.Write(nullptr, text, kPlace);
    // A line that is drawn justified reaches to the right edge.
    const bool isJustified = align == vask::IFontAlign::kJustify;
    vask::fuzz::Require(drawn.y == measured.y && (isJustified || drawn.x == measured.x));
    // The blank after a full line may reach over an edge.
    const int margin = align < 0 ? 0 : font.GetSpaceWidth();
    const int right = align < 0 ? measured.x : kPlace.x + kPlace.w + margin;
    CheckOutside(*target, kPlace.x - margin, right, measured.y);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static auto& screen = *new vask::test::CTestScreen(kWidth, kHeight);
  const std::string input = vask::fuzz::ToText(data, size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  vask::fuzz::WriteFile("input.ogf", input.substr(0, end));
  std::unique_ptr<vask::CFont> font = vask::LoadFont("input.ogf");
  Write(*font, input.substr(end));
  const std::unique_ptr<vask::CFont> clone(font->Clone());
  vask::fuzz::Require(clone->GetTextWidth(input) == font->GetTextWidth(input));
  vask::CTextSprite(std::move(font), kWidth, kHeight).SetText(input.substr(end));
  return 0;
}
