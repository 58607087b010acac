#include "kernel/fakethread.h"

namespace vask {

CFakeThread::CFakeThread() { myTimer.Pause(); }

bool CFakeThread::IsLessThan(const CFakeThread* other) const {
  if (other->myDead || myDead) {
    return other->myDead;
  }
  if (other->myPaused || myPaused) {
    return other->myPaused;
  }
  return other->myNextTime - other->myTimer.GetTime() < myNextTime - myTimer.GetTime();
}

void CFakeThread::Start() {
  if (!myPaused) {
    return;
  }
  myPaused = false;
  myNextTime = 0;
  myTimer.Reset();
  myTimer.Resume();
}

bool CFakeThread::Kill() {
  myPaused = true;
  myDead = true;
  return true;
}

void CFakeThread::Pause() {
  myPaused = true;
  myTimer.Pause();
}

void CFakeThread::Resume() {
  myPaused = false;
  myTimer.Resume();
}

unsigned CFakeThread::GetTime() { return myTimer.GetTime(); }

void CFakeThread::RunThreads(unsigned timeSlice) {
  const CTimer slice;
  while (PeekList() != nullptr && RunPass(slice, timeSlice) && slice.GetTime() < timeSlice) {
  }
}

bool CFakeThread::RunPass(const CTimer& slice, unsigned timeSlice) {
  bool isDeleted = false;
  List::CWalk walk(GetList());
  while (CFakeThread* thread = walk.Next()) {
    if (!thread->myDead && !thread->IsDue()) {
      return true;
    }
    isDeleted = !RunOrDelete(thread);
    if (!isDeleted && slice.GetTime() < timeSlice) {
      return true;
    }
  }
  return !isDeleted;
}

bool CFakeThread::IsDue() { return !myPaused && HasReached(GetTime(), myNextTime); }

bool CFakeThread::RunOrDelete(CFakeThread* thread) {
  if (!thread->myDead) {
    thread->Update();
    if (PeekList() == nullptr || !PeekList()->Contains(thread)) {
      return false;  // the update deleted its own thread
    }
    thread->myNextTime = thread->GetTime() + static_cast<unsigned>(thread->myInterval);
  }
  if (!thread->myDead) {
    return true;
  }
  delete thread;
  return false;
}

}  // namespace vask
