#pragma once

namespace vask {

class CXmlContext;

// Whether `time` has reached `due`, over the wrap of the millisecond counter: times are compared by
// the sign of their 32-bit difference.
inline bool HasReached(unsigned time, unsigned due) { return static_cast<int>(time - due) >= 0; }

// Milliseconds counted against a source timer; the root of every chain is the global clock. Timers
// can be paused, resumed, reset, set, marked and saved. All arithmetic wraps at 2^32.
//
//     CTimer timer;                                  // on the global clock, starts at 0 and runs
//     CTimer game(CGlobalAppTimer::GetSingletonPtr());  // stops without the window's focus
class CTimer {
 public:
  CTimer();
  // The source is not owned and must outlive the timer.
  explicit CTimer(CTimer* source);
  CTimer(const CTimer& other) = default;

  virtual ~CTimer() = default;
  // Takes over the state of the other timer but keeps its own source.
  virtual CTimer& operator=(const CTimer& other);
  // A timer with the same source and state that reads less.
  virtual CTimer operator-(unsigned milliseconds) const;
  virtual CTimer operator-(const CTimer& other) const;
  // Takes this timer's time back, running or paused.
  virtual CTimer& operator-=(unsigned milliseconds);
  virtual CTimer& operator-=(const CTimer& other);
  // 0 while the start lies after the source's time.
  virtual unsigned GetTime() const;
  virtual float GetSeconds() const;
  virtual unsigned GetTimeSinceMark() const;
  virtual float GetSecondsSinceMark() const;
  // Stores the current time as the mark and returns it.
  virtual unsigned Mark();
  virtual void Pause();
  virtual void Resume();
  // Back to 0; a paused timer stays paused.
  virtual void Reset();
  virtual void SetTime(unsigned milliseconds);
  // The element "time", and "pause" when paused.
  virtual void Serialize(CXmlContext& xml);

 protected:
  // The root of the chain has no source but itself.
  struct SRootTag {};
  explicit CTimer(SRootTag) : myTimeSource(this) {}

 private:
  CTimer* myTimeSource;
  unsigned myStartTime = 0;
  int myPausedTime = 0;
  bool myPaused = false;
  unsigned myMarkTime = 0;
};

}  // namespace vask
