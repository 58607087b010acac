#include "game/speech.h"

#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "game/physics/screentransform.h"

#include <algorithm>

namespace brumble {
namespace {

constexpr unsigned kSpeechTime = 1200;
constexpr int kMostSayings = 20;  // a game
constexpr int kBald = 3;

// Over the kitten, but inside the screen, and below the mark of one above it.
void PlaceBubble(vask::CSprite& bubble, const SKittenView& kitten) {
  const vask::CRect<int> rect = bubble.GetRect();
  const int x = static_cast<int>(kitten.position.x) - rect.w / 2;
  const int y = static_cast<int>(kitten.position.y - kKittenPictureHalf) - rect.h;
  const int top = IsAboveScreen(kitten) ? kAboveMarkerSide : 0;
  bubble.SetPosition(std::clamp(x, 0, kScreenWidth - rect.w), std::max(y, top));
}

}  // namespace

void CSpeech::Begin() {
  mySpeakers.clear();
  mySayings = 0;
}

void CSpeech::Update(const std::vector<SKittenView>& kittens, unsigned now) {
  ForgetOthersThan(kittens);
  for (const SKittenView& kitten : kittens) {
    SSpeaker& speaker = SpeakerOf(kitten);
    if (kitten.hair > speaker.hair) {
      speaker.hair = kitten.hair;
      Speak(speaker, now);
    }
    if (speaker.bubble && now - speaker.start >= kSpeechTime) {
      speaker.bubble.Reset();
    }
    if (speaker.bubble) {
      PlaceBubble(*speaker.bubble, kitten);
    }
  }
}

void CSpeech::ForgetOthersThan(const std::vector<SKittenView>& kittens) {
  std::erase_if(mySpeakers, [&kittens](const SSpeaker& speaker) {
    return std::none_of(kittens.begin(), kittens.end(), [&speaker](const SKittenView& kitten) {
      return kitten.bridge == speaker.kitten;
    });
  });
}

CSpeech::SSpeaker& CSpeech::SpeakerOf(const SKittenView& kitten) {
  const auto found =
      std::find_if(mySpeakers.begin(), mySpeakers.end(),
                   [&kitten](const SSpeaker& speaker) { return speaker.kitten == kitten.bridge; });
  return found != mySpeakers.end() ? *found
                                   : mySpeakers.emplace_back(SSpeaker{kitten.bridge, kitten.hair});
}

void CSpeech::Speak(SSpeaker& speaker, unsigned now) {
  if (mySayings == kMostSayings) {
    return;
  }
  const int number = mySayings++ / 2 % kSayingsOfAHair;
  const int first = speaker.hair == kBald ? kSayingsOfAHair : 0;
  speaker.bubble = CGfxFactory::GetSingletonPtr()->LoadSprite(SayingFile(first + number + 1));
  speaker.start = now;
}

}  // namespace brumble
