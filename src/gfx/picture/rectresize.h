#pragma once

#include "events/eventbridge.h"
#include "utils/rect.h"

namespace vask {

// A rectangle that follows the size of the window.
template <>
class CEventBridge::CEventResize<CRect<int>> : public CEventBridge::CEventResizeBase {
 public:
  explicit CEventResize(CRect<int>* owner) : myOwner(owner) {}
  void OnResize(int width, int height) override {
    myOwner->w = width;
    myOwner->h = height;
  }

 private:
  CRect<int>* myOwner;
};

}  // namespace vask
