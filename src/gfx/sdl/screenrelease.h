#pragma once

namespace vask {

// While it lives, the program's window is not in full screen and grabs neither pointer nor
// keyboard, so that another window can be used; afterwards both are as before. No video mode is set
// and no resize reported: pointers to the screen's pixels stay valid.
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
