#include "kernel/taskfactory.h"

#include <utility>

#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "utils/log/log.h"

namespace vask {

CTaskFactory::CTaskFactory() {
  CKernel::GetSingletonPtr();
  CApplicationFactory::GetSingletonPtr();
  CLog::GetSingletonPtr();
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
    CLog::GetSingletonPtr()->Print("[ERROR] Trying to start a task %s that doesn't exist.\n",
                                   type.c_str());
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
  CKernel::GetSingletonPtr()->StartTask(started, params);
  return true;
}

void CTaskFactory::PauseTask(const std::string& name) {
  if (CTask* task = GetTask(name)) {
    CKernel::GetSingletonPtr()->PauseTask(task);
    return;
  }
  CLog::GetSingletonPtr()->Print("[ERROR] Trying to pause a task %s that doesn't exist.\n",
                                 name.c_str());
}

void CTaskFactory::ResumeTask(const std::string& name) {
  if (CTask* task = GetTask(name)) {
    CKernel::GetSingletonPtr()->ResumeTask(task);
    return;
  }
  CLog::GetSingletonPtr()->Print("[ERROR] Trying to resume a task %s that doesn't exist.\n",
                                 name.c_str());
}

void CTaskFactory::StopTask(const std::string& name) {
  // Without a line end: the next text of the log follows on the same line.
  CLog::GetSingletonPtr()->Write("CTaskFactory::StopTask() called");
  if (CTask* task = GetTask(name)) {
    CKernel::GetSingletonPtr()->KillTask(task);
    return;
  }
  CLog::GetSingletonPtr()->Print("[ERROR] Trying to stop a task %s that doesn't exist.\n",
                                 name.c_str());
}

bool CTaskFactory::SendCommand(const std::string& name, const std::string& line) {
  if (CTask* task = GetTask(name)) {
    return task->ExecuteCommand(line);
  }
  CLog::GetSingletonPtr()->Print("[ERROR] Sorry the namespace or task %s doesn't exist.\n",
                                 name.c_str());
  return false;
}

CTask* CTaskFactory::GetTask(const std::string& name) const {
  const auto found = myTasks.find(name);
  return found == myTasks.end() ? nullptr : found->second.get();
}

std::vector<std::string> CTaskFactory::GetTaskNames() const {
  std::vector<std::string> names;
  for (const auto& [name, task] : myTasks) {
    names.push_back(name);
  }
  return names;
}

}  // namespace vask
