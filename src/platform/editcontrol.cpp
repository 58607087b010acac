#include "platform/editcontrol.h"

#include <algorithm>
#include <utility>

namespace vask::platform {

namespace {

// The last place of the caret in the line: after it, unless the next line begins just there.
std::size_t LastPlace(const std::vector<STextLine>& lines, std::size_t line) {
  const bool isWrapped = line + 1 < lines.size() && lines[line + 1].begin == lines[line].end;
  return lines[line].end - (isWrapped ? 1 : 0);
}

}  // namespace

void CEditControl::SetText(std::string text) {
  CNativeControl::SetText(std::move(text));
  myCaret = myAnchor = myFirstChar = myFirstLine = 0;
}

void CEditControl::Draw(INativeCanvas& canvas, bool hasFocus, bool /*isPressed*/) {
  const SBox& box = GetBox();
  canvas.FillBox(box, ENativeColor::kField);
  canvas.Edge(box, ENativeColor::kShadow, ENativeColor::kLight);
  if (HasStyle(kClientEdge)) {
    canvas.Edge(box.Inside(1), ENativeColor::kDark, ENativeColor::kFace);
  }
  const SBox text = TextBox();
  const Lines lines = SplitLines(canvas);
  const int height = canvas.LineHeight();
  int y = text.y;
  for (std::size_t i = myFirstLine; i < lines.size() && y < text.y + text.height; ++i) {
    const std::size_t begin = lines[i].begin + myFirstChar;
    // No further than the box is wide: places beyond 16 bits would come round again.
    std::size_t end = begin;
    for (int used = 0; end < lines[i].end && used < text.width; ++end) {
      used += canvas.CharWidth(myText[end]);
    }
    if (hasFocus) {
      DrawSelection(canvas, {begin, end}, y);
    }
    canvas.Text(text.x, y, std::string_view(myText).substr(begin, end - begin), text);
    y += height;
  }
  if (hasFocus) {
    DrawCaret(canvas, lines);
  }
}

void CEditControl::DrawSelection(INativeCanvas& canvas, STextLine shown, int y) const {
  const std::size_t begin = std::max(shown.begin, SelectionBegin());
  const std::size_t end = std::min(shown.end, SelectionEnd());
  if (begin >= end) {
    return;
  }
  const SBox box = TextBox();
  const std::string_view text = myText;
  const int x = canvas.TextWidth(text.substr(shown.begin, begin - shown.begin));
  const int width = canvas.TextWidth(text.substr(begin, end - begin));
  canvas.FillBox({box.x + x, y, std::min(width, box.width - x),
                  std::min(canvas.LineHeight(), box.y + box.height - y)},
                 ENativeColor::kSelection);
}

void CEditControl::DrawCaret(INativeCanvas& canvas, const Lines& lines) const {
  const std::size_t line = LineOfCaret(lines);
  const std::size_t begin = lines[line].begin + myFirstChar;
  if (line < myFirstLine || myCaret < begin) {
    return;
  }
  const SBox text = TextBox();
  const int x = canvas.TextWidth(std::string_view(myText).substr(begin, myCaret - begin));
  const int y = static_cast<int>(line - myFirstLine) * canvas.LineHeight();
  if (x <= text.width && y < text.height) {
    canvas.FillBox({text.x + x, text.y + y, 1, std::min(canvas.LineHeight(), text.height - y)},
                   ENativeColor::kText);
  }
}

void CEditControl::OnPress(int x, int y, const INativeFont& font) {
  const SBox text = TextBox();
  // A press on the border counts for the text beside it.
  myCaret = myAnchor = PlaceAt(std::max(x, text.x), std::max(y, text.y), font);
  ScrollToCaret(font);
}

void CEditControl::OnDrag(int x, int y, const INativeFont& font) {
  myCaret = PlaceAt(x, y, font);
  ScrollToCaret(font);
}

std::size_t CEditControl::PlaceAt(int x, int y, const INativeFont& font) const {
  const SBox text = TextBox();
  const Lines lines = SplitLines(font);
  const bool isAbove = y < text.y && myFirstLine > 0;
  const std::size_t row = static_cast<std::size_t>(std::max(0, y - text.y) / font.LineHeight());
  const std::size_t line =
      std::min(lines.size() - 1, isAbove ? myFirstLine - 1 : myFirstLine + row);
  const std::size_t place = PlaceInLine(lines, line, x - text.x, font);
  return x < text.x && myFirstChar > 0 ? place - 1 : place;
}

bool CEditControl::OnKey(const SNativeKey& key, const INativeFont& font) {
  switch (key.key) {
    case ENativeKey::kText:
      // A key that types nothing, such as the shift key, replaces nothing.
      if (!key.text.empty()) {
        Insert(key.text);
      }
      break;
    case ENativeKey::kReturn:
      if (!HasStyle(kAutoScroll)) {
        Insert("\n");
      }
      break;
    case ENativeKey::kBackspace:
      EraseTo(myCaret > 0 ? myCaret - 1 : 0);
      break;
    case ENativeKey::kDelete:
      EraseTo(std::min(myCaret + 1, myText.size()));
      break;
    case ENativeKey::kSelectAll:
      myAnchor = 0;
      myCaret = myText.size();
      break;
    default:
      if (key.selects || !LeaveSelection(key.key)) {
        MoveCaret(key.key, font);
      }
      myAnchor = key.selects ? myAnchor : myCaret;
  }
  ScrollToCaret(font);
  return false;
}

void CEditControl::Insert(const std::string& text) {
  EraseTo(myCaret);
  myText.insert(myCaret, text);
  myCaret += text.size();
  myAnchor = myCaret;
}

void CEditControl::EraseTo(std::size_t place) {
  if (myAnchor == myCaret) {
    myAnchor = place;
  }
  const std::size_t begin = SelectionBegin();
  myText.erase(begin, SelectionEnd() - begin);
  myCaret = myAnchor = begin;
}

bool CEditControl::LeaveSelection(ENativeKey key) {
  const bool isSideways = key == ENativeKey::kLeft || key == ENativeKey::kRight;
  if (!isSideways || myAnchor == myCaret) {
    return false;
  }
  myCaret = key == ENativeKey::kLeft ? SelectionBegin() : SelectionEnd();
  return true;
}

void CEditControl::MoveCaret(ENativeKey key, const INativeFont& font) {
  const Lines lines = SplitLines(font);
  const std::size_t line = LineOfCaret(lines);
  const auto toLine = [&](std::size_t target) {
    const std::size_t begin = lines[line].begin;
    const auto before = std::string_view(myText).substr(begin, myCaret - begin);
    myCaret = PlaceInLine(lines, target, font.TextWidth(before), font);
  };
  if (key == ENativeKey::kLeft && myCaret > 0) {
    --myCaret;
  } else if (key == ENativeKey::kRight && myCaret < myText.size()) {
    ++myCaret;
  } else if (key == ENativeKey::kHome) {
    myCaret = lines[line].begin;
  } else if (key == ENativeKey::kEnd) {
    myCaret = LastPlace(lines, line);
  } else if (key == ENativeKey::kUp && line > 0) {
    toLine(line - 1);
  } else if (key == ENativeKey::kDown && line + 1 < lines.size()) {
    toLine(line + 1);
  }
}

CEditControl::Lines CEditControl::SplitLines(const INativeFont& font) const {
  if (HasStyle(kAutoScroll)) {
    return {{0, myText.size()}};
  }
  return WrapText(myText, TextBox().width, font);
}

std::size_t CEditControl::LineOfCaret(const Lines& lines) const {
  const auto next = std::ranges::upper_bound(lines, myCaret, {}, &STextLine::begin);
  return static_cast<std::size_t>(next - lines.begin()) - 1;
}

std::size_t CEditControl::PlaceInLine(const Lines& lines, std::size_t line, int x,
                                      const INativeFont& font) const {
  std::size_t place = lines[line].begin + myFirstChar;
  const std::size_t end = LastPlace(lines, line);
  while (place < end && x > font.CharWidth(myText[place]) / 2) {
    x -= font.CharWidth(myText[place++]);
  }
  return place;
}

void CEditControl::ScrollToCaret(const INativeFont& font) {
  const SBox box = TextBox();
  if (HasStyle(kAutoScroll)) {
    myFirstChar = std::min(myFirstChar, myCaret);
    int width = font.TextWidth(std::string_view(myText).substr(myFirstChar, myCaret - myFirstChar));
    while (width >= box.width && myFirstChar < myCaret) {
      width -= font.CharWidth(myText[myFirstChar++]);
    }
    // After an erasure more of the text before fits in.
    int rest = font.TextWidth(std::string_view(myText).substr(myFirstChar));
    while (myFirstChar > 0 && (rest += font.CharWidth(myText[myFirstChar - 1])) < box.width) {
      --myFirstChar;
    }
    return;
  }
  const Lines lines = SplitLines(font);
  const std::size_t line = LineOfCaret(lines);
  const auto rows = static_cast<std::size_t>(std::max(1, box.height / font.LineHeight()));
  myFirstLine = std::min(myFirstLine, line);
  myFirstLine = std::max(myFirstLine, line + 1 > rows ? line + 1 - rows : 0);
}

}  // namespace vask::platform
