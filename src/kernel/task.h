#pragma once

#include <cstdint>
#include <string>

namespace vask {

class CConsoleParams;
class CKernel;

// The unit of work of the engine: an object with a name and a priority that the kernel updates once
// per frame, or, with an interval, every so many milliseconds. Tasks are made by type name through
// CTaskFactory. All hooks, and ExecuteCommand, must be safe before the start and after the exit.
class CTask {
 public:
  CTask() = default;
  CTask(const CTask&) = delete;
  CTask& operator=(const CTask&) = delete;

  // Kills the task and removes it from every list of the kernel.
  virtual ~CTask();
  // The order of updates: by priority, or by interval for a timed task.
  virtual bool IsLessThan(const CTask* other) const;
  // Called once, with the parameters that the start command did not use (may be null). True:
  // updated every frame. False: parked, the task exists and can be resumed but is not updated.
  virtual bool Start(CConsoleParams* params);
  virtual bool Start();
  virtual void Update() = 0;
  // Called once when the task is killed.
  virtual void Exit();
  virtual void Pause();
  virtual void Resume();
  // Lower values are updated first. For a task that is in a list of the kernel the change counts
  // from its next start, pause or resume; until then new tasks may be inserted on either side of
  // it.
  virtual void SetPriority(int priority);
  virtual int GetPriority() const;
  virtual bool IsDead() const;
  virtual void SetDead(bool dead);
  virtual std::string GetName() const;
  virtual void SetName(const std::string& name);
  // A line for the task's own console; false when the task has no commands.
  virtual bool ExecuteCommand(const std::string& line);
  virtual bool IsTimed() const;
  // Milliseconds between two updates; 0 for an ordinary task. Set before the start.
  virtual void SetTimedInterval(unsigned milliseconds);
  virtual unsigned GetTimedInterval() const;
  // Whether the kernel pauses the task while the window has no focus.
  virtual bool PauseOnFocusLost() const;

 private:
  std::string myName = "AnonymousTask";
  int myPriority = 10;
  bool myDead = false;
  unsigned myTimedInterval = 0;

  friend class CKernel;
  // The kernel's frame in which the task was last updated; 0 for none.
  std::uint64_t myUpdatedFrame = 0;
  friend class CTaskTimedTasks;
  // When it is to be updated next, on the runner's clock.
  std::int64_t myDueTime = 0;
};

}  // namespace vask
