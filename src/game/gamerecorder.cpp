#include "game/gamerecorder.h"

#include "game/physics/arena.h"
#include "game/replay/recordingformat.h"
#include "game/replayfiles.h"
#include "kernel/applicationfactory.h"
#include "utils/assert.h"
#include "utils/log/log.h"

#include <utility>

namespace brumble {
namespace {

int ourRecordSwitch = 1;
const vask::CConsoleVariableRegistrar theVariableRegistrar("game_record", ourRecordSwitch);

constexpr int kMostTries = 100;       // to find a name that is free
constexpr int kMostAssertions = 100;  // that have the recording written, in a game

void Report(const std::string& file, const std::string& reason) {
  vask::Log().Warning() << "Recording: " << file << " can't be written: " << reason << "\n";
}

// It would be the same with each game.
void ReportOnce(const std::string& file, const std::string& reason) {
  static bool hasReported = false;
  if (!std::exchange(hasReported, true)) {
    Report(file, reason);
  }
}

}  // namespace

CGameRecorder::~CGameRecorder() {
  if (myRecording != nullptr) {
    End();
    RemoveOld();
  }
}

void CGameRecorder::Begin(const SGameStart& start, const SInput& now) {
  End();
  myKittens = start.bodies - kFirstKittenIndex;
  myAssertions = 0;
  if ((ourRecordSwitch == 0 && myNextFile.empty()) || myKittens > kMostKittens) {
    return;
  }
  myIsNamed = !myNextFile.empty();
  myRecording = MakeRecording(start, now);
  myNextFile.clear();
  vask::SetAssertNote([this] { return TellAssertion(); });
  GiveUpIfFailed();
}

std::unique_ptr<CGameRecording> CGameRecorder::MakeRecording(const SGameStart& start,
                                                             const SInput& now) {
  if (!myNextFile.empty()) {
    return std::make_unique<CGameRecording>(myPlay, myNextFile, start, now);
  }
  if (const std::string reason = MakeReplayFolder(); !reason.empty()) {
    ReportOnce(kReplayFolder, reason);  // before the file fails, which does not tell why
  }
  std::unique_ptr<CGameRecording> recording;
  for (int number = 1; number <= kMostTries; ++number) {
    recording = std::make_unique<CGameRecording>(myPlay, NewReplayName(number), start, now);
    if (!recording->GetFile().WasThere()) {
      break;
    }
  }
  return recording;
}

void CGameRecorder::Note(const SInput& input) {
  if (myRecording == nullptr) {
    return;
  }
  myKittens += input.kind == EInput::kKitten ? 1 : 0;
  if (myKittens > kMostKittens) {
    End();
    return;
  }
  myRecording->Note(input);
  GiveUpIfFailed();
}

std::string CGameRecorder::End() {
  if (myRecording == nullptr) {
    return "-";
  }
  myRecording->End();
  const std::string file = myRecording->GetFileName();
  GiveUpIfFailed();
  const bool isWhole = myRecording != nullptr;
  myRecording.reset();
  vask::SetAssertNote(nullptr);
  const bool isOneWord = file.find_first_of(" \t\r\n") == std::string::npos;
  return isWhole && isOneWord ? file : "-";
}

void CGameRecorder::RemoveOld() { RemoveOldReplays(); }

void CGameRecorder::GiveUpIfFailed() {
  if (myRecording->GetFile().IsGood()) {
    return;
  }
  const auto report = myIsNamed ? &Report : &ReportOnce;
  report(myRecording->GetFileName(), myRecording->GetFile().GetError());
  myRecording.reset();
  vask::SetAssertNote(nullptr);
}

// A check that fails in every frame doesn't blow up the file: the last lines are in the next block.
std::string CGameRecorder::TellAssertion() {
  if (++myAssertions <= kMostAssertions) {
    myRecording->Flush();
  }
  if (!myRecording->GetFile().IsGood()) {
    return {};  // it is reported with the next input
  }
  const std::string& file = myRecording->GetFileName();
  return "The game up to this frame is in " + file + "; replaygame(" + file + ") plays it.";
}

}  // namespace brumble
