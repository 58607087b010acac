#pragma once

namespace vask {

// While it lives, the program's window neither fills the screen nor keeps the pointer and the
// keyboard to itself, so that another window can be used; afterwards both are as they were. No
// video mode is set and no resize is told: whoever holds the screen's pixels may go on using them.
class CScreenRelease {
 public:
  CScreenRelease();
  ~CScreenRelease();
  CScreenRelease(const CScreenRelease&) = delete;
  CScreenRelease& operator=(const CScreenRelease&) = delete;

 private:
  bool myGrabbed = false;
  bool myFilledScreen = false;
};

}  // namespace vask
