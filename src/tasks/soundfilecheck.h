#pragma once

#include <string>

namespace vask {

// Whether the sound file may be handed to SDL, which trusts a wave file's own description: a
// frequency of nearly nothing makes it write behind its tables, and it waits for ever for data that
// are not there. Sets SDL's error when not. Files of other kinds, and missing ones, pass: there SDL
// reports by itself.
bool CheckSoundFile(const std::string& fileName);

}  // namespace vask
