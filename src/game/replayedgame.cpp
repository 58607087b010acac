#include "game/replayedgame.h"

#include "game/play.h"
#include "game/playstate.h"

#include <array>
#include <cstdio>

namespace brumble {
namespace {

std::string Seconds(unsigned milliseconds) {
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), "%u.%03u s", milliseconds / 1000, milliseconds % 1000);
  return text.data();
}

}  // namespace

CReplayedGame::CReplayedGame(CPlay& play, const std::string& file, bool stopsAtDifference)
    : myPlay(play), myReader(file), myStopsAtDifference(stopsAtDifference) {
  const CRecordingReader::EItem first = myReader.Next();
  if (first != CRecordingReader::EItem::kNone) {
    myIsPaused = myReader.GetStart().isPaused;
    myPlay.Read(SInput());
    myPlay.Start(myReader.GetStart());
  }
  if (TakeItem(first)) {
    Advance();
  }
}

void CReplayedGame::PlayNext() {
  if (myIsDone) {
    return;
  }
  const SInput& input = myReader.GetInput();
  myTime = myNextTime;
  myLastReading = input.time;
  myFrames += input.kind == EInput::kFrame ? 1 : 0;
  if (input.kind == EInput::kPause || input.kind == EInput::kResume) {
    myIsPaused = input.kind == EInput::kPause;
  }
  myPlay.Take(input);
  if (myPlay.IsOver()) {
    myPlay.Stop();
  }
  Advance();
}

// Up to the next input.
void CReplayedGame::Advance() {
  while (!myIsDone && TakeItem(myReader.Next())) {
  }
}

bool CReplayedGame::TakeItem(CRecordingReader::EItem item) {
  switch (item) {
    case CRecordingReader::EItem::kInput:
      Await();
      return false;
    case CRecordingReader::EItem::kState:
      CheckState();
      return true;
    case CRecordingReader::EItem::kEnd:
      CheckEnd();
      return false;
    case CRecordingReader::EItem::kNone:
      myProblem = myReader.GetError().empty()
                      ? "it ends before its game does, after " + Seconds(myTime)
                      : myReader.GetError();
      Finish();
      return false;
  }
  return false;
}

void CReplayedGame::Await() {
  const unsigned wait = myReader.GetInput().time - myLastReading;
  myNextTime = myTime + (myIsPaused ? 0 : wait);
  if (myPlay.IsOver()) {
    NoteDifference("the game is over, and goes on in the recording");
    Finish();
  }
}

void CReplayedGame::CheckState() {
  const std::string difference = FirstDifference(StateOf(myPlay), myReader.GetState());
  if (!difference.empty()) {
    NoteDifference(difference);
  }
}

void CReplayedGame::CheckEnd() {
  const int score = myPlay.GetGameLogic().GetScoreBoard().GetTarget();
  const SRecordedEnd& end = myReader.GetEnd();
  if (myPlay.IsOver() != end.isOver) {
    NoteDifference("the game goes on, and is over in the recording");
  } else if (score != end.score) {
    NoteDifference("the score is " + std::to_string(score) + ", recorded " +
                   std::to_string(end.score));
  }
  Finish();
}

void CReplayedGame::NoteDifference(const std::string& what) {
  if (myDifference.empty()) {
    myDifference = "after " + Seconds(myTime) + ": " + what;
  }
  myIsDone = myIsDone || myStopsAtDifference;
}

std::string CReplayedGame::GetSummary() const {
  const CGameLogic& logic = myPlay.GetGameLogic();
  const SEarnings& banked = logic.GetStory().banked;
  return "score " + std::to_string(logic.GetScoreBoard().GetTarget()) + " (spins " +
         std::to_string(banked.spins) + ", walls " + std::to_string(banked.walls) + ", oven " +
         std::to_string(banked.oven) + ", bonuses " + std::to_string(banked.bonuses) + "), " +
         std::to_string(myFrames) + " frames in " + Seconds(myTime);
}

}  // namespace brumble
