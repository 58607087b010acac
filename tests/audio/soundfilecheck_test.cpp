#include "audio/soundfilecheck.h"

#include "support/waves.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace vask::test {
namespace {

constexpr char kUnconvertible[] = "SDL cannot convert what the wave file describes";
constexpr char kTooLarge[] = "The wave file is too large";
constexpr char kNoData[] = "The wave file has no data";
constexpr char kFine[] = "";

class SoundFileCheck : public testing::Test {
 protected:
  SoundFileCheck() { EXPECT_EQ(Mix_OpenAudio(22050, AUDIO_S16LSB, 2, 1024), 0); }
  ~SoundFileCheck() override {
    Mix_CloseAudio();
    SDL_Quit();
  }
  static std::string Fault(bool (*check)(const std::string&), const std::string& file) {
    return check(file) ? kFine : SDL_GetError();
  }
  static void Expect(const std::string& effect, const std::string& music,
                     const std::string& file = "file.wav") {
    EXPECT_EQ(Fault(&CheckEffectFile, file), effect) << "as an effect";
    EXPECT_EQ(Fault(&CheckMusicFile, file), music) << "as music";
  }

  // The library over SDL 2 converts what the classic one writes behind its tables for.
  bool myIsClassic = SDL_Linked_Version()->patch < 50;
  std::string myOverrun = myIsClassic ? kUnconvertible : kFine;
};

TEST_F(SoundFileCheck, FindsTheDescriptionWhereSdlLooksForIt) {
  const std::string broken = Format({.encoding = 17, .blockSize = 0}) + Data();
  const struct {
    const char* name;
    std::string content;
    const char* fault;
  } cases[] = {
      {.name = "first", .content = Riff(broken), .fault = kUnconvertible},
      {.name = "after a list and a fact",
       .content = Riff(Chunk("LIST", "12345678") + Chunk("fact", "1234") + broken),
       .fault = kUnconvertible},
      {.name = "without a size", .content = "RIFFWAVE" + broken, .fault = kUnconvertible},
      {.name = "a WAVE of a WAVE", .content = "WAVE....WAVE" + broken, .fault = kUnconvertible},
      {.name = "another mark", .content = "RIFX....WAVE" + broken, .fault = kFine},
      {.name = "no mark", .content = "RIFF....WAVY" + broken, .fault = kFine},
      {.name = "cut in its header", .content = Riff(broken).substr(0, 19), .fault = kFine},
      {.name = "cut at its end", .content = Riff(broken).substr(0, 35), .fault = kFine},
      {.name = "empty", .content = "", .fault = kFine},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    WriteFile("file.wav", c.content);
    Expect(c.fault, c.fault);
  }
  WriteFile("file.wav", Riff(Chunk("JUNK", "12345678") + broken));
  Expect(kFine, "The wave file does not begin with its description");
  WriteFile("file.wav", Riff(Chunk("fmt ", broken.substr(8, 15)) + Data()));
  constexpr char kShort[] = "The description in the wave file is too short";
  Expect(kShort, kShort);
}

TEST_F(SoundFileCheck, RefusesWhatSdlCannotConvert) {
  const struct {
    SFormat format;
    std::string fault;
  } cases[] = {
      {.format = {.frequency = 173}, .fault = kFine},
      {.format = {.frequency = 172}, .fault = myOverrun},
      {.format = {.frequency = 2822399}, .fault = kFine},
      {.format = {.frequency = 2822400}, .fault = myOverrun},
      {.format = {.frequency = 0x80000000}, .fault = myOverrun},
      {.format = {.frequency = 0}, .fault = myOverrun},
      {.format = {.channels = 256}, .fault = myOverrun},
      {.format = {.encoding = 2, .blockSize = 0}, .fault = kUnconvertible},
      {.format = {.encoding = 17, .blockSize = 256}, .fault = kFine},
      {.format = {.encoding = 1, .blockSize = 0}, .fault = kFine},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.format.frequency << " Hz, encoding " << c.format.encoding);
    WriteFile("file.wav", Riff(Format(c.format) + Data()));
    Expect(c.fault, c.fault);
  }
}

TEST_F(SoundFileCheck, MusicNeedsItsDataWhereTheMixerLooksForThem) {
  const struct {
    const char* name;
    std::string chunks;
    const char* fault;
  } cases[] = {
      {.name = "at the end", .chunks = Chunk("JUNK", "12") + Data(), .fault = kFine},
      {.name = "none", .chunks = Chunk("JUNK", "12"), .fault = kNoData},
      {.name = "after padding", .chunks = Chunk("JUNK", "1") + '\0' + Data(), .fault = kNoData},
      {.name = "largest size", .chunks = "data" + Bytes(0x7FFFFFFF, 4), .fault = kFine},
      {.name = "negative size", .chunks = "data" + Bytes(0x80000000, 4), .fault = kNoData},
      {.name = "after a negative size",
       .chunks = "JUNK" + Bytes(0x80000000, 4) + Data(),
       .fault = kNoData},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    WriteFile("file.wav", Riff(Format() + c.chunks));
    Expect(kFine, c.fault);
  }
}

TEST_F(SoundFileCheck, RefusesWhatWouldBeLargerThanSdlCanCount) {
  constexpr std::uintmax_t kMost = 0x7FFFFFFF;
  const auto write = [](const SFormat& format, std::uintmax_t size) {
    WriteFile("file.wav", Riff(Format(format) + Data()));
    std::filesystem::resize_file("file.wav", size);  // a hole, which takes no place
  };
  write({.frequency = 22050}, kMost + 1);
  Expect(kTooLarge, kTooLarge);
  if (myIsClassic) {
    // Eight bits become sixteen, one channel two; ADPCM becomes four times as much before.
    write({.frequency = 22050}, kMost / 4);
    Expect(kFine, kFine);
    write({.frequency = 22050}, kMost / 4 + 1);
    Expect(kTooLarge, kFine);
    write({.encoding = 2, .frequency = 22050}, kMost / 16);
    Expect(kFine, kFine);
    write({.encoding = 2, .frequency = 22050}, kMost / 16 + 1);
    Expect(kTooLarge, kFine);
  }
}

TEST_F(SoundFileCheck, RefusesWhatIsNoFile) {
  Expect("The file could not be opened", "The file could not be opened", "missing.wav");
  Expect("This is no file", "This is no file", ".");
  Expect("This is no file", "This is no file", "/dev/zero");
}

}  // namespace
}  // namespace vask::test
