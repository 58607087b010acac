#include "game/tunes.h"

#include "console/console.h"
#include "kernel/applicationfactory.h"
#include "utils/timer/globalapptimer.h"

#include <array>
#include <cstddef>

namespace brumble {
namespace {

constexpr unsigned kFadeTime = 400;  // milliseconds, out and in
constexpr std::array<const char*, 3> kVariables = {"game_music_title", "game_music_play",
                                                   "game_music_last"};
constexpr const char* kHeardVariable = "audio_music_file";

// A script may write the name in quotes, which an assignment keeps.
std::string Unquoted(const std::string& text) {
  const bool isQuoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return isQuoted ? text.substr(1, text.size() - 2) : text;
}

vask::CConsole& Console() { return *vask::CApplicationFactory::GetSingletonPtr()->GetConsole(); }

}  // namespace

CTunes::CTunes()
    : myClock(vask::CGlobalAppTimer::GetSingletonPtr()),
      myHeard(Console().GetVariable(kHeardVariable)) {}

void CTunes::Play(ETune tune) {
  const std::string file =
      Unquoted(Console().GetVariable(kVariables[static_cast<std::size_t>(tune)]));
  const bool isOurs = Console().GetVariable(kHeardVariable) == myHeard;
  if (isOurs && (file != myPlaying || myIsFadingOut)) {
    ChangeTo(file);
  }
}

// Silence needs no fade-out before the next tune.
void CTunes::ChangeTo(const std::string& file) {
  const std::string fade = std::to_string(kFadeTime);
  if (!myPlaying.empty() && !myIsFadingOut) {
    Order("StopMusicFadeOut( " + fade + " );");
    myClock.Reset();
    myIsFadingOut = true;
  }
  if (myIsFadingOut && myClock.GetTime() < kFadeTime) {
    return;
  }
  myIsFadingOut = false;
  myPlaying = file;
  if (!file.empty()) {
    Order("PlayMusicFadeIn( \"" + file + "\", " + fade + " );");
  }
}

void CTunes::Order(const std::string& command) {
  Console().Execute("Audio::" + command, false);
  myHeard = Console().GetVariable(kHeardVariable);
}

}  // namespace brumble
