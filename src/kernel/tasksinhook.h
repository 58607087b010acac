#pragma once

#include "designpatterns/walklist.h"

namespace vask {

// The tasks that are in their Start, Pause or Resume and so in no other list. A hook may kill,
// delete or move its own task, so nothing of the task may be touched after the hook unless it is
// still found here.
template <typename Task>
class CTasksInHook {
 public:
  // Calls the hook; whether the task is alive afterwards, and so wants a place in a list.
  template <typename Hook>
  bool Run(Task* task, Hook hook) {
    myTasks.Append(task);
    hook();
    return myTasks.Remove(task) && !task->IsDead();
  }

  // For a task that is being destroyed; it may be in several hooks, one within the other.
  void Forget(const Task* task) {
    while (myTasks.Remove(task)) {
    }
  }

 private:
  CWalkList<Task> myTasks;
};

}  // namespace vask
