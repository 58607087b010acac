#include "ui/loglistenerforconsole.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "gfx/font.h"

namespace vask::ui {
namespace {

// The longest line is cut there.
constexpr int kMaxLineHeight = 200;
// Every line needs an offset of its own.
constexpr int kMinLineHeight = 1;

class CRegistration {
 public:
  CRegistration() {
    CLog::GetSingletonPtr()->AddListener(CLogListenerForConsole::GetSingletonPtr());
  }
  ~CRegistration() {
    if (CLog* log = CLog::PeekSingletonPtr()) {
      log->RemoveListener(CLogListenerForConsole::PeekSingletonPtr());
    }
    CLogListenerForConsole::DeleteSingleton();
  }
  CRegistration(const CRegistration&) = delete;
  CRegistration& operator=(const CRegistration&) = delete;
};

const CRegistration theRegistration;

}  // namespace

void CLogListenerForConsole::OnLog(const std::string& line, int level) {
  if (level < myLowestLevel) {
    return;
  }
  SLine kept{kMinLineHeight, level, line};
  if (myIsPainting) {
    myLateLines.push_back(std::move(kept));
    return;
  }
  kept.height = Measure(kept);
  if (myTotalHeight >= myArea.y && myTotalHeight <= myArea.y + myArea.h) {
    myRepaintNeeded = true;
  }
  const int offset = std::exchange(myTotalHeight, myTotalHeight + kept.height);
  myLines.emplace_hint(myLines.end(), offset, std::move(kept));
}

void CLogListenerForConsole::SetFont(CFont* font) {
  myFont = font;
  RemeasureAll();
}

void CLogListenerForConsole::SetLevelFont(int level, CFont* font) {
  myLevelFonts[level] = font;
  RemeasureAll();
}

CFont* CLogListenerForConsole::FontOf(const SLine& line) const {
  const auto found = myLevelFonts.find(line.level);
  return found != myLevelFonts.end() && found->second != nullptr ? found->second : myFont;
}

int CLogListenerForConsole::Measure(const SLine& line) const {
  CFont* font = FontOf(line);
  if (font == nullptr) {
    return kMinLineHeight;
  }
  const CRect<int> rect{0, 0, myArea.w, kMaxLineHeight};
  return std::max(font->Write(nullptr, line.text, rect).y, kMinLineHeight);
}

// The lines move from map to map as they are: a long log is measured at each step of a resize.
void CLogListenerForConsole::RemeasureAll() {
  std::map<int, SLine> lines = std::exchange(myLines, {});
  myTotalHeight = 0;
  while (!lines.empty()) {
    auto node = lines.extract(lines.begin());
    SLine& line = node.mapped();
    line.height = Measure(line);
    node.key() = std::exchange(myTotalHeight, myTotalHeight + line.height);
    myLines.insert(myLines.end(), std::move(node));
  }
  myRepaintNeeded = true;
}

bool CLogListenerForConsole::Draw(IPixel* surface, const CRect<int>& area, bool force) {
  if (area.w != myArea.w) {
    myArea.w = area.w;
    RemeasureAll();
  } else if (!myRepaintNeeded && area == myArea && surface == mySurface && !force) {
    return false;
  }
  if (surface != nullptr) {
    surface->ClearRect({0, 0, surface->GetWidth(), surface->GetHeight()});
  }
  myArea = area;
  mySurface = surface;
  myIsPainting = true;
  const bool isOfOtherHeight = PaintLines(surface);
  myIsPainting = false;
  myRepaintNeeded = false;
  if (isOfOtherHeight) {
    RemeasureAll();
  }
  for (const SLine& line : std::exchange(myLateLines, {})) {
    OnLog(line.text, line.level);
  }
  return true;
}

bool CLogListenerForConsole::PaintLines(IPixel* surface) {
  bool isOfOtherHeight = false;
  int y = myArea.y;
  for (auto at = FirstLineIn(myArea); at != myLines.end() && y < myArea.y + myArea.h; ++at) {
    auto& [offset, line] = *at;
    CFont* font = FontOf(line);
    if (font == nullptr) {
      continue;
    }
    const int top = offset - myArea.y;
    const CRect<int> rect{myArea.x, top, myArea.w, kMaxLineHeight};
    const int height = std::max(font->Write(surface, line.text, rect).y - top, kMinLineHeight);
    isOfOtherHeight |= height != line.height;
    line.height = height;
    y = offset + height;
  }
  return isOfOtherHeight;
}

std::map<int, CLogListenerForConsole::SLine>::iterator CLogListenerForConsole::FirstLineIn(
    const CRect<int>& area) {
  const auto below = myLines.upper_bound(area.y);
  return below == myLines.begin() ? below : std::prev(below);
}

}  // namespace vask::ui
