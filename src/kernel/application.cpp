#include "kernel/application.h"

#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "platform/process.h"

namespace vask {
namespace {

constexpr const char* kFrameSleepVariable = "kernel_frame_sleep";

}  // namespace

CApplication::CApplication() : myKernel(CKernel::GetSingletonPtr()), myScriptName("autoexec.txt") {
  platform::SurviveBrokenPipes();  // the standard streams may be such
  CConsole* console = CApplicationFactory::GetSingletonPtr()->GetConsole();
  console->RegisterVariable(kFrameSleepVariable, myKernel->FrameSleep());
  console->ExecuteFile(myScriptName);
}

CApplication::~CApplication() {
  if (CApplicationFactory* factory = CApplicationFactory::PeekSingletonPtr()) {
    factory->GetConsole()->RemoveVariable(kFrameSleepVariable);
  }
  CKernel::DeleteSingleton();
  CApplicationFactory::DeleteSingleton();
}

int CApplication::Run() { return myKernel->Run(); }

}  // namespace vask
