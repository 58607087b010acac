#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walkset.h"
#include "events/windowlistener.h"
#include "kernel/tasksinhook.h"
#include "kernel/tasktimedtasks.h"

#include <cstdint>
#include <memory>

namespace vask {

class CConsoleParams;

// Owns the main loop: every frame it updates the live tasks of the run list in priority order, then
// runs the cooperative threads. It does not own the tasks. Tasks may start, pause, resume and kill
// tasks, themselves included, from any hook.
//
//     CKernel::GetSingletonPtr()->StartTask(&task, nullptr);
//     CKernel::GetSingletonPtr()->Run();  // until no task is left in the run list
class CKernel : public CStaticSingleton<CKernel> {
 public:
  class CWindowFocusHandler : public IWindowListener {
   public:
    explicit CWindowFocusHandler(CKernel* kernel) : myKernel(kernel) {}
    void OnResize(int width, int height) override;
    void OnFocus(bool gained) override;
    bool HasFocus() const { return myHasFocus; }

   private:
    bool myHasFocus = true;
    CKernel* myKernel;
  };

  CKernel();
  ~CKernel();
  CKernel(const CKernel&) = delete;
  CKernel& operator=(const CKernel&) = delete;

  // The main loop; returns 0 when the run list has become empty.
  int Run();
  // Lets the loop kill all tasks at the end of the frame.
  void Quit();
  // Puts a new task into the system: into the run list, or parked when its Start returns false.
  void StartTask(CTask* task, CConsoleParams* params);
  // Both do nothing for a task that is dead, or not in the list it would leave.
  void PauseTask(CTask* task);
  void ResumeTask(CTask* task);
  // Stops a task for good; its Exit is called once.
  void KillTask(CTask* task);
  // Removes a task that is being destroyed from every list.
  void ForgetTask(CTask* task);
  bool HasFocus() const;

  // Milliseconds slept at the end of each frame, 0 to 100, unless a task shortens it: the console
  // variable "kernel_frame_sleep".
  int& FrameSleep() { return myFrameSleep; }
  // Shortens the sleep at the end of this frame to so many milliseconds, as a task is due then.
  void SleepAtMost(int milliseconds);
  // How long the sleep at the end of this frame will be.
  int NextSleep() const;

 private:
  static constexpr int kLongestFrameSleep = 100;  // milliseconds

  struct SRunsEarlier {
    bool operator()(const CTask* a, const CTask* b) const { return a->IsLessThan(b); }
  };
  struct SEndsEarlier {
    bool operator()(const CTask* a, const CTask* b) const {
      return a->GetPriority() < b->GetPriority();
    }
  };

  void InsertSorted(CTask* task);
  void ParkTask(CTask* task);
  void KillAllTasks();
  // Removes the first of the running and parked tasks from its list; null when there is none.
  CTask* TakeFirstTask();
  void RemoveDeadTasks();
  void OnFocusLost();
  void OnFocusGained();
  void RunFrame();
  void UpdateTasks();
  void RestAfterFrame();

  CWalkSet<CTask, SRunsEarlier> myTasks;
  CWalkSet<CTask, SEndsEarlier> myPausedTasks;
  CWalkSet<CTask> myFocusPausedTasks;
  std::unique_ptr<CWindowFocusHandler> myFocusHandler;
  bool myRemovePending = false;
  bool myQuit = false;
  bool myRunFakeThreads = true;
  CTaskTimedTasks myTimedTasks;
  int myFrameSleep = 0;
  int mySleepLimit = kLongestFrameSleep;  // of this frame
  CTasksInHook<CTask> myTasksInHook;
  bool myKillsAll = false;
  std::uint64_t myFrame = 0;
};

}  // namespace vask
