#include "console/consolecommand.h"

namespace vask {

std::string CConsoleCommand::Execute(CConsoleParams*) { return Execute(); }

}  // namespace vask
