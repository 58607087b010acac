#pragma once

#include "ui/geometry.h"

#include <cstdint>

namespace vask::ui {

class IMouse;

// Something that happens to a widget. Its maker can look afterwards whether it was handled.
class IEvent {
 public:
  enum EType : std::int32_t {
    kMouseMove = 1,
    kMouseOut = 2,
    kMouseOver = 3,
    kMouseButtonDown = 4,
    kMouseButtonUp = 5,
    kKeyDown = 6,
    kKeyUp = 7,
    kFocusGained = 8,  // also the request for it, which is routed through the tree
    kFocusLost = 9,
  };

  virtual ~IEvent() = default;

  std::int32_t GetType() const { return myType; }
  // Whether it is routed to the widget under its position.
  bool IsRouted() const {
    return myType == kMouseMove || myType == kMouseButtonDown || myType == kMouseButtonUp;
  }
  bool IsHandled() const { return myHandled; }
  void SetHandled(bool handled) { myHandled = handled; }

 protected:
  explicit IEvent(std::int32_t type) : myType(type) {}
  IEvent(const IEvent&) = default;
  IEvent& operator=(const IEvent&) = default;

 private:
  std::int32_t myType;
  bool myHandled = false;
};

class CMouseEvent : public IEvent {
 public:
  // `buttons` is a mask of the event bridge's bits; a press or release holds its one button. The
  // mouse is not owned and may be null.
  CMouseEvent(std::int32_t type, SPoint position, std::int32_t buttons, IMouse* mouse)
      : IEvent(type), myPosition(position), myButtons(buttons), myMouse(mouse) {}
  // An event of another type that `cause` leads to, with the same data.
  CMouseEvent(std::int32_t type, const CMouseEvent& cause)
      : CMouseEvent(type, cause.myPosition, cause.myButtons, cause.myMouse) {}

  SPoint GetPosition() const { return myPosition; }
  std::int32_t GetButtons() const { return myButtons; }
  IMouse* GetMouse() const { return myMouse; }

 private:
  SPoint myPosition;
  std::int32_t myButtons;
  IMouse* myMouse;
};

class CKeyboardEvent : public IEvent {
 public:
  // The character is 0 for a key that types none.
  CKeyboardEvent(std::int32_t type, std::int32_t key, std::uint8_t character)
      : IEvent(type), myKey(key), myCharacter(character) {}

  std::int32_t GetKey() const { return myKey; }
  std::uint8_t GetCharacter() const { return myCharacter; }

 private:
  std::int32_t myKey;
  std::uint8_t myCharacter;
};

class CFocusEvent : public IEvent {
 public:
  // The position is that of the click that moves the focus; a loss of the focus needs none.
  explicit CFocusEvent(std::int32_t type, SPoint position = {})
      : IEvent(type), myPosition(position) {}

  SPoint GetPosition() const { return myPosition; }

 private:
  SPoint myPosition;
};

}  // namespace vask::ui
