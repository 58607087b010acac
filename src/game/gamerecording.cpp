#include "game/gamerecording.h"

#include "game/play.h"
#include "game/playstate.h"

namespace brumble {
namespace {

constexpr unsigned kStatePause = 1000;  // milliseconds

}  // namespace

CGameRecording::CGameRecording(const CPlay& play, const std::string& file, const SGameStart& start,
                               const SInput& now)
    : myPlay(play), myFileName(file), myWriter(file, start, now), myStateTime(now.time) {}

void CGameRecording::Note(const SInput& input) {
  if (input.time - myStateTime >= kStatePause) {
    myWriter.AddState(StateOf(myPlay));
    myStateTime = input.time;
  }
  myWriter.Add(input);
}

void CGameRecording::End() {
  myWriter.AddState(StateOf(myPlay));
  myWriter.End(myPlay.IsOver(), myPlay.GetGameLogic().GetScoreBoard().GetTarget());
}

}  // namespace brumble
