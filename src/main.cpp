#include "kernel/application.h"
#include "platform/memoryloss.h"
#include "utils/log/log.h"

int main(int, char**) {
  vask::platform::EndWithoutMemory(vask::CLog::kFileName);
  vask::CApplication application;
  application.Run();
  return 0;
}
