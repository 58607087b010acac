#include "tools/testertask.h"

#include "kernel/taskfactory.h"
#include "tools/tester.h"

namespace vask::tester {

namespace {

const CTaskTypeRegistrar<CTesterTask> ourRegistrar("unittest");

}  // namespace

bool CTesterTask::Start() {
  CTester::GetSingletonPtr()->RunAll();
  return false;
}

}  // namespace vask::tester
