#include "audio/audiodevice.h"

#include "audio/audioformat.h"
#include "support/logcapture.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace vask::test {
namespace {

TEST(AudioFormat, NamesAndNumbersGoBothWays) {
  for (const std::string name : {"U8", "S8", "U16LSB", "S16LSB", "U16MSB", "S16MSB"}) {
    EXPECT_EQ(AudioFormatName(AudioFormatFromName(name)), name);
  }
  EXPECT_EQ(AudioFormatFromName("s16lsb"), AUDIO_S16LSB);
  EXPECT_EQ(AudioFormatFromName("S16"), 0);
}

constexpr SAudioSettings kUsual{22050, AUDIO_S16LSB, 2, 1024, 8};

TEST(AudioDevice, LaterHoldsTakeItAsItIsAndTheLastOneClosesIt) {
  const CLogCapture log;
  const SAudioSettings settings{44100, AUDIO_S8, 1, 512, 3};
  std::unique_ptr<CAudioDevice> other;
  {
    const std::unique_ptr<CAudioDevice> device = CAudioDevice::Open(settings, "Audio");
    EXPECT_EQ(device->ChunkMilliseconds(), 12) << "512 samples, rounded up";
    other = CAudioDevice::Open({44100, AUDIO_S8, 1, 1024, 2}, "Other");
    EXPECT_TRUE(log.Has("Other shares the audio device as it is, with frequency: 44100Hz"));
    EXPECT_EQ(Mix_AllocateChannels(-1), 3) << "no channels are cut off";
  }
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 1);
  other.reset();
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U);
}

TEST(AudioDevice, IsNullWhereThereIsNone) {
  const CLogCapture log;
  setenv("SDL_AUDIODRIVER", "none of these", 1);
  EXPECT_EQ(CAudioDevice::Open(kUsual, "Audio"), nullptr);
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  EXPECT_TRUE(log.Has("[failed]"));
  EXPECT_TRUE(log.Has("Error description: "));
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U) << "is left open";
  const auto first = CAudioDevice::Open(kUsual, "Audio");
  SDL_Quit();
  EXPECT_EQ(CAudioDevice::Open(kUsual, "Other"), nullptr) << "it went with the window";
}

}  // namespace
}  // namespace vask::test
