#pragma once

#include <string>

namespace brumble {

inline constexpr const char* kReplayFolder = "replays";

// Makes the folder when it is missing. Returns why that can't be, or nothing.
std::string MakeReplayFolder();

// A name for a recording that begins now, in the folder: date, time and process. From 2 on the
// number is in the name, too.
std::string NewReplayName(int number);

// Removes the recordings in the folder but for the last ten and those of the best scores. Files
// with other names than NewReplayName makes are left alone.
void RemoveOldReplays();

}  // namespace brumble
