#include "tools/testertask.h"

#include "kernel/taskfactory.h"
#include "tools/tester.h"

namespace vask::tester {

namespace {

const CTaskTypeRegistrar<CTesterTask> theRegistrar("unittest");

}  // namespace

bool CTesterTask::Start() {
  CTester::GetSingletonPtr()->RunAll();
  return false;
}

}  // namespace vask::tester
