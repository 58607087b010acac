#pragma once

#include "platform/nativeform.h"

#include <climits>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace vask::platform {

class CNativeWindow;

enum class ENativeCursor { kArrow };

// The styles of a window class, to be added up.
inline constexpr unsigned kRedrawOnWidth = 1;   // drawn again when its width changes
inline constexpr unsigned kRedrawOnHeight = 2;  // drawn again when its height changes
inline constexpr unsigned kNoClose = 4;         // the user can't close it

// The styles of a window, to be added up.
inline constexpr unsigned kCaption = 1;
inline constexpr unsigned kSystemMenu = 2;

// Leaves the place of a window to the system.
inline constexpr int kDefaultPosition = INT_MIN;

// What windows of one kind have in common.
struct SNativeWindowClass {
  std::string name;
  unsigned style = 0;
  ENativeCursor cursor = ENativeCursor::kArrow;
  // Called from the message loop for each click on a button, with the button's id.
  std::function<void(CNativeWindow& window, int button)> procedure;
};

// A window of the desktop with standard controls, for messages outside the program's own screen.
// Each has a connection of its own to the display; no error of that connection ends the program.
//
//     CNativeWindow window({"Greeting", 0, ENativeCursor::kArrow, onClick});
//     window.Create("Hello", {kDefaultPosition, kDefaultPosition, 200, 100}, kCaption);
//     window.SetDefaultFont();
//     window.AddControl(EControlKind::kButton, "Good", {60, 40, 75, 20}, 1);
//
// And then Show() and RunMessageLoop().
class CNativeWindow {
 public:
  explicit CNativeWindow(SNativeWindowClass windowClass);
  // Destroys the window and ends the connection.
  ~CNativeWindow();
  CNativeWindow(const CNativeWindow&) = delete;
  CNativeWindow& operator=(const CNativeWindow&) = delete;

  // Call it once. The box is that of the content, without the frame; the user can't change its
  // size. False when there is no display or it fails; GetError() has the reason.
  bool Create(const std::string& title, const SBox& box, unsigned style);
  // Sets the font of the controls; call it before they are shown. False when the display has none.
  bool SetDefaultFont();
  // Returns the control's number.
  std::size_t AddControl(EControlKind kind, const std::string& text, const SBox& box, int id = 0,
                         unsigned style = 0);
  // How high a text is, with the font, in a static control of that width.
  int GetTextHeight(const std::string& text, int width) const;
  // The size of the content.
  void Resize(int width, int height);
  void Show();

  const std::string& GetText(std::size_t control) const;
  void SetText(std::size_t control, const std::string& text);

  // Handles input until the quit message is posted or the window is destroyed from outside. False
  // when the connection was lost; GetError() has the reason.
  bool RunMessageLoop();
  // Draws the window as it is now, before a procedure that takes long.
  void Refresh();
  // Drops the input that came during such a procedure: the user could not see its result yet.
  void DropInput();
  void Destroy();
  // Ends the message loop when the procedure returns.
  void PostQuitMessage();

  // Why the last call returned false.
  const std::string& GetError() const;

 private:
  class CImplementation;
  std::unique_ptr<CImplementation> myImplementation;
};

}  // namespace vask::platform
