#pragma once

namespace vask::platform {

// From now on a write to a pipe whose reader has gone fails, as other writes do; at first it ends
// the program without a word.
void SurviveBrokenPipes();

}  // namespace vask::platform
