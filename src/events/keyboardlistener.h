#pragma once

namespace vask {

// Receives key events. Key codes are SDL 1.2 key symbols.
class IKeyboardListener {
 public:
  // Removes the listener from the event bridge; defined in eventbridge.cpp.
  virtual ~IKeyboardListener();
  virtual void OnKeyDown(int key) = 0;
  virtual void OnKeyUp(int key) = 0;
  // The character of the key event that is being delivered; 0 for none.
  virtual void SetCharacter(unsigned char character) { myCharacter = character; }
  virtual unsigned char GetCharacter() { return myCharacter; }

 private:
  unsigned char myCharacter = 0;
};

}  // namespace vask
