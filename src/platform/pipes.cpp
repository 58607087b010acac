#include "platform/pipes.h"

#include <csignal>

namespace vask::platform {

void SurviveBrokenPipes() { std::signal(SIGPIPE, SIG_IGN); }

}  // namespace vask::platform
