#include "kernel/tasktimedtasks.h"

#include <algorithm>
#include <utility>

#include "kernel/kernel.h"
#include "utils/timer/globaltimerimpl.h"
#include "utils/timer/timer.h"

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

bool CTaskTimedTasks::Start() { return !myTimedTasks.empty(); }

void CTaskTimedTasks::Update() {
  if (myRemovePending) {
    RemoveDeadTasks();
  }
  while (!myTimedTasks.empty()) {
    const auto [task, due] = myTimedTasks.front();
    if (task->IsDead() || !task->IsTimed()) {
      myTimedTasks.erase(myTimedTasks.begin());
      continue;
    }
    if (HasReached(due, GetGlobalTime())) {
      return;
    }
    task->Update();
    // The update may have paused, killed or deleted any task. A record with another time was made
    // anew meanwhile and has its next time already.
    const auto record = Find(task);
    if (record != myTimedTasks.end() && record->nextTime == due) {
      record->nextTime += IntervalOf(task);
      MoveBack(record);
    }
  }
}

void CTaskTimedTasks::Exit() {
  while (CTask* task = FindLive()) {
    KillTask(task);
  }
  myTimedTasks.clear();
  myPausedTasks.Clear();
}

CTask* CTaskTimedTasks::FindLive() const {
  for (const SRecord& record : myTimedTasks) {
    if (!record.task->IsDead()) {
      return record.task;
    }
  }
  for (CTask* task : myPausedTasks.Items()) {
    if (!task->IsDead()) {
      return task;
    }
  }
  return nullptr;
}

void CTaskTimedTasks::StartTask(CTask* task) {
  myTasksInHook.Append(task);
  const bool runs = task->Start();
  if (!HasReturned(task)) {
    return;
  }
  if (runs) {
    AddTask(task);
  } else {
    myPausedTasks.Append(task);
  }
}

bool CTaskTimedTasks::HasReturned(const CTask* task) {
  return myTasksInHook.Remove(task) && !task->IsDead();
}

void CTaskTimedTasks::AddTask(CTask* task) {
  CKernel* kernel = CKernel::PeekSingletonPtr();
  if (myTimedTasks.empty() && kernel != nullptr) {
    kernel->ResumeTask(this);
  }
  myTimedTasks.push_back({task, GetGlobalTime() + IntervalOf(task)});
  MoveForward(std::prev(myTimedTasks.end()));
}

void CTaskTimedTasks::KillTask(CTask* task) {
  myRemovePending = true;
  if (!task->IsDead()) {
    task->SetDead(true);
    task->Exit();
  }
}

void CTaskTimedTasks::PauseTask(CTask* task) {
  const auto record = Find(task);
  if (record == myTimedTasks.end() || task->IsDead()) {
    return;
  }
  myTimedTasks.erase(record);
  myTasksInHook.Append(task);
  task->Pause();
  if (HasReturned(task)) {
    myPausedTasks.Append(task);
  }
}

void CTaskTimedTasks::ResumeTask(CTask* task) {
  if (task->IsDead() || !myPausedTasks.Remove(task)) {
    return;
  }
  myTasksInHook.Append(task);
  task->Resume();
  if (HasReturned(task)) {
    AddTask(task);
  }
}

void CTaskTimedTasks::ForgetTask(CTask* task) {
  std::erase_if(myTimedTasks, [=](const SRecord& record) { return record.task == task; });
  for (CWalkList<CTask>* list : {&myPausedTasks, &myTasksInHook}) {
    while (list->Remove(task)) {
    }
  }
}

std::vector<CTaskTimedTasks::SRecord>::iterator CTaskTimedTasks::Find(const CTask* task) {
  return std::find_if(myTimedTasks.begin(), myTimedTasks.end(),
                      [=](const SRecord& record) { return record.task == task; });
}

// The two moves sort the one record that is out of its place. Times on a wrapping clock have no
// strict order over the whole range, which a sort of the library could not bear.
void CTaskTimedTasks::MoveBack(std::vector<SRecord>::iterator record) {
  for (auto next = std::next(record);
       next != myTimedTasks.end() && !HasReached(next->nextTime, record->nextTime);
       record = next++) {
    std::iter_swap(record, next);
  }
}

void CTaskTimedTasks::MoveForward(std::vector<SRecord>::iterator record) {
  while (record != myTimedTasks.begin()) {
    const auto previous = std::prev(record);
    if (HasReached(record->nextTime, previous->nextTime)) {
      return;
    }
    std::iter_swap(previous, record);
    record = previous;
  }
}

void CTaskTimedTasks::RemoveDeadTasks() {
  myRemovePending = false;
  std::erase_if(myTimedTasks, [](const SRecord& record) { return record.task->IsDead(); });
}

}  // namespace vask
