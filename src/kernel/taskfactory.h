#pragma once

#include "designpatterns/plugfactory.h"
#include "designpatterns/singleton.h"
#include "kernel/task.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vask {

class CKernel;
class CLog;

// Makes tasks by type name, owns them and finds them by their task name.
class CTaskFactory : public CStaticSingleton<CTaskFactory> {
 public:
  using TypeFactory = CPlugFactory<std::string, CTask>;

  // Makes the kernel, the application factory and the log, in this order.
  CTaskFactory();
  ~CTaskFactory();
  CTaskFactory(const CTaskFactory&) = delete;
  CTaskFactory& operator=(const CTaskFactory&) = delete;

  TypeFactory& GetPlugFactory() { return myPlugFactory; }

  // Makes a task of the type and starts it in the kernel. `params` may be null. True means that the
  // task was made, not that its Start returned true. When the name is taken the old task keeps it;
  // the new one runs, and is owned, without a name.
  bool StartTask(const std::string& type, const std::string& name, int priority,
                 CConsoleParams* params);
  void PauseTask(const std::string& name);
  void ResumeTask(const std::string& name);
  void StopTask(const std::string& name);
  // Passes the line to the task of that name; false when there is none or it takes no commands.
  bool SendCommand(const std::string& name, const std::string& line);
  // Null for an unknown name.
  CTask* GetTask(const std::string& name) const;
  // Of the tasks that can be reached by name and have not been stopped; sorted.
  std::vector<std::string> GetTaskNames() const;

 private:
  // The current ones: the application deletes both when it ends, and the factory, which outlives
  // it, serves the next application.
  CKernel& Kernel();
  CLog& Log();

  TypeFactory myPlugFactory;
  CKernel* myKernel = nullptr;
  CLog* myLog = nullptr;
  std::map<std::string, std::unique_ptr<CTask>> myTasks;
  std::vector<std::unique_ptr<CTask>> myNamelessTasks;
};

// Registers a task type from a static initialiser:
//
//     const CTaskTypeRegistrar<CTaskSample> registrar("sample");
template <typename T>
class CTaskTypeRegistrar {
 public:
  explicit CTaskTypeRegistrar(const char* type) {
    CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<T>(type);
  }
};

}  // namespace vask
