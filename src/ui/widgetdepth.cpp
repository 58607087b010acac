#include "ui/widgetdepth.h"

#include "ui/widget.h"

#include <vector>

namespace vask::ui {

void CWidgetDepth::Renumber() {
  for (CWidget* widget = myWidget; widget != nullptr; widget = widget->GetParent()) {
    widget->myDepth->NumberChildren();
  }
}

void CWidgetDepth::NumberChildren() {
  const std::vector<CWidget*>& children = myWidget->GetChildren();
  std::int32_t next = myDepth - 1;
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    CWidgetDepth& depth = *(*child)->myDepth;
    depth.Shift(next - depth.myDepth);
    next = depth.myDepth - depth.mySpan;
  }
  mySpan = myDepth - next;
}

void CWidgetDepth::Shift(std::int32_t delta) {
  if (delta == 0) {
    return;
  }
  myDepth += delta;
  myWidget->OnDepthChanged();
  for (CWidget* child : myWidget->GetChildren()) {
    child->myDepth->Shift(delta);
  }
}

}  // namespace vask::ui
