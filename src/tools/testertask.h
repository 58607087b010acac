#pragma once

#include "kernel/task.h"

namespace vask::tester {

// Runs the program's self-tests once when it is started (task type "unittest"); the report stands
// in the log. Starting another one runs them again.
//
//   starttask( unittest, selftest )
class CTesterTask : public CTask {
 public:
  using CTask::Start;
  // False: there is nothing to update.
  bool Start() override;
  void Update() override {}
};

}  // namespace vask::tester
