#pragma once

#include "designpatterns/walkset.h"
#include "kernel/task.h"
#include "kernel/tasksinhook.h"

#include <cstdint>

namespace vask {

// Updates the tasks that asked for a fixed interval, at that interval of the global clock, catching
// up when frames are slow. The kernel's own task: it waits, paused, until the first timed task
// comes. Does not own the tasks.
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
  // Nothing for tasks that are not held here.
  void PauseTask(CTask* task);
  void ResumeTask(CTask* task);
  // Takes a task that is being destroyed out of both lists.
  void ForgetTask(CTask* task);

 private:
  struct SDueEarlier {
    bool operator()(const CTask* a, const CTask* b) const { return a->myDueTime < b->myDueTime; }
  };

  // Takes the first of all out of its list; null when there is none.
  CTask* TakeFirstTask();
  // The global clock in milliseconds, carried on over its wraps: times on a wrapping clock have no
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
