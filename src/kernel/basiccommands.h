#pragma once

namespace vask {

// Enters the commands that run the program from its script into the library "basic": "quit",
// "load", "taskload", "starttask", "pausetask", "resumetask" and "stoptask". Does nothing the
// second time.
void RegisterBasicCommands();

}  // namespace vask
