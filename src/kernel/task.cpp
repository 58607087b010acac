#include "kernel/task.h"

#include "kernel/kernel.h"

namespace vask {

CTask::~CTask() {
  if (CKernel* kernel = CKernel::PeekSingletonPtr()) {
    kernel->KillTask(this);
    kernel->ForgetTask(this);
  }
}

bool CTask::IsLessThan(const CTask* other) const {
  return myTimedInterval != 0 ? myTimedInterval < other->myTimedInterval
                              : myPriority < other->myPriority;
}

bool CTask::Start(CConsoleParams*) { return Start(); }
bool CTask::Start() { return true; }
void CTask::Exit() {}
void CTask::Pause() {}
void CTask::Resume() {}
void CTask::SetPriority(int priority) { myPriority = priority; }
int CTask::GetPriority() const { return myPriority; }
bool CTask::IsDead() const { return myDead; }
void CTask::SetDead(bool dead) { myDead = dead; }
std::string CTask::GetName() const { return myName; }
void CTask::SetName(const std::string& name) { myName = name; }
bool CTask::ExecuteCommand(const std::string&) { return false; }
bool CTask::IsTimed() const { return myTimedInterval != 0; }
void CTask::SetTimedInterval(unsigned milliseconds) { myTimedInterval = milliseconds; }
unsigned CTask::GetTimedInterval() const { return myTimedInterval; }
bool CTask::PauseOnFocusLost() const { return false; }

}  // namespace vask
