#include "platform/nativeform.h"

#include "platform/buttoncontrol.h"
#include "platform/editcontrol.h"
#include "platform/staticcontrol.h"

#include <algorithm>
#include <utility>

namespace vask::platform {

namespace {

std::unique_ptr<CNativeControl> NewControl(EControlKind kind, std::string text, const SBox& box,
                                           int id, unsigned style) {
  switch (kind) {
    case EControlKind::kEdit:
      return std::make_unique<CEditControl>(std::move(text), box, id, style);
    case EControlKind::kButton:
      return std::make_unique<CButtonControl>(std::move(text), box, id, style);
    default:
      return std::make_unique<CStaticControl>(std::move(text), box, id, style);
  }
}

}  // namespace

std::size_t CNativeForm::Add(EControlKind kind, std::string text, const SBox& box, int id,
                             unsigned style) {
  myControls.push_back(NewControl(kind, std::move(text), box, id, style));
  return myControls.size() - 1;
}

void CNativeForm::Draw(INativeCanvas& canvas) const {
  for (const auto& control : myControls) {
    const bool isPressed = control.get() == myPressed && myPointerIsOnPressed;
    control->Draw(canvas, control.get() == myFocus, isPressed);
  }
}

CNativeControl* CNativeForm::ControlAt(int x, int y) const {
  // The last one is in front.
  const auto hit = std::find_if(myControls.rbegin(), myControls.rend(), [=](const auto& control) {
    return control->GetBox().Contains(x, y);
  });
  return hit == myControls.rend() ? nullptr : hit->get();
}

void CNativeForm::Press(int x, int y, const INativeFont& font) {
  myPressed = ControlAt(x, y);
  myPointerIsOnPressed = true;
  if (myPressed == nullptr) {
    return;
  }
  if (myPressed->TakesFocus()) {
    myFocus = myPressed;
  }
  myPressed->OnPress(x, y, font);
}

void CNativeForm::MovePointer(int x, int y, const INativeFont& font) {
  if (myPressed == nullptr) {
    return;
  }
  myPointerIsOnPressed = myPressed->GetBox().Contains(x, y);
  myPressed->OnDrag(x, y, font);
}

void CNativeForm::Wheel(int x, int y, int lines, const INativeFont& font) {
  if (CNativeControl* control = ControlAt(x, y)) {
    control->OnWheel(lines, font);
  }
}

std::optional<int> CNativeForm::Release() {
  const CNativeControl* released = std::exchange(myPressed, nullptr);
  if (released == nullptr || !myPointerIsOnPressed || !released->IsButton()) {
    return std::nullopt;
  }
  return released->GetId();
}

void CNativeForm::FocusNext(bool backwards) {
  const std::size_t count = myControls.size();
  const auto current =
      std::ranges::find(myControls, myFocus, &std::unique_ptr<CNativeControl>::get);
  const auto start = static_cast<std::size_t>(current - myControls.begin());
  // One more place than controls, where none has the focus.
  const std::size_t places = count + 1;
  for (std::size_t i = 1; i < places; ++i) {
    const std::size_t place = (start + (backwards ? places - i : i)) % places;
    if (place < count && myControls[place]->TakesFocus()) {
      myFocus = myControls[place].get();
      return;
    }
  }
}

std::optional<int> CNativeForm::Key(const SNativeKey& key, const INativeFont& font) {
  if (myFocus == nullptr || !myFocus->OnKey(key, font)) {
    return std::nullopt;
  }
  return myFocus->GetId();
}

}  // namespace vask::platform
