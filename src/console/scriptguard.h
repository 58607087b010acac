#pragma once

#include <string>

namespace vask {

// Marks a script file as being executed for as long as it lives. Scripts load scripts, so one that
// loads itself, also through others or under another name, would never end.
class CScriptGuard {
 public:
  explicit CScriptGuard(const std::string& fileName);
  ~CScriptGuard();
  CScriptGuard(const CScriptGuard&) = delete;
  CScriptGuard& operator=(const CScriptGuard&) = delete;

  // False when the file is being executed already, or too many are; the log then has one error.
  bool MayExecute() const { return myEntered; }

 private:
  bool myEntered = false;
};

}  // namespace vask
