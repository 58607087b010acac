#include "game/tunes.h"

#include "game/game_support.h"

namespace brumble {
namespace {

class Tunes : public test::GameTest {
 protected:
  Tunes() { Name("title", "play", "last"); }
  static void Name(const std::string& title, const std::string& play, const std::string& last) {
    Run("game_music_title = " + title);
    Run("game_music_play = " + play);
    Run("game_music_last = " + last);
  }
  static void Run(const std::string& line) {
    vask::CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
  }
  // What the audio task has been told after some frames of that tune.
  std::string After(unsigned milliseconds, ETune tune) {
    for (unsigned time = 0; time < milliseconds; time += 10) {
      tunes.Play(tune);
      Pass(10);
    }
    return audio.played;
  }

  CTunes tunes;
};

TEST_F(Tunes, FadeOutBeforeTheNextOneFadesIn) {
  EXPECT_EQ(After(5000, ETune::kTitle), "title ");
  EXPECT_EQ(After(400, ETune::kPlay), "title stop ");
  EXPECT_EQ(After(5000, ETune::kPlay), "title stop play ");
  EXPECT_EQ(After(5000, ETune::kLastKitten), "title stop play stop last ");
}

TEST_F(Tunes, WithoutANameAreSilent) {
  Name("\"\"", "\"play\"", "");
  EXPECT_EQ(After(5000, ETune::kTitle), "");
  EXPECT_EQ(After(5000, ETune::kPlay), "play ");
  EXPECT_EQ(After(5000, ETune::kLastKitten), "play stop ");
}

TEST_F(Tunes, LeaveTheMusicToWhoStopsItOrPlaysSome) {
  for (const std::string line : {"Audio::StopMusic", "Audio::PlayMusic(\"mine\")"}) {
    tunes = CTunes();
    audio.played.clear();
    After(10, ETune::kTitle);
    Run(line);
    const std::string played = audio.played;
    After(5000, ETune::kTitle);
    EXPECT_EQ(After(5000, ETune::kPlay), played) << line;
  }
}

}  // namespace
}  // namespace brumble
