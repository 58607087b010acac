#include "platform/nativecontrol.h"

#include <utility>

namespace vask::platform {

CNativeControl::CNativeControl(std::string text, const SBox& box, int id, unsigned style)
    : myText(std::move(text)), myBox(box), myId(id), myStyle(style) {}

void CNativeControl::OnPress(int /*x*/, int /*y*/, const INativeFont& /*font*/) {}

void CNativeControl::OnDrag(int /*x*/, int /*y*/, const INativeFont& /*font*/) {}

void CNativeControl::OnWheel(int /*lines*/, const INativeFont& /*font*/) {}

bool CNativeControl::OnKey(const SNativeKey& /*key*/, const INativeFont& /*font*/) { return false; }

}  // namespace vask::platform
