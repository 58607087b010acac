#pragma once

#include <string>

namespace brumble {

inline constexpr const char* kReplayFolder = "replays";

// A name for a recording that begins now, in the folder, which is made when it is missing: date,
// time and process. From 2 on the number is in the name, too.
std::string NewReplayName(int number);

// Removes the recordings in the folder but for the last ten and those of the best scores. Files
// with other names than NewReplayName makes are left alone.
void RemoveOldReplays();

}  // namespace brumble
