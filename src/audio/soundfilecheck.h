#pragma once

#include <string>

namespace vask {

// Whether a file may be passed to SDL, as an effect or as music; the mixer must be open. SDL trusts
// the description in a wave file, and where it is wrong writes beyond its tables, divides by zero,
// frees twice, loops for ever or asks for 4 GB. Such a file fails the check, as does one that is
// empty or cannot be opened. All others pass: SDL plays them or reports them itself. A failure sets
// SDL's error.
bool CheckEffectFile(const std::string& fileName);
bool CheckMusicFile(const std::string& fileName);

}  // namespace vask
