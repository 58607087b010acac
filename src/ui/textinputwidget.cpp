#include "ui/textinputwidget.h"

#include "gfx/text/textsprite.h"
#include "input/keynames.h"
#include "ui/gfxhandler.h"
#include "ui/mouse.h"
#include "ui/widgetfactory.h"
#include "utils/log/log.h"

#include <algorithm>

namespace vask::ui {
namespace {

const CWidgetRegistrar<CTextInputWidget> theRegistrar("CTextInputWidget");

// The key symbols of the signals, in their order.
constexpr std::array<std::int32_t, CTextInputWidget::kKeySignalCount> kSignalKeys = {
    kBackspaceKey, kReturnKey, kTabKey,    kUpKey,   kDownKey,
    kLeftKey,      kRightKey,  kDeleteKey, kHomeKey, kEndKey};

// The text as it is drawn: what would lay it out, and so be invisible in one line, shows as the box
// of a code that has no glyph.
std::string Drawn(std::string text) {
  constexpr char kBox = 1;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, kBox);
  return text;
}

}  // namespace

CTextInputWidget::CTextInputWidget() : CTextInputWidget(nullptr, {}, false, {}, {}, {}) {}

CTextInputWidget::CTextInputWidget(CWidget* parent, const CRect<int>& rect, bool relative,
                                   const std::string& name, const CSpritePtr& sprite,
                                   const std::string& cursorFile)
    : CWidget(parent, rect, relative, name, sprite), myCursorFile(cursorFile) {
  CWidget::SetIgnoreEvent(IEvent::kFocusGained, false);
  CWidget::SetIgnoreEvent(IEvent::kFocusLost, false);
  ConnectEditingKeys();
  DrawPlain();
}

CTextInputWidget::~CTextInputWidget() {
  if (myIsMouseOver) {
    RestoreCursor();
  }
}

void CTextInputWidget::ConnectEditingKeys() {
  myKeySignals[kBackspace].Connect(this, &CTextInputWidget::EraseBackward);
  myKeySignals[kDelete].Connect(this, &CTextInputWidget::EraseForward);
  myKeySignals[kLeft].Connect(this, &CTextInputWidget::CursorLeft);
  myKeySignals[kRight].Connect(this, &CTextInputWidget::CursorRight);
  myKeySignals[kHome].Connect(this, &CTextInputWidget::CursorHome);
  myKeySignals[kEnd].Connect(this, &CTextInputWidget::CursorEnd);
}

// One line, clipped by the sprite: an alignment would wrap it, and the cursor would miss it.
void CTextInputWidget::DrawPlain() {
  constexpr int kNoAlignment = -1;
  if (CFont* font = GetFont()) {
    font->SetAlign(kNoAlignment);
    GetSprite()->SetText(Drawn(myText));
  }
}

std::int32_t CTextInputWidget::FirstToShow(std::int32_t) const { return 0; }

void CTextInputWidget::ShowText() {
  myFirstShown = Limited(FirstToShow(myFirstShown));
  if (GetSprite()) {
    GetSprite()->SetText(Drawn(myText.substr(static_cast<std::size_t>(myFirstShown))));
  }
  PlaceCursor();
}

CFont* CTextInputWidget::GetFont() const {
  const CSpritePtr& sprite = GetSprite();
  const auto* text = sprite ? dynamic_cast<const CTextSprite*>(&*sprite) : nullptr;
  return text != nullptr ? text->GetFont() : nullptr;
}

std::int32_t CTextInputWidget::WidthBefore(std::int32_t position) const {
  const CFont* font = GetFont();
  const auto count = static_cast<std::size_t>(Limited(position));
  return font != nullptr ? font->GetTextWidth(Drawn(myText.substr(0, count))) : 0;
}

void CTextInputWidget::OnFocusEvent(CFocusEvent& event) {
  switch (event.GetType()) {
    case IEvent::kFocusGained:
      return ShowCursor();
    case IEvent::kFocusLost:
      return HideCursor();
    default:
      CLog::GetSingletonPtr()->Error()
          << "CTextInputWidget::OnFocusEvent() - Recived an impossible event.\n";
  }
}

void CTextInputWidget::OnMouseEvent(CMouseEvent& event) {
  switch (event.GetType()) {
    case IEvent::kMouseOver:
      myIsMouseOver = true;
      return ChangeCursor(event.GetMouse(), kCursorText);
    case IEvent::kMouseOut:
      myIsMouseOver = false;
      return ChangeCursor(event.GetMouse(), kCursorArrow);
    case IEvent::kMouseButtonDown:
      return SetCursorToPoint(event.GetPosition());
    default:
      return;
  }
}

void CTextInputWidget::OnKeyboardEvent(CKeyboardEvent& event) {
  if (event.GetType() != IEvent::kKeyDown) {
    return;
  }
  const auto* const found = std::find(kSignalKeys.begin(), kSignalKeys.end(), event.GetKey());
  if (found != kSignalKeys.end()) {
    myKeySignals[static_cast<std::size_t>(found - kSignalKeys.begin())].Emit();
  } else if (event.GetCharacter() != 0) {
    InsertCharacter(static_cast<char>(event.GetCharacter()));
  }
}

void CTextInputWidget::OnRectChanged() {
  CWidget::OnRectChanged();
  ShowText();
}

void CTextInputWidget::OnDepthChanged() {
  CWidget::OnDepthChanged();
  GetGfxHandler().SetDepth(myCursorSprite, GetDepth());
}

void CTextInputWidget::SetText(const std::string& text) {
  if (text == myText) {
    return;
  }
  ChangeText(text);
  MoveCursorTo(myCursor);
}

std::string CTextInputWidget::GetText() const { return myText; }

void CTextInputWidget::ChangeText(const std::string& text) {
  myText = text;
  ShowText();
}

void CTextInputWidget::InsertCharacter(char character) {
  const std::int32_t position = Limited(myCursor);
  std::string text = myText;
  text.insert(static_cast<std::size_t>(position), 1, character);
  ChangeText(text);
  MoveCursorTo(position + 1);
}

void CTextInputWidget::EraseBackward() {
  const std::int32_t position = Limited(myCursor);
  if (position > 0) {
    std::string text = myText;
    text.erase(static_cast<std::size_t>(position - 1), 1);
    ChangeText(text);
    MoveCursorTo(position - 1);
  }
}

void CTextInputWidget::EraseForward() {
  const std::int32_t position = Limited(myCursor);
  if (position < Length()) {
    std::string text = myText;
    text.erase(static_cast<std::size_t>(position), 1);
    ChangeText(text);
  }
}

void CTextInputWidget::CursorLeft() { MoveCursorTo(myCursor - 1); }

void CTextInputWidget::CursorRight() { MoveCursorTo(myCursor + 1); }

void CTextInputWidget::CursorHome() { MoveCursorTo(0); }

void CTextInputWidget::CursorEnd() { MoveCursorTo(Length()); }

void CTextInputWidget::SetCursorToPoint(SPoint point) {
  const std::int32_t reach = (point - SPoint{GetRect().x, GetRect().y}).x;
  if (reach < 1) {
    return;
  }
  const std::int32_t end = WidthBefore(myFirstShown) + reach;
  std::int32_t position = 0;
  std::int32_t beyond = Length() + 1;
  while (beyond - position > 1) {
    const std::int32_t middle = position + (beyond - position) / 2;
    (WidthBefore(middle) <= end ? position : beyond) = middle;
  }
  MoveCursorTo(position);
}

std::int32_t CTextInputWidget::Limited(std::int32_t position) const {
  return std::clamp(position, 0, Length());
}

// Also for a position that has not changed: the text before it may have another width now.
void CTextInputWidget::MoveCursorTo(std::int32_t position) {
  myCursor = Limited(position);
  myCursorOffset = {WidthBefore(myCursor), 0};
  ShowText();
}

void CTextInputWidget::ShowCursor() {
  if (!myCursorSprite) {
    myCursorSprite = GetGfxHandler().Load(myCursorFile);
    GetGfxHandler().SetDepth(myCursorSprite, GetDepth());
  }
  myIsCursorOn = true;
  PlaceCursor();
}

void CTextInputWidget::HideCursor() {
  myIsCursorOn = false;
  PlaceCursor();
}

// A cursor outside the widget is not seen, as the text there is not.
void CTextInputWidget::PlaceCursor() {
  if (myCursorSprite) {
    const SPoint textStart{GetRect().x - WidthBefore(myFirstShown), GetRect().y};
    const SPoint place = textStart + myCursorOffset;
    GetGfxHandler().SetPosition(myCursorSprite, place.x, place.y);
    myCursorSprite->SetVisible(myIsCursorOn && GetRect().Contains(place.x, place.y));
  }
}

}  // namespace vask::ui
