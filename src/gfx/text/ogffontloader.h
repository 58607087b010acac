#pragma once

#include "gfx/picture/gfx.h"
#include "gfx/text/fontloader.h"

#include <string>
#include <vector>

namespace vask {

// Reads OGF files: one line of fields between ";".
//
//   OGF;columns;rows;cell width;cell height;N;tint;the N characters;2N digits of width;picture
//
// Widths are in 64ths of the cell width, the tint is one digit each for red, green and blue in
// eighths. The characters may contain ";".
class COgfFontLoader : public IFontLoader {
 public:
  std::string GetKey() const override { return "ogf"; }
  void Load(CFont& font, const std::string& fileName) override;

 private:
  struct SHeader {
    int columns = 0;
    int rows = 0;
    int cellWidth = 0;
    int cellHeight = 0;
    int count = 0;
    std::string tint;
    std::string characters;
    std::string widths;
    std::string picture;
  };

  static bool ReadHeader(const std::vector<std::string>& fields, const std::string& fileName,
                         SHeader& header);
  static bool CheckHeader(const SHeader& header, const std::string& fileName);
  static Gfx::ImagePtr LoadSheet(const SHeader& header);
  static void AddGlyphs(CFont& font, const SHeader& header, int sheetWidth, int sheetHeight);
  static Gfx::ImagePtr Tinted(Gfx::ImagePtr sheet, const std::string& tint);
};

}  // namespace vask
