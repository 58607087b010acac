#pragma once

#include <string>

namespace vask {

class CKernel;

// The program: executes the start-up script "autoexec.txt", runs the kernel until no task is left,
// and takes kernel, console and log down. Lives on the stack of the entry point.
class CApplication {
 public:
  CApplication();
  ~CApplication();
  CApplication(const CApplication&) = delete;
  CApplication& operator=(const CApplication&) = delete;

  // Returns 0.
  int Run();

 private:
  CKernel* myKernel;
  std::string myScriptName;
};

}  // namespace vask
