#include "kernel/tasktimedtasks.h"

#include "kernel/kernel.h"
#include "utils/timer/globaltimerimpl.h"
#include "utils/timer/timer.h"

#include <algorithm>

namespace vask {
namespace {

constexpr int kPriority = 100;
// Half the clock's range, 24 days: what lies farther ahead would count as overdue.
constexpr unsigned kLongestInterval = 0x7FFFFFFF;  // milliseconds

unsigned IntervalOf(const CTask* task) {
  return std::min(task->GetTimedInterval(), kLongestInterval);
}

}  // namespace

CTaskTimedTasks::CTaskTimedTasks() {
  SetName("TimedTasks");
  SetPriority(kPriority);
}

bool CTaskTimedTasks::Start() { return !myTimedTasks.IsEmpty(); }

void CTaskTimedTasks::Update() {
  if (myRemovePending) {
    RemoveDeadTasks();
  }
  while (CTask* task = myTimedTasks.Front()) {
    if (task->IsDead() || !task->IsTimed()) {
      myTimedTasks.Remove(task);
      continue;
    }
    const std::int64_t due = task->myDueTime;
    if (Now() <= due) {
      return;
    }
    task->Update();
    // The update may have paused, killed or deleted any task. One with another time was added anew
    // meanwhile and has its next time already.
    if (myTimedTasks.Contains(task) && task->myDueTime == due) {
      myTimedTasks.Remove(task);
      task->myDueTime += IntervalOf(task);
      myTimedTasks.Prepend(task);
    }
  }
}

void CTaskTimedTasks::Exit() {
  while (CTask* task = TakeFirstTask()) {
    KillTask(task);
  }
}

CTask* CTaskTimedTasks::TakeFirstTask() {
  CTask* first = myTimedTasks.IsEmpty() ? myPausedTasks.Front() : myTimedTasks.Front();
  myTimedTasks.Remove(first);
  myPausedTasks.Remove(first);
  return first;
}

std::int64_t CTaskTimedTasks::Now() {
  myNow += static_cast<std::int32_t>(GetGlobalTime() - static_cast<std::uint32_t>(myNow));
  return myNow;
}

void CTaskTimedTasks::StartTask(CTask* task) {
  bool runs = false;
  if (!myTasksInHook.Run(task, [&] { runs = task->Start(); })) {
    return;
  }
  if (runs) {
    AddTask(task);
  } else {
    myPausedTasks.Append(task);
  }
}

void CTaskTimedTasks::AddTask(CTask* task) {
  CKernel* kernel = CKernel::PeekSingletonPtr();
  if (myTimedTasks.IsEmpty() && kernel != nullptr) {
    kernel->ResumeTask(this);
  }
  myTimedTasks.Remove(task);  // its place goes by the time
  task->myDueTime = Now() + IntervalOf(task);
  myTimedTasks.Append(task);
}

void CTaskTimedTasks::KillTask(CTask* task) {
  myRemovePending = true;
  if (!task->IsDead()) {
    task->SetDead(true);
    task->Exit();
  }
}

void CTaskTimedTasks::PauseTask(CTask* task) {
  if (task->IsDead() || !myTimedTasks.Remove(task)) {
    return;
  }
  if (myTasksInHook.Run(task, [=] { task->Pause(); })) {
    myPausedTasks.Append(task);
  }
}

void CTaskTimedTasks::ResumeTask(CTask* task) {
  if (task->IsDead() || !myPausedTasks.Remove(task)) {
    return;
  }
  if (myTasksInHook.Run(task, [=] { task->Resume(); })) {
    AddTask(task);
  }
}

void CTaskTimedTasks::ForgetTask(CTask* task) {
  myTimedTasks.Remove(task);
  myPausedTasks.Remove(task);
  myTasksInHook.Forget(task);
}

void CTaskTimedTasks::RemoveDeadTasks() {
  myRemovePending = false;
  myTimedTasks.RemoveIf([](const CTask* task) { return task->IsDead(); });
}

}  // namespace vask
