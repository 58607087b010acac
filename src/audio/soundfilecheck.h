#pragma once

#include <string>

namespace vask {

// Whether a file may be handed to SDL, as an effect or as music; the mixer must be open. SDL trusts
// what a wave file tells of itself and writes behind its tables, divides by zero, frees twice or
// waits for ever where that does not hold. Such a file is refused, and one that cannot be opened;
// all else passes, because SDL plays it or refuses it by itself. Sets SDL's error when refused.
bool CheckEffectFile(const std::string& fileName);
bool CheckMusicFile(const std::string& fileName);

}  // namespace vask
