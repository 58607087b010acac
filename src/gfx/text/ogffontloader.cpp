#include "gfx/text/ogffontloader.h"

#include "gfx/text/font.h"
#include "utils/inputfile.h"
#include "utils/log/log.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace vask {

namespace {

constexpr char kMark[] = "OGF";
constexpr char kSeparator = ';';
constexpr std::size_t kFirstCharacters = 7;  // the field that the characters begin in

// Nothing sensible is longer: 256 characters with their widths are 768 bytes.
constexpr std::size_t kMaxLineLength = 65536;
constexpr int kMaxSheetSide = 4096;

constexpr float kWidthUnit = 0.015625F;  // of the cell width
constexpr float kTintUnit = 0.125F;
constexpr char kNoTint[] = "888";

// Empty when the file cannot be read.
std::string ReadFirstLine(const std::string& fileName) {
  std::ifstream file = OpenInputFile(fileName);
  std::string line(kMaxLineLength, '\0');
  file.read(line.data(), static_cast<std::streamsize>(line.size()));
  line.resize(static_cast<std::size_t>(file.gcount()));
  line.resize(std::min(line.find('\n'), line.size()));
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
  return line;
}

// Empty fields count.
std::vector<std::string> SplitFields(const std::string& line) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  for (std::size_t end = 0; end != std::string::npos; start = end + 1) {
    end = line.find(kSeparator, start);
    fields.push_back(line.substr(start, end == std::string::npos ? end : end - start));
  }
  return fields;
}

int ReadInteger(const std::string& field) {
  int value = 0;
  std::istringstream(field) >> value;
  return value;
}

int DigitValue(char digit) { return digit >= '0' && digit <= '9' ? digit - '0' : 0; }

std::uint8_t Multiplied(std::uint8_t channel, float factor) {
  return static_cast<std::uint8_t>(std::clamp(static_cast<float>(channel) * factor, 0.0F, 255.0F));
}

}  // namespace

void COgfFontLoader::Load(CFont& font, const std::string& fileName) {
  font.myFileName = fileName;
  const std::string line = ReadFirstLine(fileName);
  if (line.empty()) {
    Log() << "Could not open ogf file: " << fileName << " for loading\n";
    return;
  }
  SHeader header;
  if (!ReadHeader(SplitFields(line), fileName, header) || !CheckHeader(header, fileName)) {
    return;
  }
  Gfx::ImagePtr sheet = LoadSheet(header);
  if (sheet == nullptr) {
    return;
  }
  AddGlyphs(font, header, sheet->GetWidth(), sheet->GetHeight());
  font.SetSheet(Tinted(std::move(sheet), header.tint).release());
  font.SetMetrics(header.cellHeight);
}

bool COgfFontLoader::ReadHeader(const std::vector<std::string>& fields, const std::string& fileName,
                                SHeader& header) {
  const auto field = [&](std::size_t index) {
    return index < fields.size() ? fields[index] : std::string();
  };
  if (field(0) != kMark) {
    Log() << fileName << " is probably not a ogf file\n";
    return false;
  }
  header.columns = ReadInteger(field(1));
  header.rows = ReadInteger(field(2));
  header.cellWidth = ReadInteger(field(3));
  header.cellHeight = ReadInteger(field(4));
  header.count = ReadInteger(field(5));
  header.tint = field(6);
  std::size_t next = kFirstCharacters;
  header.characters = field(next++);
  while (static_cast<int>(header.characters.size()) < header.count && next < fields.size()) {
    header.characters += kSeparator + fields[next++];
  }
  header.widths = field(next);
  header.picture = field(next + 1);
  return true;
}

bool COgfFontLoader::CheckHeader(const SHeader& header, const std::string& fileName) {
  const int least =
      std::min({header.columns, header.rows, header.cellWidth, header.cellHeight, header.count});
  if (least <= 0 || header.cellWidth > kMaxSheetSide / header.columns ||
      header.cellHeight > kMaxSheetSide / header.rows) {
    Log() << fileName << " Error, the sheet has no valid size: " << header.columns << " x "
          << header.rows << " cells of " << header.cellWidth << " x " << header.cellHeight
          << " pixels for " << header.count << " characters\n";
    return false;
  }
  if (header.tint.size() < 3) {
    Log() << fileName << " Error, the tint (" << header.tint << ") is not three digits\n";
    return false;
  }
  if (static_cast<int>(header.characters.size()) != header.count) {
    Log() << fileName << "Error, the char count (" << header.count
          << ") and numbers of charachters (" << header.characters.size() << ") don't match\n";
    return false;
  }
  if (header.widths.size() != header.characters.size() * 2) {
    Log() << fileName << " Error, the number of character width's ( " << header.widths.size()
          << ") doesn't match the number of characters (" << header.count << ") times two\n";
    return false;
  }
  return true;
}

// Null when there is no picture.
Gfx::ImagePtr COgfFontLoader::LoadSheet(const SHeader& header) {
  Gfx::ImagePtr sheet(Gfx::LoadImage(header.picture, Gfx::kMagenta));
  const int width = header.columns * header.cellWidth;
  const int height = header.rows * header.cellHeight;
  if (!sheet->IsEmpty() && (sheet->GetWidth() != width || sheet->GetHeight() != height)) {
    sheet.reset(sheet->Scale(width, height));
  }
  if (sheet->IsEmpty()) {
    Log().Warning() << "Could not load image" << header.picture << "\n";
    return nullptr;
  }
  return sheet;
}

void COgfFontLoader::AddGlyphs(CFont& font, const SHeader& header, int sheetWidth,
                               int sheetHeight) {
  const int cellWidth = sheetWidth / header.columns;
  const int cellHeight = sheetHeight / header.rows;
  SPenPosition pen;
  for (int i = 0; i < header.count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    const int width64ths =
        DigitValue(header.widths[index * 2]) * 10 + DigitValue(header.widths[index * 2 + 1]);
    const int width = static_cast<int>(static_cast<float>(width64ths) * kWidthUnit *
                                       static_cast<float>(cellWidth));
    font.AddGlyph(static_cast<unsigned char>(header.characters[index]),
                  {pen.x, pen.y, width, header.cellHeight});
    const bool endsRow = (i + 1) % header.columns == 0;
    pen = endsRow ? SPenPosition{0, pen.y + cellHeight} : SPenPosition{pen.x + cellWidth, pen.y};
  }
}

// Works on a copy of its own: the picture's surface is shared with everyone who loaded the file.
Gfx::ImagePtr COgfFontLoader::Tinted(Gfx::ImagePtr sheet, const std::string& tint) {
  if (tint.compare(0, 3, kNoTint) == 0) {
    return sheet;
  }
  std::array<float, 3> factors{};
  std::transform(tint.begin(), tint.begin() + 3, factors.begin(),
                 [](char digit) { return static_cast<float>(digit - '0') * kTintUnit; });
  Log() << "Red: " << factors[0] << "Green: " << factors[1] << "Blue: " << factors[2] << "\n";

  Gfx::ImagePtr copy(sheet->Clone());
  for (int y = 0; y < copy->GetHeight(); ++y) {
    for (int x = 0; x < copy->GetWidth(); ++x) {
      CColor color = copy->GetPixel(x, y);
      color.r = Multiplied(color.r, factors[0]);
      color.g = Multiplied(color.g, factors[1]);
      color.b = Multiplied(color.b, factors[2]);
      copy->ClearRect({x, y, 1, 1});
      copy->PutPixel(x, y, color);
    }
  }
  return copy;
}

}  // namespace vask
