#include "kernel/application.h"

int main(int, char**) {
  vask::CApplication application;
  application.Run();
  return 0;
}
