#pragma once

namespace vask {

// Hears of keys. Key codes are SDL 1.2 key symbols.
class IKeyboardListener {
 public:
  // Leaves the event bridge (defined with it).
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
