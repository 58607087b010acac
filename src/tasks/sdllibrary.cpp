#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "tasks/taskeventsdl.h"
#include "tasks/taskgfxsdl.h"
#include "tasks/taskwindowsdl.h"

namespace vask {

namespace {

void RegisterSdlTasks() {
  CTaskFactory::TypeFactory& types = CTaskFactory::GetSingletonPtr()->GetPlugFactory();
  types.Register<CTaskWindowSDL>("window");
  types.Register<CTaskEventSDL>("event");
  types.Register<CTaskGfxSDL>("gfx");
}

const CTaskLibraryRegistrar theRegistrar("sdl", &RegisterSdlTasks);

}  // namespace

}  // namespace vask
