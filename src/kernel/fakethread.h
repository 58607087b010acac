#pragma once

#include "utils/containers/autolist.h"
#include "utils/timer/timer.h"

namespace vask {

// A cooperative thread: an object with a time of its own that the kernel runs once per frame when
// it is due. A paused or waiting thread holds back those created after it until its own turn comes.
// Made paused; call Start(). Delete it, or Kill() it and the next pass that reaches it deletes it.
class CFakeThread : public CAutoList<CFakeThread> {
 public:
  CFakeThread();
  CFakeThread(const CFakeThread&) = delete;
  CFakeThread& operator=(const CFakeThread&) = delete;

  virtual ~CFakeThread() = default;
  virtual bool IsLessThan(const CFakeThread* other) const;
  // One run of the thread's work.
  virtual void Update() = 0;
  // Begins at time 0; does nothing for a thread that is not paused.
  virtual void Start();
  virtual bool Kill();
  virtual void Pause();
  // Continues where the thread was paused.
  virtual void Resume();
  // Milliseconds of the thread's own time.
  virtual unsigned GetTime();

  // Runs the due threads in creation order: one pass with a slice of 0, else passes until the slice
  // (milliseconds) has gone by.
  static void RunThreads(unsigned timeSlice);

 protected:
  // Milliseconds between two runs.
  void SetInterval(int milliseconds) { myInterval = milliseconds; }

 private:
  // False when the pass ended with a deletion at the end of the list, or no thread is left: then
  // there are no further passes.
  static bool RunPass(const CTimer& slice, unsigned timeSlice);
  bool IsDue();
  // Whether the thread lives on.
  static bool RunOrDelete(CFakeThread* thread);

  CTimer myTimer;
  bool myPaused = true;
  int myInterval = 10;
  unsigned myNextTime = 0;
  bool myDead = false;
};

}  // namespace vask
