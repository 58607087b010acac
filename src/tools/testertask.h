#pragma once

#include "kernel/task.h"

namespace vask::tester {

// Runs the program's self-tests once when it is started (task type "unittest"), as by the console
// line "starttask(unittest, selftest)"; the report is in the log. Starting another one runs them
// again.
class CTesterTask : public CTask {
 public:
  using CTask::Start;
  // False: there is nothing to update.
  bool Start() override;
  void Update() override {}
};

}  // namespace vask::tester
