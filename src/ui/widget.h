#pragma once

#include "designpatterns/walklist.h"
#include "gfx/sprite/sprite.h"
#include "ui/event.h"
#include "ui/eventbase.h"
#include "ui/geometry.h"
#include "ui/layout.h"
#include "ui/widgetdepth.h"
#include "utils/rect.h"
#include "utils/signalslot/signaltarget.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vask::ui {

// A rectangle of the screen in the user interface: it has a parent and children, which move with
// it, and it gets events. It draws nothing; its sprite, if it has one, is moved, sized and ordered
// along with it. Its rectangle follows the parent's by a layout, if it has one, and by its resize
// mode otherwise. Its parent owns it; a widget without a parent belongs to its creator.
//
//     auto* view = new CWidget(window, {0, 0, 10, 10}, true, "view", CSpritePtr());
//     view->SetLayout("parent.x + 2", "parent.y + 22", "parent.w - 4", "parent.h - 24");
class CWidget : public IEventBase, public css::CSignalTarget {
 public:
  // How a widget without a layout follows its parent's size.
  enum EResizeMode : std::int32_t {
    kKeep = 0,        // place and size stay, as far as they fit
    kScale = 1,       // both scale
    kKeepCentre = 2,  // the centre scales, the size stays
  };

  CWidget();
  // The widget belongs to the parent, unless that is null, and becomes its frontmost child. The
  // corner is relative to the parent's when `relative`, else to the screen's.
  CWidget(CWidget* parent, const CRect<int>& rect, bool relative, const std::string& name,
          const CSpritePtr& sprite);
  // Deletes the children.
  ~CWidget() override;

  void HandleEvent(IEvent& event) override;
  void OnMouseEvent(CMouseEvent& event) override;
  void OnKeyboardEvent(CKeyboardEvent& event) override;
  void OnFocusEvent(CFocusEvent& event) override;
  virtual void MoveTo(SPoint point);
  // Moves the widget as far as its parent allows, and all children by the same distance.
  virtual void MoveBy(SPoint delta);
  virtual void Resize(SSize size);
  virtual std::int32_t GetResizeMode() const;
  // Events of ignored types go to the widget behind this one.
  virtual bool IgnoresEvent(std::int32_t type) const;
  virtual void SetIgnoreEvent(std::int32_t type, bool on);
  // The rectangle that a child gets when it wants this one.
  virtual CRect<int> FitChildRect(const CRect<int>& rect) const;
  // Takes the rectangle as it is and leaves the children where they are.
  virtual void SetRect(const CRect<int>& rect);
  virtual void OnRectChanged();
  virtual void OnDepthChanged();
  // The parent's size has changed; `oldParentRect` is what it was before.
  virtual void OnParentResized(const CRect<int>& oldParentRect);

  const CRect<int>& GetRect() const { return myRect; }
  // The corner relative to the parent's.
  CRect<int> GetRelativeRect() const;
  // Null for a root.
  CWidget* GetParent() const { return myParent; }
  const std::string& GetName() const { return myName; }
  // From front to back.
  const std::vector<CWidget*>& GetChildren() const { return myChildren.Items(); }
  // Takes the child over, from its old parent too, and puts it in front. Null, the widget itself
  // and its ancestors are ignored.
  void AddChild(CWidget* child);
  // The child then belongs to the caller. What is no child is ignored.
  void RemoveChild(CWidget* child);
  // Puts the widget in front of its siblings.
  static void RaiseToTop(CWidget* widget);
  // Sets the rectangle, now and whenever the parent's size changes; four plain numbers set it only
  // now. Children are not told, so call it before there are any.
  void SetLayout(const std::string& x, const std::string& y, const std::string& width,
                 const std::string& height);
  void MoveBy(std::int32_t dx, std::int32_t dy) { MoveBy(SPoint{dx, dy}); }
  void Resize(std::int32_t width, std::int32_t height) { Resize(SSize{width, height}); }
  void MoveTo(std::int32_t x, std::int32_t y) { MoveTo(SPoint{x, y}); }

  void SetResizeMode(std::int32_t mode) { myResizeMode = mode; }
  // The sprite takes the widget's place, size and depth.
  void SetSprite(const CSpritePtr& sprite);
  const CSpritePtr& GetSprite() const { return mySprite; }
  std::int32_t GetDepth() const { return myDepth->GetDepth(); }

 private:
  friend class CWidgetDepth;
  class CHitWalk;

  void RouteMouseEvent(CMouseEvent& event);
  void RouteFocusRequest(CFocusEvent& event);
  void ReceiveMouseEvent(CMouseEvent& event);
  void TakeFocus(CFocusEvent& event);
  void FollowLayout();
  void ScaleWithParent(double sx, double sy);
  void KeepCentre(double sx, double sy);
  void FitIntoParent();
  CRect<int> EvaluateLayout() const;
  SPoint Position() const { return {myRect.x, myRect.y}; }
  SSize Size() const { return {myRect.w, myRect.h}; }

  std::int32_t myResizeMode = kScale;
  CRect<int> myRect;              // in pixels of the screen
  CWidget* myParent = nullptr;    // not owned
  CWalkList<CWidget> myChildren;  // owned
  std::string myName;
  std::vector<std::int32_t> myIgnoredEvents;
  CSpritePtr mySprite;                // may be empty
  std::unique_ptr<SLayout> myLayout;  // null when the rectangle was given as numbers
  std::unique_ptr<CWidgetDepth> myDepth;
};

}  // namespace vask::ui
