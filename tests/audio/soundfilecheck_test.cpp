#include "audio/soundfilecheck.h"

#include "audio/audiodevice.h"
#include "support/waves.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace vask::test {
namespace {

constexpr char kUnconvertible[] = "SDL cannot convert what the wave file describes";
constexpr char kTooLarge[] = "The wave file is too large";
constexpr char kCut[] = "The wave file is cut off";
constexpr char kNoData[] = "The wave file has no data";

// What is wrong with a file: as an effect, as music, as both.
std::string OfEffect(const std::string& fault) { return "effect: " + fault + "\n"; }
std::string OfMusic(const std::string& fault) { return "music: " + fault + "\n"; }
std::string OfBoth(const std::string& fault) { return OfEffect(fault) + OfMusic(fault); }
constexpr char kFine[] = "";

enum : unsigned { kPcm = 1, kMsAdpcm = 2, kImaAdpcm = 17 };  // encodings
constexpr int kFrequency = 22050;                            // of the device, in Hz

struct SoundFileCheck : testing::Test {
  static std::string FaultsOfFile(const std::string& name) {
    const std::string effect = CheckEffectFile(name) ? "" : OfEffect(SDL_GetError());
    return effect + (CheckMusicFile(name) ? "" : OfMusic(SDL_GetError()));
  }
  static std::string FaultsOf(const std::string& content) {
    WriteFile("file.wav", content);
    return FaultsOfFile("file.wav");
  }
  static std::string FaultsOfSound(const SFormat& format) {
    return FaultsOf(Riff(Format(format) + Data()));
  }
  static std::string FaultsAtSize(unsigned encoding, std::uintmax_t size) {
    FaultsOfSound({.encoding = encoding, .frequency = kFrequency});
    std::filesystem::resize_file("file.wav", size);  // a hole, which takes no place
    return FaultsOfFile("file.wav");
  }

  const std::unique_ptr<CAudioDevice> device =
      CAudioDevice::Open({kFrequency, AUDIO_S16LSB, 2, 1024, 8}, "Audio");
  // The library over SDL 2 converts what the classic one writes beyond its tables for.
  const bool myIsClassic = SDL_Linked_Version()->patch < 50;
  const std::string myOverrun = myIsClassic ? OfBoth(kUnconvertible) : kFine;
};

TEST_F(SoundFileCheck, FindsTheDescriptionWhereSdlLooksForIt) {
  const std::string broken = Format({.encoding = kImaAdpcm, .blockSize = 0}) + Data();
  const std::string list = Chunk("LIST", "12345678"), fact = Chunk("fact", "1234");
  EXPECT_EQ(FaultsOf(Riff(broken)), OfBoth(kUnconvertible));
  EXPECT_EQ(FaultsOf(Riff(list + fact + broken)), OfBoth(kUnconvertible));
  EXPECT_EQ(FaultsOf("RIFFWAVE" + broken), OfEffect(kUnconvertible)) << "without a size";
  EXPECT_EQ(FaultsOf("RIFFWAVEWAVE" + Format()), OfEffect(kCut) + OfMusic(kNoData))
      << "the first mark is the size of music";
  EXPECT_EQ(FaultsOf("WAVE....WAVE" + broken), OfBoth(kUnconvertible));
  EXPECT_EQ(FaultsOf("RIFX....WAVE" + broken), kFine) << "SDL sees by itself";
  EXPECT_EQ(FaultsOf(Riff(broken).substr(0, 35)), OfEffect(kCut));
  EXPECT_EQ(FaultsOf(Riff(Chunk("JUNK", "12345678") + broken)),
            OfMusic("The wave file does not begin with its description"));
  EXPECT_EQ(FaultsOf(Riff(Chunk("fmt ", broken.substr(8, 15)) + Data())),
            OfBoth("The description in the wave file is too short"));
}

TEST_F(SoundFileCheck, RefusesWhatSdlCannotConvert) {
  // It doubles or halves a frequency step by step, and has no room for seven steps.
  EXPECT_EQ(FaultsOfSound({.frequency = kFrequency / 128 + 1}), kFine);
  EXPECT_EQ(FaultsOfSound({.frequency = kFrequency / 128}), myOverrun);
  EXPECT_EQ(FaultsOfSound({.frequency = kFrequency * 128 - 1}), kFine);
  EXPECT_EQ(FaultsOfSound({.frequency = kFrequency * 128}), myOverrun);
  EXPECT_EQ(FaultsOfSound({.frequency = 0x80000000}), myOverrun);
  EXPECT_EQ(FaultsOfSound({.channels = 256}), myOverrun) << "SDL counts in a byte";
  EXPECT_EQ(FaultsOfSound({.encoding = kMsAdpcm, .blockSize = 0}), OfBoth(kUnconvertible));
  EXPECT_EQ(FaultsOfSound({.encoding = kImaAdpcm, .blockSize = 256}), kFine);
  EXPECT_EQ(FaultsOfSound({.encoding = kPcm, .blockSize = 0}), kFine);
}

TEST_F(SoundFileCheck, MusicNeedsItsDataWhereTheMixerLooksForThem) {
  const auto fault = [](const std::string& chunks) { return FaultsOf(Riff(Format() + chunks)); };
  EXPECT_EQ(fault(Chunk("JUNK", "12") + Data()), kFine);
  EXPECT_EQ(fault(Chunk("JUNK", "12")), OfMusic(kNoData));
  EXPECT_EQ(fault(Chunk("JUNK", "1") + '\0' + Data()), OfEffect(kCut) + OfMusic(kNoData))
      << "padding";
  EXPECT_EQ(fault("data" + Bytes(0x7FFFFFFF, 4)), OfEffect(kCut)) << "the largest size";
  EXPECT_EQ(fault("data" + Bytes(0x80000000, 4)), OfEffect(kCut) + OfMusic(kNoData));
  EXPECT_EQ(fault("JUNK" + Bytes(0x80000000, 4) + Data()), OfEffect(kCut) + OfMusic(kNoData));
}

TEST_F(SoundFileCheck, RefusesWhatIsNoFileOrLargerThanSdlCanCount) {
  EXPECT_EQ(FaultsOfFile("missing.wav"), OfBoth("The file could not be opened"));
  EXPECT_EQ(FaultsOfFile("."), OfBoth("This is no file"));
  EXPECT_EQ(FaultsOfFile("/dev/zero"), OfBoth("This is no file"));
  constexpr std::uintmax_t kMost = 0x7FFFFFFF;
  EXPECT_EQ(FaultsAtSize(kPcm, kMost + 1), OfBoth(kTooLarge));
  if (myIsClassic) {
    // Eight bits become sixteen, one channel two; ADPCM becomes four times as much before.
    EXPECT_EQ(FaultsAtSize(kPcm, kMost / 4), kFine);
    EXPECT_EQ(FaultsAtSize(kPcm, kMost / 4 + 1), OfEffect(kTooLarge));
    EXPECT_EQ(FaultsAtSize(kMsAdpcm, kMost / 16 + 1), OfEffect(kTooLarge));
  }
}

}  // namespace
}  // namespace vask::test
