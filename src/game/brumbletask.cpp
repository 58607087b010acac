#include "game/brumbletask.h"

#include "game/brumbletaskimpl.h"
#include "kernel/taskfactory.h"

namespace brumble {
namespace {

const vask::CTaskTypeRegistrar<CBrumbleTask> theRegistrar("game");

}  // namespace

CBrumbleTask::CBrumbleTask() = default;

CBrumbleTask::~CBrumbleTask() = default;

bool CBrumbleTask::Start(vask::CConsoleParams* /*params*/) { return Start(); }

bool CBrumbleTask::Start() {
  myImpl.reset();
  myImpl = std::make_unique<CBrumbleTaskImpl>();
  return true;
}

void CBrumbleTask::Update() {
  if (myImpl != nullptr) {
    myImpl->Update();
  }
}

void CBrumbleTask::Exit() { myImpl.reset(); }

void CBrumbleTask::Pause() {
  if (myImpl != nullptr) {
    myImpl->Pause();
  }
}

void CBrumbleTask::Resume() {
  if (myImpl != nullptr) {
    myImpl->Resume();
  }
}

bool CBrumbleTask::ExecuteCommand(const std::string& /*line*/) {
  if (myImpl != nullptr) {
    myImpl->DropExtraKitten();
  }
  return true;
}

}  // namespace brumble
