#pragma once

namespace vask {

// Enters the commands that help a person at the console into the library "extra": "help" and
// "toggle". Does nothing the second time.
void RegisterExtraCommands();

}  // namespace vask
