#include "kernel/taskfactory.h"

#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "utils/log/log.h"

#include <utility>

namespace vask {

CTaskFactory::CTaskFactory() {
  Kernel();
  CApplicationFactory::GetSingletonPtr();
  Log();
}

CTaskFactory::~CTaskFactory() {
  // Moved out first: a task that looks another up while it dies finds nothing.
  const auto tasks = std::move(myTasks);
  const auto nameless = std::move(myNamelessTasks);
}

bool CTaskFactory::StartTask(const std::string& type, const std::string& name, int priority,
                             CConsoleParams* params) {
  std::unique_ptr<CTask> task(myPlugFactory.GetNew(type));
  if (task == nullptr) {
    Log().Print("[ERROR] Trying to start a task %s that doesn't exist.\n", type.c_str());
    return false;
  }
  CTask* started = task.get();
  started->SetPriority(priority);
  started->SetName(name);
  if (GetTask(name) == nullptr) {
    myTasks.emplace(name, std::move(task));
  } else {
    myNamelessTasks.push_back(std::move(task));
  }
  Kernel().StartTask(started, params);
  return true;
}

void CTaskFactory::PauseTask(const std::string& name) {
  if (CTask* task = GetTask(name)) {
    Kernel().PauseTask(task);
    return;
  }
  Log().Print("[ERROR] Trying to pause a task %s that doesn't exist.\n", name.c_str());
}

void CTaskFactory::ResumeTask(const std::string& name) {
  if (CTask* task = GetTask(name)) {
    Kernel().ResumeTask(task);
    return;
  }
  Log().Print("[ERROR] Trying to resume a task %s that doesn't exist.\n", name.c_str());
}

void CTaskFactory::StopTask(const std::string& name) {
  // Without a line end: the next text of the log follows on the same line.
  Log().Write("CTaskFactory::StopTask() called");
  if (CTask* task = GetTask(name)) {
    Kernel().KillTask(task);
    return;
  }
  Log().Print("[ERROR] Trying to stop a task %s that doesn't exist.\n", name.c_str());
}

bool CTaskFactory::SendCommand(const std::string& name, const std::string& line) {
  if (CTask* task = GetTask(name)) {
    return task->ExecuteCommand(line);
  }
  Log().Print("[ERROR] Sorry the namespace or task %s doesn't exist.\n", name.c_str());
  return false;
}

CTask* CTaskFactory::GetTask(const std::string& name) const {
  const auto found = myTasks.find(name);
  return found == myTasks.end() ? nullptr : found->second.get();
}

std::vector<std::string> CTaskFactory::GetTaskNames() const {
  std::vector<std::string> names;
  for (const auto& [name, task] : myTasks) {
    if (!task->IsDead()) {
      names.push_back(name);
    }
  }
  return names;
}

CKernel& CTaskFactory::Kernel() {
  myKernel = CKernel::GetSingletonPtr();
  return *myKernel;
}

CLog& CTaskFactory::Log() {
  myLog = CLog::GetSingletonPtr();
  return *myLog;
}

}  // namespace vask
