#pragma once

#include <cstdint>

namespace vask::ui {

class CWidget;

// The place of a widget in the drawing order. A widget and its descendants take one contiguous
// range of depths, from its own depth downwards: children are in front of their parent, the first
// in the list in front of the others.
class CWidgetDepth {
 public:
  explicit CWidgetDepth(CWidget& widget) : myWidget(&widget) {}
  CWidgetDepth(const CWidgetDepth&) = delete;
  CWidgetDepth& operator=(const CWidgetDepth&) = delete;

  std::int32_t GetDepth() const { return myDepth; }
  // Gives the children depths in the order of their list, then does so at each ancestor, whose
  // other children may have to shift. Calls OnDepthChanged, which must not change the tree.
  void Renumber();

 private:
  void NumberChildren();
  void Shift(std::int32_t delta);

  std::int32_t myDepth = 0;
  std::int32_t mySpan = 1;  // how many depths the widget and those below it take
  CWidget* myWidget;
};

}  // namespace vask::ui
