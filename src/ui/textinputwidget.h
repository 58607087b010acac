#pragma once

#include "ui/widget.h"
#include "utils/signalslot/signal.h"

#include <array>
#include <cstdint>
#include <string>

namespace vask {
class CFont;
}

namespace vask::ui {

// One line of text to edit. The widget's sprite shows the text, a sprite of its own the cursor
// while the widget has the focus, which a click gives it.
//
//     auto* input = new CTextInputWidget(area, {0, 0, 400, 20}, true, "line",
//                                        GetGfxHandler().Load("data/gui/text_input.xml"),
//                                        "data/gui/text_cursor.gif");
//     input->GetKeySignal(CTextInputWidget::kReturn).Connect(this, &CForm::Send);
class CTextInputWidget : public CWidget {
 public:
  // The keys that type nothing and emit a signal instead. The owner connects return, tab, up and
  // down; the others edit.
  enum EKeySignal : std::uint8_t {
    kBackspace,
    kReturn,
    kTab,
    kUp,
    kDown,
    kLeft,
    kRight,
    kDelete,
    kHome,
    kEnd,
    kKeySignalCount
  };

  CTextInputWidget();
  // The cursor's picture is loaded when the cursor is first shown.
  CTextInputWidget(CWidget* parent, const CRect<int>& rect, bool relative, const std::string& name,
                   const CSpritePtr& sprite, const std::string& cursorFile);
  ~CTextInputWidget() override;

  void OnMouseEvent(CMouseEvent& event) override;
  void OnKeyboardEvent(CKeyboardEvent& event) override;
  void OnFocusEvent(CFocusEvent& event) override;
  void OnRectChanged() override;
  void OnDepthChanged() override;

  virtual void SetText(const std::string& text);
  virtual std::string GetText() const;
  virtual void EraseBackward();
  virtual void EraseForward();
  // Every character is inserted, whether or not it can be seen.
  virtual void InsertCharacter(char character);
  virtual void CursorLeft();
  virtual void CursorRight();
  virtual void CursorHome();
  virtual void CursorEnd();
  // Puts the cursor after the last character that ends at or before the point; a point on the left
  // of the text changes nothing.
  virtual void SetCursorToPoint(SPoint point);
  // Stores and shows the text; the cursor position stays.
  virtual void ChangeText(const std::string& text);

  css::CSignal& GetKeySignal(EKeySignal key) { return myKeySignals[key]; }
  std::int32_t GetCursor() const { return myCursor; }

 protected:
  // How many characters are scrolled out at the left; `current` is how many are now. Called after
  // each change of text, cursor and rectangle. Here 0: the text shows from its beginning.
  virtual std::int32_t FirstToShow(std::int32_t current) const;

  std::int32_t Length() const { return static_cast<std::int32_t>(myText.size()); }
  // The width of the characters before a position, in pixels.
  std::int32_t WidthBefore(std::int32_t position) const;

 private:
  void ConnectEditingKeys();
  void DrawPlain();
  void ShowText();
  void ShowCursor();
  void HideCursor();
  void PlaceCursor();
  void MoveCursorTo(std::int32_t position);
  std::int32_t Limited(std::int32_t position) const;
  // Null when the sprite shows no text.
  CFont* GetFont() const;

  std::array<css::CSignal, kKeySignalCount> myKeySignals;
  std::string myText;
  std::string myCursorFile;
  CSpritePtr myCursorSprite;  // empty before the first focus
  std::int32_t myCursor = 0;  // how many characters are before it
  SPoint myCursorOffset;      // from the beginning of the text
  std::int32_t myFirstShown = 0;
  bool myIsCursorOn = false;
  bool myIsMouseOver = false;
};

}  // namespace vask::ui
