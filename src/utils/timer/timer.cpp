#include "utils/timer/timer.h"

#include "utils/timer/derivedglobaltimer.h"
#include "utils/xml/xmlcontext.h"

namespace vask {
namespace {

constexpr float kMillisecondsPerSecond = 1000.0F;

// How far a start may lie ahead of its source, in milliseconds (12 days). What is farther ahead has
// wrapped: the timer has been counting for long. So a timer counts 37 days before it shows 0 again.
constexpr unsigned kGreatestLead = 1U << 30U;

}  // namespace

CTimer::CTimer() : CTimer(CDerivedGlobalTimer::Instance()) {}

CTimer::CTimer(CTimer* source) : myTimeSource(source), myStartTime(source->GetTime()) {}

CTimer& CTimer::operator=(const CTimer& other) {
  if (this != &other) {
    myStartTime = other.myStartTime;
    myPausedTime = other.myPausedTime;
    myPaused = other.myPaused;
    myMarkTime = other.myMarkTime;
  }
  return *this;
}

CTimer CTimer::operator-(unsigned milliseconds) const {
  CTimer result(*this);
  result -= milliseconds;
  return result;
}

CTimer CTimer::operator-(const CTimer& other) const { return *this - other.GetTime(); }

CTimer& CTimer::operator-=(unsigned milliseconds) {
  myStartTime += milliseconds;
  myPausedTime = static_cast<int>(static_cast<unsigned>(myPausedTime) - milliseconds);
  return *this;
}

CTimer& CTimer::operator-=(const CTimer& other) { return *this -= other.GetTime(); }

unsigned CTimer::GetTime() const {
  if (myPaused) {
    return myPausedTime < 0 ? 0 : static_cast<unsigned>(myPausedTime);
  }
  const unsigned elapsed = myTimeSource->GetTime() - myStartTime;
  const unsigned lead = 0U - elapsed;
  return lead >= 1 && lead <= kGreatestLead ? 0 : elapsed;
}

float CTimer::GetSeconds() const { return static_cast<float>(GetTime()) / kMillisecondsPerSecond; }

unsigned CTimer::GetTimeSinceMark() const { return GetTime() - myMarkTime; }

float CTimer::GetSecondsSinceMark() const {
  return static_cast<float>(GetTimeSinceMark()) / kMillisecondsPerSecond;
}

unsigned CTimer::Mark() {
  myMarkTime = GetTime();
  return myMarkTime;
}

void CTimer::Pause() {
  if (!myPaused) {
    myPausedTime = static_cast<int>(GetTime());
    myPaused = true;
  }
}

void CTimer::Resume() {
  if (myPaused) {
    myPaused = false;
    SetTime(static_cast<unsigned>(myPausedTime));
  }
}

void CTimer::Reset() {
  myPausedTime = 0;
  myStartTime = myTimeSource->GetTime();
  myMarkTime = 0;
}

void CTimer::SetTime(unsigned milliseconds) {
  myStartTime = myTimeSource->GetTime() - milliseconds;
  myPausedTime = static_cast<int>(milliseconds);
}

void CTimer::Serialize(CXmlContext& xml) {
  unsigned time = GetTime();
  if (xml.IsWriting()) {
    xml.Value("time", time);
    if (myPaused) {
      xml.Value("pause", myPaused);
    }
    return;
  }
  const bool wasPaused = myPaused;
  const bool hasTime = xml.OptionalValue("time", time);
  xml.OptionalValue("pause", myPaused);
  // The start of a paused timer is stale, so it counts only when the timer keeps running.
  if (hasTime || wasPaused) {
    myStartTime = myTimeSource->GetTime() - time;
  }
  if (myPaused) {
    myPausedTime = static_cast<int>(time);
  }
}

}  // namespace vask
