#include "audio/soundfilecheck.h"

#include "support/waves.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace vask::test {
namespace {

// What is wrong with a file as an effect and as music.
using Faults = std::pair<std::string, std::string>;

constexpr char kUnconvertible[] = "SDL cannot convert what the wave file describes";
constexpr char kTooLarge[] = "The wave file is too large";
constexpr char kCut[] = "The wave file is cut off";
constexpr char kNoData[] = "The wave file has no data";

Faults Both(const std::string& fault) { return {fault, fault}; }
const Faults kFine = Both("");

class SoundFileCheck : public testing::Test {
 protected:
  SoundFileCheck() { EXPECT_EQ(Mix_OpenAudio(22050, AUDIO_S16LSB, 2, 1024), 0); }
  ~SoundFileCheck() override {
    Mix_CloseAudio();
    SDL_Quit();
  }
  static Faults FaultsOfFile(const std::string& name) {
    const std::string effect = CheckEffectFile(name) ? "" : SDL_GetError();
    return {effect, CheckMusicFile(name) ? "" : SDL_GetError()};
  }
  static Faults FaultsOf(const std::string& content) {
    WriteFile("file.wav", content);
    return FaultsOfFile("file.wav");
  }
  static Faults FaultsOfSound(const SFormat& format) {
    return FaultsOf(Riff(Format(format) + Data()));
  }
  static Faults FaultsAtSize(unsigned encoding, std::uintmax_t size) {
    FaultsOfSound({.encoding = encoding, .frequency = 22050});
    std::filesystem::resize_file("file.wav", size);  // a hole, which takes no place
    return FaultsOfFile("file.wav");
  }

  // The library over SDL 2 converts what the classic one writes beyond its tables for.
  const bool myIsClassic = SDL_Linked_Version()->patch < 50;
  const Faults myOverrun = Both(myIsClassic ? kUnconvertible : "");
};

TEST_F(SoundFileCheck, FindsTheDescriptionWhereSdlLooksForIt) {
  const std::string broken = Format({.encoding = 17, .blockSize = 0}) + Data();
  const std::string list = Chunk("LIST", "12345678"), fact = Chunk("fact", "1234");
  EXPECT_EQ(FaultsOf(Riff(broken)), Both(kUnconvertible));
  EXPECT_EQ(FaultsOf(Riff(list + fact + broken)), Both(kUnconvertible));
  EXPECT_EQ(FaultsOf("RIFFWAVE" + broken), Both(kUnconvertible)) << "without a size";
  EXPECT_EQ(FaultsOf("WAVE....WAVE" + broken), Both(kUnconvertible));
  EXPECT_EQ(FaultsOf("RIFX....WAVE" + broken), Both("")) << "SDL sees by itself";
  EXPECT_EQ(FaultsOf(Riff(broken).substr(0, 35)), (Faults{kCut, ""}));
  EXPECT_EQ(FaultsOf(Riff(Chunk("JUNK", "12345678") + broken)),
            (Faults{"", "The wave file does not begin with its description"}));
  EXPECT_EQ(FaultsOf(Riff(Chunk("fmt ", broken.substr(8, 15)) + Data())),
            Both("The description in the wave file is too short"));
}

TEST_F(SoundFileCheck, RefusesWhatSdlCannotConvert) {
  EXPECT_EQ(FaultsOfSound({.frequency = 173}), kFine);
  EXPECT_EQ(FaultsOfSound({.frequency = 172}), myOverrun);
  EXPECT_EQ(FaultsOfSound({.frequency = 2822399}), kFine);
  EXPECT_EQ(FaultsOfSound({.frequency = 2822400}), myOverrun);
  EXPECT_EQ(FaultsOfSound({.frequency = 0x80000000}), myOverrun);
  EXPECT_EQ(FaultsOfSound({.channels = 256}), myOverrun) << "SDL counts in a byte";
  EXPECT_EQ(FaultsOfSound({.encoding = 2, .blockSize = 0}), Both(kUnconvertible));
  EXPECT_EQ(FaultsOfSound({.encoding = 17, .blockSize = 256}), kFine);
  EXPECT_EQ(FaultsOfSound({.encoding = 1, .blockSize = 0}), kFine);
}

TEST_F(SoundFileCheck, MusicNeedsItsDataWhereTheMixerLooksForThem) {
  const auto fault = [](const std::string& chunks) { return FaultsOf(Riff(Format() + chunks)); };
  EXPECT_EQ(fault(Chunk("JUNK", "12") + Data()), Both(""));
  EXPECT_EQ(fault(Chunk("JUNK", "12")), (Faults{"", kNoData}));
  EXPECT_EQ(fault(Chunk("JUNK", "1") + '\0' + Data()), (Faults{kCut, kNoData})) << "padding";
  EXPECT_EQ(fault("data" + Bytes(0x7FFFFFFF, 4)), (Faults{kCut, ""})) << "the largest size";
  EXPECT_EQ(fault("data" + Bytes(0x80000000, 4)), (Faults{kCut, kNoData}));
  EXPECT_EQ(fault("JUNK" + Bytes(0x80000000, 4) + Data()), (Faults{kCut, kNoData}));
}

TEST_F(SoundFileCheck, RefusesWhatIsNoFileOrLargerThanSdlCanCount) {
  EXPECT_EQ(FaultsOfFile("missing.wav"), Both("The file could not be opened"));
  EXPECT_EQ(FaultsOfFile("."), Both("This is no file"));
  EXPECT_EQ(FaultsOfFile("/dev/zero"), Both("This is no file"));
  constexpr std::uintmax_t kMost = 0x7FFFFFFF;
  EXPECT_EQ(FaultsAtSize(1, kMost + 1), Both(kTooLarge));
  if (myIsClassic) {
    // Eight bits become sixteen, one channel two; ADPCM becomes four times as much before.
    EXPECT_EQ(FaultsAtSize(1, kMost / 4), kFine);
    EXPECT_EQ(FaultsAtSize(1, kMost / 4 + 1), (Faults{kTooLarge, ""}));
    EXPECT_EQ(FaultsAtSize(2, kMost / 16 + 1), (Faults{kTooLarge, ""}));
  }
}

}  // namespace
}  // namespace vask::test
