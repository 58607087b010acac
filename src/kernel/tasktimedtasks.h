#pragma once

#include <vector>

#include "designpatterns/walklist.h"
#include "kernel/task.h"

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
  struct SRecord {
    CTask* task;
    unsigned nextTime;
  };

  std::vector<SRecord>::iterator Find(const CTask* task);
  CTask* FindLive() const;
  // See CKernel.
  bool HasReturned(const CTask* task);
  // Bring the record to its place in the order of next times: behind all that are due earlier, and
  // among equals on the side that it comes from.
  void MoveBack(std::vector<SRecord>::iterator record);
  void MoveForward(std::vector<SRecord>::iterator record);
  void RemoveDeadTasks();

  std::vector<SRecord> myTimedTasks;
  CWalkList<CTask> myPausedTasks;
  bool myRemovePending = false;
  CWalkList<CTask> myTasksInHook;
};

}  // namespace vask
