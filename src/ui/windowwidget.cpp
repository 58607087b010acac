#include "ui/windowwidget.h"

#include "ui/buttonwidget.h"
#include "ui/gfxhandler.h"
#include "ui/mouse.h"
#include "ui/receivers.h"
#include "ui/widgetfactory.h"

#include <algorithm>

namespace vask::ui {
namespace {

const CWidgetRegistrar<CWindowWidget> theRegistrar("CWindowWidget");

constexpr int kBorderWidth = 3;
// Along the border, this near to a corner, both of its edges are grabbed.
constexpr int kCornerWidth = 20;

// One axis of a rectangle, wide enough for every sum of a few coordinates.
struct SSpan {
  std::int64_t at;
  std::int64_t extent;
};

// 1 for the strip at the near edge, 2 for the one at the far edge; both where they overlap.
std::int32_t StripsOf(SSpan span, std::int64_t point, std::int64_t width) {
  const bool isNear = point < span.at + width;
  const bool isFar = point >= span.at + span.extent - width;
  return (isNear ? 1 : 0) | (isFar ? 2 : 0);
}

// The edges have the bits of StripsOf; an edge that is not grabbed stays where it was, as far as
// the minimum allows.
SSpan Dragged(SSpan old, std::int32_t edges, std::int64_t pointer, std::int64_t offset,
              std::int64_t minimum) {
  SSpan span = old;
  if ((edges & 1) != 0) {
    span.at = pointer;
  }
  if ((edges & 2) != 0) {
    span.extent = pointer - offset - span.at;
  }
  span.extent = std::max(span.extent, minimum) + old.at - span.at;
  return span;
}

int ToInt(std::int64_t value) { return ToPixels(static_cast<double>(value)); }

// Grows to the minimum at the near edge.
void WidenTo(int minimum, int& at, int& extent) {
  if (extent < minimum) {
    at = ToInt(std::int64_t{at} - minimum + extent);
    extent = minimum;
  }
}

}  // namespace

CWindowWidget::CWindowWidget() : CWindowWidget(nullptr, {}, false, {}, {}) {}

CWindowWidget::CWindowWidget(CWidget* parent, const CRect<int>& rect, bool relative,
                             const std::string& name, const CSpritePtr& sprite)
    : CWidget(parent, rect, relative, name, sprite) {
  BuildChildren();
  Connect();
}

CWindowWidget::~CWindowWidget() {
  if (myCursorChanged) {
    RestoreCursor();
  }
}

// Later children lie in front: the two buttons over the title bar.
void CWindowWidget::BuildChildren() {
  myTitleBar = NewButton("title bar", "data/gui/titlebar.gif");
  myTitleBar->SetLayout("parent.x + 2", "parent.y + 2", "parent.w - 4", "20");
  myMaximiseButton = NewButton("maximise", "data/gui/maximize.gif");
  myMaximiseButton->SetLayout("parent.x + parent.w - 50", "parent.y + 2", "20", "20");
  myCloseButton = NewButton("close", "data/gui/close.gif");
  myCloseButton->SetLayout("parent.x + parent.w - 25", "parent.y + 2", "20", "20");
  myCloseButton->SetDraggable(false);
  myCloseButton->SetDoubleClickEnabled(false);
  myClientArea = new CWidget(this, {}, false, GetName() + ": client area", CSpritePtr());
  myClientArea->SetLayout("parent.x + 2", "parent.y + 22", "parent.w - 4", "parent.h - 24");
}

CButtonWidget* CWindowWidget::NewButton(const std::string& name, const std::string& file) {
  return new CButtonWidget(this, {}, false, GetName() + ": " + name, GetGfxHandler().Load(file));
}

void CWindowWidget::Connect() {
  using Move = void (CWindowWidget::*)(std::int32_t, std::int32_t);
  myTitleBar->GetClickSignal().Connect(this, &CWindowWidget::Raise);
  myTitleBar->GetDragSignal().Connect(this, static_cast<Move>(&CWindowWidget::MoveBy));
  myTitleBar->GetDoubleClickSignal().Connect(this, &CWindowWidget::ToggleMaximise);
  myMaximiseButton->GetClickSignal().Connect(this, &CWindowWidget::ToggleMaximise);
  myCloseButton->GetClickSignal().Connect(this, &CWindowWidget::Close);
}

void CWindowWidget::HandleEvent(IEvent& event) {
  if (event.GetType() == IEvent::kMouseButtonDown) {
    Raise();
  }
  CWidget::HandleEvent(event);
}

CWidget* CWindowWidget::GetClientArea() const { return myClientArea; }

void CWindowWidget::ToggleMaximise() {
  if (GetParent() == nullptr) {
    return;
  }
  myMaximised = !myMaximised;
  if (myMaximised) {
    Maximise();
  } else {
    Restore();
  }
  OnParentResized(GetParent()->GetRect());
}

void CWindowWidget::Maximise() {
  const CRect<int> parent = GetParent()->GetRect();
  mySavedRect = GetRect();
  myResizable = false;
  SetResizeMode(kScale);
  MoveTo(SPoint{parent.x, parent.y});
  Resize(SSize{parent.w, parent.h});
}

void CWindowWidget::Restore() {
  myResizable = true;
  SetResizeMode(kKeep);
  Resize(SSize{mySavedRect.w, mySavedRect.h});
  MoveTo(SPoint{mySavedRect.x, mySavedRect.y});
}

void CWindowWidget::OnMouseEvent(CMouseEvent& event) {
  switch (event.GetType()) {
    case IEvent::kMouseMove:
      return myDraggedEdges != 0 ? DragEdges(event.GetPosition())
                                 : ShowCursorFor(EdgesAt(event.GetPosition()), event.GetMouse());
    case IEvent::kMouseOut:
      return ShowCursorFor(myDraggedEdges, event.GetMouse());
    case IEvent::kMouseButtonDown:
      return StartResizing(event);
    case IEvent::kMouseButtonUp:
      return StopResizing(event);
    default:
      return;
  }
}

std::int32_t CWindowWidget::CursorOf(std::int32_t edges) {
  switch (edges) {
    case kLeft:
    case kRight:
      return kCursorResizeHorizontal;
    case kTop:
    case kBottom:
      return kCursorResizeVertical;
    case kLeft | kTop:
    case kRight | kBottom:
      return kCursorResizeDiagonal1;
    case kRight | kTop:
    case kLeft | kBottom:
      return kCursorResizeDiagonal2;
    default:
      return kCursorNone;
  }
}

std::int32_t CWindowWidget::EdgesAt(SPoint point) const {
  if (!myResizable || !GetRect().Contains(point.x, point.y)) {
    return 0;
  }
  const std::int32_t edges = StripsAt(point, kBorderWidth);
  return edges != 0 ? edges | StripsAt(point, kCornerWidth) : 0;
}

std::int32_t CWindowWidget::StripsAt(SPoint point, int width) const {
  const CRect<int>& rect = GetRect();
  return StripsOf({rect.x, rect.w}, point.x, width) | StripsOf({rect.y, rect.h}, point.y, width)
                                                          << 2;
}

// Away from the edges (0) the arrow comes back, if it was the window that took it away.
void CWindowWidget::ShowCursorFor(std::int32_t edges, IMouse* mouse) {
  if (edges != 0) {
    ChangeCursor(mouse, CursorOf(edges));
    myCursorChanged = true;
  } else if (myCursorChanged) {
    ChangeCursor(mouse, kCursorArrow);
    myCursorChanged = false;
  }
}

void CWindowWidget::StartResizing(const CMouseEvent& event) {
  const SPoint pointer = event.GetPosition();
  const std::int32_t edges = EdgesAt(pointer);
  if (edges == 0 || (event.GetButtons() & myResizeButtons) == 0) {
    return;
  }
  const CRect<int>& rect = GetRect();
  const SPoint nearCorner{rect.x, rect.y};
  const SPoint farCorner = nearCorner + SPoint{rect.w, rect.h};
  myDraggedEdges = edges;
  myGrabbedRect = rect;
  myPointerOffset = pointer - SPoint{(edges & kRight) != 0 ? farCorner.x : nearCorner.x,
                                     (edges & kBottom) != 0 ? farCorner.y : nearCorner.y};
  AddMouseCapture(this);
}

void CWindowWidget::StopResizing(const CMouseEvent& event) {
  if (myDraggedEdges == 0 || (event.GetButtons() & myResizeButtons) == 0) {
    return;
  }
  myDraggedEdges = 0;
  RemoveMouseCapture(this);
  ShowCursorFor(EdgesAt(event.GetPosition()), event.GetMouse());
  SetMouseOver(nullptr);  // whom the pointer is over now shows a cursor of its own again
}

// From the rectangle of the grab, not the last one: where the desktop has shifted the window, it
// would grow with every event, and an event may come twice.
void CWindowWidget::DragEdges(SPoint pointer) {
  const CRect<int>& old = myGrabbedRect;
  const SSpan x =
      Dragged({old.x, old.w}, myDraggedEdges, pointer.x, myPointerOffset.x, myMinimumWidth);
  const SSpan y =
      Dragged({old.y, old.h}, myDraggedEdges >> 2, pointer.y, myPointerOffset.y, myMinimumHeight);
  CRect<int> rect{ToInt(x.at), ToInt(y.at), ToInt(x.extent), ToInt(y.extent)};
  if (GetParent() != nullptr) {
    rect = GetParent()->FitChildRect(rect);
  }
  WidenTo(myMinimumWidth, rect.x, rect.w);
  WidenTo(myMinimumHeight, rect.y, rect.h);
  TakeRect(rect);
}

// The parent fits each step on its own. A window that is no larger than before and after meanwhile
// goes through unshifted.
void CWindowWidget::TakeRect(const CRect<int>& rect) {
  Resize(SSize{std::min(rect.w, GetRect().w), std::min(rect.h, GetRect().h)});
  MoveTo(SPoint{rect.x, rect.y});
  Resize(SSize{rect.w, rect.h});
}

}  // namespace vask::ui
