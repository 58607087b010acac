#include "ui/widget.h"

#include "ui/gfxhandler.h"
#include "ui/receivers.h"
#include "ui/widgetfactory.h"
#include "utils/assert.h"

#include <algorithm>
#include <utility>

namespace vask::ui {
namespace {

const CWidgetRegistrar<CWidget> theRegistrar("CWidget");

// Tells whether a handler has deleted its own widget, which a walk over the children notices, or
// the desktop: its widgets stay in memory for a while, but must not get or send events any more.
class CLife {
 public:
  explicit CLife(CWalkList<CWidget>& children) : myWalk(children) {}
  bool GoesOn() const { return myWalk.IsListAlive() && GetReceiversGeneration() == myGeneration; }

 private:
  CWalkList<CWidget>::CWalk myWalk;
  unsigned myGeneration = GetReceiversGeneration();
};

// How much an extent has grown; a parent that had none scales nothing.
double Factor(int newExtent, int oldExtent) {
  return oldExtent == 0 ? 1.0 : 1.0 * newExtent / oldExtent;
}

}  // namespace

// The hit test: the children under a point from front to back, then the widget itself. Empty when
// the point is outside the widget.
class CWidget::CHitWalk {
 public:
  CHitWalk(CWidget& widget, SPoint point)
      : myWidget(&widget), myPoint(point), myChildren(widget.myChildren) {}

  // Null at the end, and when the widget has died.
  CWidget* Next() {
    if (myIsDone || !myChildren.IsListAlive() || !IsHit(*myWidget)) {
      return nullptr;
    }
    while (CWidget* child = myChildren.Next()) {
      if (IsHit(*child)) {
        return child;
      }
    }
    myIsDone = true;
    return myWidget;
  }

 private:
  bool IsHit(const CWidget& widget) const { return widget.myRect.Contains(myPoint.x, myPoint.y); }

  CWidget* myWidget;
  SPoint myPoint;
  CWalkList<CWidget>::CWalk myChildren;
  bool myIsDone = false;
};

CWidget::CWidget() : CWidget(nullptr, {}, false, {}, {}) {}

CWidget::CWidget(CWidget* parent, const CRect<int>& rect, bool relative, const std::string& name,
                 const CSpritePtr& sprite)
    : myName(name), mySprite(sprite) {
  CRect<int> fitted = rect;
  if (parent != nullptr) {
    if (relative) {
      const SPoint corner = SPoint{rect.x, rect.y} + parent->Position();
      fitted = {corner.x, corner.y, rect.w, rect.h};
    }
    fitted = parent->FitChildRect(fitted);
  }
  CWidget::SetRect(fitted);
  myDepth = std::make_unique<CWidgetDepth>(*this);
  if (parent != nullptr) {
    parent->AddChild(this);
  }
  // A plain widget never takes the focus.
  CWidget::SetIgnoreEvent(IEvent::kFocusLost, true);
  CWidget::SetIgnoreEvent(IEvent::kFocusGained, true);
}

CWidget::~CWidget() {
  DropConnections();
  if (GetFocus() == this) {
    SetFocus(nullptr);
  }
  if (GetMouseOver() == this) {
    SetMouseOver(nullptr);
  }
  while (!myChildren.IsEmpty()) {
    delete myChildren.Front();  // which leaves the list
  }
  if (myParent != nullptr) {
    myParent->RemoveChild(this);
  }
}

void CWidget::HandleEvent(IEvent& event) {
  if (event.IsRouted()) {
    if (auto* mouseEvent = dynamic_cast<CMouseEvent*>(&event)) {
      RouteMouseEvent(*mouseEvent);
    }
  } else if (event.GetType() == IEvent::kFocusGained) {
    if (auto* focusEvent = dynamic_cast<CFocusEvent*>(&event)) {
      RouteFocusRequest(*focusEvent);
    }
  }
}

void CWidget::RouteMouseEvent(CMouseEvent& event) {
  CHitWalk walk(*this, event.GetPosition());
  CWidget* candidate = walk.Next();
  while (candidate != nullptr && candidate->IgnoresEvent(event.GetType())) {
    candidate = walk.Next();
  }
  if (candidate == this) {
    ReceiveMouseEvent(event);
  } else if (candidate != nullptr) {
    candidate->HandleEvent(event);
  }
}

void CWidget::ReceiveMouseEvent(CMouseEvent& event) {
  const CLife life(myChildren);
  CWidget* left = GetMouseOver();
  if (left != this) {
    if (left != nullptr && !left->IgnoresEvent(IEvent::kMouseOut)) {
      CMouseEvent out(IEvent::kMouseOut, event);
      left->OnMouseEvent(out);
    }
    if (life.GoesOn() && !IgnoresEvent(IEvent::kMouseOver)) {
      CMouseEvent over(IEvent::kMouseOver, event);
      OnMouseEvent(over);
    }
    if (!life.GoesOn()) {
      return;
    }
    SetMouseOver(this);
  }
  OnMouseEvent(event);
}

// A candidate that takes no focus itself passes the request on to its children; this widget's own
// children have had it when its own turn comes.
void CWidget::RouteFocusRequest(CFocusEvent& event) {
  CHitWalk walk(*this, event.GetPosition());
  while (CWidget* candidate = walk.Next()) {
    if (candidate == GetFocus()) {
      event.SetHandled(true);
    } else if (!candidate->IgnoresEvent(IEvent::kFocusGained)) {
      candidate->TakeFocus(event);
    } else if (candidate != this) {
      candidate->HandleEvent(event);
    }
    if (event.IsHandled()) {
      return;
    }
  }
}

void CWidget::TakeFocus(CFocusEvent& event) {
  const CLife life(myChildren);
  CWidget* loser = GetFocus();
  if (loser != nullptr && !loser->IgnoresEvent(IEvent::kFocusLost)) {
    CFocusEvent lost(IEvent::kFocusLost);
    loser->OnFocusEvent(lost);
  }
  if (life.GoesOn()) {
    OnFocusEvent(event);
  }
  if (life.GoesOn()) {
    SetFocus(this);
  }
  event.SetHandled(true);
}

void CWidget::OnMouseEvent(CMouseEvent&) {}

void CWidget::OnKeyboardEvent(CKeyboardEvent&) {}

void CWidget::OnFocusEvent(CFocusEvent&) {}

void CWidget::MoveTo(SPoint point) { MoveBy(point - Position()); }

void CWidget::MoveBy(SPoint delta) {
  if (delta == SPoint{}) {
    return;
  }
  const SPoint target = Position() + delta;
  CRect<int> candidate{target.x, target.y, myRect.w, myRect.h};
  if (myParent != nullptr) {
    candidate = myParent->FitChildRect(candidate);
  }
  const SPoint moved = SPoint{candidate.x, candidate.y} - Position();
  if (moved == SPoint{}) {
    return;
  }
  SetRect(candidate);
  CWalkList<CWidget>::CWalk walk(myChildren);
  while (CWidget* child = walk.Next()) {
    child->MoveBy(moved);
  }
}

void CWidget::Resize(SSize size) {
  if (size == Size()) {
    return;
  }
  CRect<int> candidate{myRect.x, myRect.y, size.w, size.h};
  if (myParent != nullptr) {
    candidate = myParent->FitChildRect(candidate);
  }
  if (SSize{candidate.w, candidate.h} == Size()) {
    return;
  }
  const CRect<int> old = myRect;
  SetRect(candidate);
  CWalkList<CWidget>::CWalk walk(myChildren);
  while (CWidget* child = walk.Next()) {
    child->OnParentResized(old);
  }
}

std::int32_t CWidget::GetResizeMode() const { return myResizeMode; }

bool CWidget::IgnoresEvent(std::int32_t type) const {
  return std::find(myIgnoredEvents.begin(), myIgnoredEvents.end(), type) != myIgnoredEvents.end();
}

void CWidget::SetIgnoreEvent(std::int32_t type, bool on) {
  std::erase(myIgnoredEvents, type);
  if (on) {
    myIgnoredEvents.push_back(type);
  }
}

CRect<int> CWidget::FitChildRect(const CRect<int>& rect) const { return rect; }

void CWidget::SetRect(const CRect<int>& rect) {
  myRect = rect;
  OnRectChanged();
}

void CWidget::OnRectChanged() {
  GetGfxHandler().SetPosition(mySprite, myRect.x, myRect.y);
  GetGfxHandler().SetSize(mySprite, myRect.w, myRect.h);
}

void CWidget::OnDepthChanged() { GetGfxHandler().SetDepth(mySprite, GetDepth()); }

void CWidget::OnParentResized(const CRect<int>& oldParentRect) {
  if (myParent == nullptr) {
    return;
  }
  if (myLayout != nullptr) {
    FollowLayout();
    return;
  }
  const double sx = Factor(myParent->myRect.w, oldParentRect.w);
  const double sy = Factor(myParent->myRect.h, oldParentRect.h);
  switch (GetResizeMode()) {
    case kScale:
      return ScaleWithParent(sx, sy);
    case kKeepCentre:
      return KeepCentre(sx, sy);
    case kKeep:
      return FitIntoParent();
    default:
      return;
  }
}

void CWidget::FollowLayout() {
  const CRect<int> rect = EvaluateLayout();
  MoveBy(SPoint{rect.x, rect.y} - Position());
  Resize(rect.w, rect.h);
}

void CWidget::ScaleWithParent(double sx, double sy) {
  const SSize size{ToPixels(myRect.w * sx), ToPixels(myRect.h * sy)};
  const SPoint offset = Position() - myParent->Position();
  MoveBy(SPoint{ToPixels(offset.x * sx), ToPixels(offset.y * sy)} - offset);
  Resize(size);
}

void CWidget::KeepCentre(double sx, double sy) {
  const SPoint half{myRect.w / 2, myRect.h / 2};
  const SPoint centre = Position() + half;
  MoveBy(SPoint{ToPixels(centre.x * sx - centre.x), ToPixels(centre.y * sy - centre.y)});
}

void CWidget::FitIntoParent() {
  const CRect<int> fitted = myParent->FitChildRect(myRect);
  MoveBy(SPoint{fitted.x, fitted.y} - Position());
  Resize(fitted.w, fitted.h);
}

CRect<int> CWidget::GetRelativeRect() const {
  if (myParent == nullptr) {
    return myRect;
  }
  const SPoint offset = Position() - myParent->Position();
  return {offset.x, offset.y, myRect.w, myRect.h};
}

void CWidget::AddChild(CWidget* child) {
  if (child == nullptr) {
    return;
  }
  for (const CWidget* outer = this; outer != nullptr; outer = outer->myParent) {
    VASK_ASSERT(outer != child, "A widget would lie in itself");
    if (outer == child) {
      return;
    }
  }
  if (child->myParent != nullptr) {
    child->myParent->RemoveChild(child);
  }
  child->myParent = this;
  myChildren.Insert(0, child);
  myDepth->Renumber();
}

void CWidget::RemoveChild(CWidget* child) {
  if (myChildren.Remove(child)) {
    child->myParent = nullptr;
    myDepth->Renumber();
  }
}

void CWidget::RaiseToTop(CWidget* widget) {
  if (widget == nullptr || widget->myParent == nullptr) {
    return;
  }
  CWidget& parent = *widget->myParent;
  parent.myChildren.Remove(widget);
  parent.myChildren.Insert(0, widget);
  parent.myDepth->Renumber();
}

void CWidget::SetLayout(const std::string& x, const std::string& y, const std::string& width,
                        const std::string& height) {
  SLayout layout{x, y, width, height};
  if (layout.IsPlain()) {
    myLayout.reset();
    SetRect(layout.ToRect());
    return;
  }
  myLayout = std::make_unique<SLayout>(std::move(layout));
  SetRect(EvaluateLayout());
}

CRect<int> CWidget::EvaluateLayout() const {
  return myLayout->Evaluate(myRect, myParent != nullptr ? &myParent->myRect : nullptr);
}

void CWidget::SetSprite(const CSpritePtr& sprite) {
  mySprite = sprite;
  OnRectChanged();
  OnDepthChanged();
}

}  // namespace vask::ui
