#pragma once

namespace vask::platform {

// From now on the program ends at once, with status 1 and a line on the standard error, when a
// connection to an X server is lost: the server has died, or has cut the connection to kill a
// window. Libraries that open a display set handlers of their own meanwhile: call it afterwards.
void EndWithDisplay();

}  // namespace vask::platform
