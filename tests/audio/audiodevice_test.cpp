#include "audio/audiodevice.h"

#include "audio/audioformat.h"
#include "support/logcapture.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace vask::test {
namespace {

constexpr SAudioSettings kUsual{22050, AUDIO_S16LSB, 2, 1024, 8};

bool IsOpen() { return Mix_QuerySpec(nullptr, nullptr, nullptr) != 0; }

TEST(AudioFormat, NamesAndNumbersGoBothWays) {
  const std::pair<std::string, int> formats[] = {{"U8", 0x0008},     {"S8", 0x8008},
                                                 {"U16LSB", 0x0010}, {"S16LSB", 0x8010},
                                                 {"U16MSB", 0x1010}, {"S16MSB", 0x9010}};
  for (const auto& [name, number] : formats) {
    EXPECT_EQ(AudioFormatFromName(name), number) << name;
    EXPECT_EQ(AudioFormatName(static_cast<std::uint16_t>(number)), name);
  }
  EXPECT_EQ(AudioFormatFromName("s16lsb"), 0x8010);
  EXPECT_EQ(AudioFormatFromName("S16"), 0);
  EXPECT_EQ(AudioFormatName(0x8020), "");
}

TEST(AudioDevice, TheFirstHoldOpensItAndTheLastOneClosesIt) {
  const CLogCapture log;
  auto first = CAudioDevice::Open({44100, AUDIO_S8, 1, 512, 3}, "Audio");
  EXPECT_TRUE(
      log.Has("Opening audio device with frequency: 44100Hz, format: S8, channels: 1, "
              "chunksize: 512\t[OK]"));
  EXPECT_TRUE(
      log.Has("Audio device opened 1 times  with parameters frequency: 44100Hz, format: "
              "S8, channels: 1"));
  EXPECT_TRUE(log.Has("Using audiodriver: dummy"));
  EXPECT_TRUE(log.Has("Number of audio channels allocated 3"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 3);
  const auto second = CAudioDevice::Open({44100, AUDIO_S8, 1, 512, 3}, "Other");
  EXPECT_FALSE(log.Has(" shares ")) << "it has what it wanted";
  EXPECT_TRUE(log.Has("Audio device opened 2 times "));
  first.reset();
  EXPECT_TRUE(IsOpen()) << "the second one's device was closed";
  EXPECT_NE(SDL_WasInit(SDL_INIT_AUDIO), 0U);
}

TEST(AudioDevice, ALaterHoldTakesItAsItIsAndCutsNoChannelsOff) {
  const CLogCapture log;
  const auto first = CAudioDevice::Open(kUsual, "Audio");
  constexpr SAudioSettings kOthers[] = {{44100, AUDIO_S16LSB, 2, 1024, 8},
                                        {22050, AUDIO_U8, 2, 1024, 8},
                                        {22050, AUDIO_S16LSB, 1, 1024, 8},
                                        {22050, AUDIO_S16LSB, 2, 512, 3}};
  std::size_t sharers = 0;
  for (const SAudioSettings& wanted : kOthers) {
    const auto other = CAudioDevice::Open(wanted, "Other");
    EXPECT_EQ(log.Count("Other shares the audio device as it is, with frequency: 22050Hz, format: "
                        "S16LSB, channels: 2, chunksize: 1024"),
              ++sharers);
    EXPECT_EQ(Mix_AllocateChannels(-1), 8);
    EXPECT_EQ(other->ChunkMilliseconds(), 47) << "1024 samples, rounded up";
  }
  const auto other = CAudioDevice::Open({22050, AUDIO_S16LSB, 2, 1024, 12}, "Other");
  EXPECT_EQ(Mix_AllocateChannels(-1), 12);
}

TEST(AudioDevice, IsNullWhereThereIsNone) {
  const CLogCapture log;
  setenv("SDL_AUDIODRIVER", "none of these", 1);
  EXPECT_EQ(CAudioDevice::Open(kUsual, "Audio"), nullptr);
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  EXPECT_TRUE(log.Has("[failed]"));
  EXPECT_TRUE(log.Has("Error description: "));
  EXPECT_FALSE(log.Has("Mixer API initialized succesfully"));
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U) << "is left open";
}

TEST(AudioDevice, IsNotJoinedAfterItWentWithTheWindow) {
  const CLogCapture log;
  const auto first = CAudioDevice::Open(kUsual, "Audio");
  SDL_Quit();
  EXPECT_EQ(CAudioDevice::Open(kUsual, "Other"), nullptr);
  EXPECT_TRUE(log.Has("The sound device went with the window"));
}

}  // namespace
}  // namespace vask::test
