#pragma once

#include "designpatterns/walkset.h"
#include "kernel/task.h"
#include "kernel/tasksinhook.h"

#include <cstdint>

namespace vask {

// Updates the timed tasks, each at its interval of the global clock, and catches up when frames are
// slow. The kernel's own task: it is paused until the first timed task is started. Does not own the
// tasks.
class CTaskTimedTasks : public CTask {
 public:
  CTaskTimedTasks();

  using CTask::Start;
  // False while there is nothing to update.
  bool Start() override;
  void Update() override;
  void Exit() override;

  void StartTask(CTask* task);
  // The task is due a whole interval from now.
  void AddTask(CTask* task);
  void KillTask(CTask* task);
  // Both do nothing for a task that is not in the list it would leave.
  void PauseTask(CTask* task);
  void ResumeTask(CTask* task);
  // Removes a task that is being destroyed from every list.
  void ForgetTask(CTask* task);

 private:
  struct SDueEarlier {
    bool operator()(const CTask* a, const CTask* b) const { return a->myDueTime < b->myDueTime; }
  };

  // Removes the first task of all from its list; null when there is none.
  CTask* TakeFirstTask();
  // The global clock in milliseconds, extended over its wraps: times on a wrapping clock have no
  // order that a list could be sorted by.
  std::int64_t Now();
  void RemoveDeadTasks();

  CWalkSet<CTask, SDueEarlier> myTimedTasks;
  CWalkSet<CTask> myPausedTasks;
  bool myRemovePending = false;
  CTasksInHook<CTask> myTasksInHook;
  std::int64_t myNow = 0;
};

}  // namespace vask
