#include "kernel/kernel.h"

#include "events/eventbridge.h"
#include "kernel/fakethread.h"
#include "kernel/task.h"
#include "platform/process.h"

#include <algorithm>

namespace vask {

void CKernel::CWindowFocusHandler::OnResize(int, int) {}

void CKernel::CWindowFocusHandler::OnFocus(bool gained) {
  myHasFocus = gained;
  if (gained) {
    myKernel->OnFocusGained();
  } else {
    myKernel->OnFocusLost();
  }
}

CKernel::CKernel() : myFocusHandler(std::make_unique<CWindowFocusHandler>(this)) {
  StartTask(&myTimedTasks, nullptr);
  CEventBridge::GetSingleton().AddWindowListener(myFocusHandler.get());
}

// The handler leaves the bridge before the lists that it uses are destroyed.
CKernel::~CKernel() { myFocusHandler.reset(); }

int CKernel::Run() {
  while (!myTasks.IsEmpty()) {
    RunFrame();
  }
  KillAllTasks();
  return 0;
}

void CKernel::Quit() { myQuit = true; }

void CKernel::RunFrame() {
  if (myRemovePending) {
    RemoveDeadTasks();
  }
  UpdateTasks();
  if (myQuit) {
    KillAllTasks();
  }
  if (myRunFakeThreads) {
    CFakeThread::RunThreads(0);
  }
  RestAfterFrame();
}

void CKernel::UpdateTasks() {
  ++myFrame;
  decltype(myTasks)::CWalk walk(myTasks);
  while (CTask* task = walk.Next()) {
    // A task that left the list and came back in this frame may be ahead of the walk again.
    if (!task->IsDead() && task->myUpdatedFrame != myFrame) {
      task->myUpdatedFrame = myFrame;
      task->Update();
    }
  }
}

void CKernel::RestAfterFrame() {
  if (!HasFocus()) {
    platform::YieldTimeSlice();
  }
  myFrameSleep = std::clamp(myFrameSleep, 0, kLongestFrameSleep);
  platform::SleepMilliseconds(static_cast<unsigned>(NextSleep()));
  mySleepLimit = kLongestFrameSleep;
}

void CKernel::SleepAtMost(int milliseconds) {
  mySleepLimit = std::clamp(milliseconds, 0, mySleepLimit);
}

int CKernel::NextSleep() const { return std::min(myFrameSleep, mySleepLimit); }

void CKernel::StartTask(CTask* task, CConsoleParams* params) {
  if (myKillsAll) {
    task->SetDead(true);  // an Exit that starts another task would keep the program from ending
    return;
  }
  if (task->IsTimed()) {
    myTimedTasks.StartTask(task);
    return;
  }
  task->myUpdatedFrame = 0;
  bool runs = false;
  const auto start = [&] { runs = params != nullptr ? task->Start(params) : task->Start(); };
  if (!myTasksInHook.Run(task, start)) {
    return;
  }
  if (runs) {
    InsertSorted(task);
  } else {
    myPausedTasks.Append(task);
  }
}

void CKernel::InsertSorted(CTask* task) { myTasks.Prepend(task); }

void CKernel::PauseTask(CTask* task) {
  // A task that was paused explicitly is not resumed by the focus.
  myFocusPausedTasks.Remove(task);
  ParkTask(task);
}

void CKernel::ParkTask(CTask* task) {
  if (task->IsDead()) {
    return;
  }
  if (!myTasks.Remove(task)) {
    myTimedTasks.PauseTask(task);
    return;
  }
  if (myTasksInHook.Run(task, [=] { task->Pause(); })) {
    myPausedTasks.Append(task);
  }
}

void CKernel::ResumeTask(CTask* task) {
  if (task->IsDead()) {
    return;
  }
  if (!myPausedTasks.Remove(task)) {
    myTimedTasks.ResumeTask(task);
    return;
  }
  if (myTasksInHook.Run(task, [=] { task->Resume(); })) {
    InsertSorted(task);
  }
}

void CKernel::KillTask(CTask* task) {
  myRemovePending = true;
  if (task->IsTimed()) {
    myTimedTasks.KillTask(task);
    return;
  }
  if (!task->IsDead()) {
    // Dead first: the Exit may kill the task again, or delete it.
    task->SetDead(true);
    task->Exit();
  }
}

void CKernel::ForgetTask(CTask* task) {
  myTasks.Remove(task);
  myPausedTasks.Remove(task);
  myFocusPausedTasks.Remove(task);
  myTasksInHook.Forget(task);
  myTimedTasks.ForgetTask(task);
}

void CKernel::KillAllTasks() {
  // Parked tasks are killed together with the running ones, by priority: the game, which may be
  // waiting for the focus, before the graphics it uses, the window after everything that draws.
  myKillsAll = true;
  while (CTask* task = TakeFirstTask()) {
    KillTask(task);
  }
  myTimedTasks.Exit();
  myKillsAll = false;
}

CTask* CKernel::TakeFirstTask() {
  CTask* running = myTasks.Front();
  CTask* parked = myPausedTasks.Front();
  const bool isParked =
      running == nullptr || (parked != nullptr && SEndsEarlier()(parked, running));
  CTask* first = isParked ? parked : running;
  myTasks.Remove(first);
  myPausedTasks.Remove(first);
  return first;
}

void CKernel::RemoveDeadTasks() {
  myRemovePending = false;
  const auto isDead = [](const CTask* task) { return task->IsDead(); };
  myTasks.RemoveIf(isDead);
  myPausedTasks.RemoveIf(isDead);
}

bool CKernel::HasFocus() const { return myFocusHandler->HasFocus(); }

void CKernel::OnFocusLost() {
  decltype(myTasks)::CWalk running(myTasks);
  while (CTask* task = running.Next()) {
    if (!task->IsDead() && task->PauseOnFocusLost()) {
      myFocusPausedTasks.Append(task);
    }
  }
  decltype(myFocusPausedTasks)::CWalk collected(myFocusPausedTasks);
  while (CTask* task = collected.Next()) {
    ParkTask(task);
  }
}

void CKernel::OnFocusGained() {
  // A Resume may lose the focus again; the tasks left then wait for the next gain.
  while (HasFocus() && !myFocusPausedTasks.IsEmpty()) {
    CTask* task = myFocusPausedTasks.Front();
    myFocusPausedTasks.Remove(task);
    ResumeTask(task);
  }
}

}  // namespace vask
