#pragma once

#include <cstdint>

namespace vask::ui {

class CWidget;

// The place of a widget in the drawing order. A widget and all below it take a range of depths in
// one piece, from its own depth downwards: children lie in front of their parent, the first of a
// list in front of the others.
class CWidgetDepth {
 public:
  explicit CWidgetDepth(CWidget& widget) : myWidget(&widget) {}
  CWidgetDepth(const CWidgetDepth&) = delete;
  CWidgetDepth& operator=(const CWidgetDepth&) = delete;

  std::int32_t GetDepth() const { return myDepth; }
  // Gives the children depths in the order of their list, then does so at each ancestor, whose
  // other children may have to make room. Widgets hear of it (OnDepthChanged), and must not change
  // the tree meanwhile.
  void Renumber();

 private:
  void NumberChildren();
  void Shift(std::int32_t delta);

  std::int32_t myDepth = 0;
  std::int32_t mySpan = 1;  // how many depths the widget and those below it take
  CWidget* myWidget;
};

}  // namespace vask::ui
