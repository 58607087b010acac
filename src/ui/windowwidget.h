#pragma once

#include "input/buttons.h"
#include "ui/widget.h"

#include <cstdint>
#include <string>

namespace vask::ui {

class CButtonWidget;
class IMouse;

// A window with a title bar, buttons to maximise and to close it, and an area for the client's
// widgets. The user drags it by its title bar and resizes it by its borders. Closing only sets a
// flag, which the owner polls to delete the window.
class CWindowWidget : public CWidget {
 public:
  CWindowWidget();
  CWindowWidget(CWidget* parent, const CRect<int>& rect, bool relative, const std::string& name,
                const CSpritePtr& sprite);
  ~CWindowWidget() override;

  void HandleEvent(IEvent& event) override;
  void OnMouseEvent(CMouseEvent& event) override;
  virtual CWidget* GetClientArea() const;

  bool IsClosed() const { return myClosed; }
  void Close() { SetClosed(true); }
  void SetClosed(bool closed) { myClosed = closed; }
  void Raise() { RaiseToTop(this); }
  bool IsMaximised() const { return myMaximised; }
  // Switches between the parent's whole rectangle and the window's earlier one. Does nothing
  // without a parent.
  void ToggleMaximise();

 private:
  // The horizontal edges are the vertical ones, shifted by two bits.
  enum EEdge : std::int32_t { kLeft = 1, kRight = 2, kTop = 4, kBottom = 8 };

  void BuildChildren();
  CButtonWidget* NewButton(const std::string& name, const std::string& file);
  void Connect();
  void Maximise();
  void Restore();

  static std::int32_t CursorOf(std::int32_t edges);
  std::int32_t EdgesAt(SPoint point) const;
  std::int32_t StripsAt(SPoint point, int width) const;
  void ShowCursorFor(std::int32_t edges, IMouse* mouse);
  void StartResizing(const CMouseEvent& event);
  void StopResizing(const CMouseEvent& event);
  void DragEdges(SPoint pointer);
  void TakeRect(const CRect<int>& rect);

  // Children, owned as such.
  CButtonWidget* myMaximiseButton = nullptr;
  CButtonWidget* myCloseButton = nullptr;
  CButtonWidget* myTitleBar = nullptr;
  CWidget* myClientArea = nullptr;
  bool myClosed = false;
  bool myResizable = true;
  bool myMaximised = false;
  CRect<int> mySavedRect;                      // before it was maximised
  std::int32_t myResizeButtons = kLeftButton;  // bits
  std::int32_t myDraggedEdges = 0;             // bits of EEdge; 0 while not resizing
  SPoint myPointerOffset;                      // from the dragged edges to the pointer
  bool myCursorChanged = false;
  std::int32_t myMinimumWidth = 100;
  std::int32_t myMinimumHeight = 50;
  CRect<int> myGrabbedRect;  // when the resizing began
};

}  // namespace vask::ui
