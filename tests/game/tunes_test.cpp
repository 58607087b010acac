#include "game/tunes.h"

#include "game/game_support.h"
#include "kernel/applicationfactory.h"

namespace brumble {
namespace {

class Tunes : public test::GameTest {
 protected:
  ~Tunes() override { vask::CApplicationFactory::DeleteSingleton(); }  // and its variables
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

TEST_F(Tunes, FadeOutBeforeTheNextOneFadesInWhileTheMusicIsOurs) {
  vask::CConsole& console = *vask::CApplicationFactory::GetSingletonPtr()->GetConsole();
  console.SetVariable("game_music_title", "music/title.ogg");
  console.SetVariable("game_music_play", "\"music/play.ogg\"");
  console.SetVariable("game_music_last", "");
  EXPECT_EQ(After(5000, ETune::kTitle), "title ");
  EXPECT_EQ(After(400, ETune::kPlay), "title stop ");
  EXPECT_EQ(After(10, ETune::kPlay), "title stop play ");
  EXPECT_EQ(After(5000, ETune::kLastKitten), "title stop play stop ") << "has no name";
  EXPECT_EQ(After(10, ETune::kTitle), "title stop play stop title ") << "nothing to fade out";
  console.SetVariable("audio_music_file", "mine.ogg");
  EXPECT_EQ(After(5000, ETune::kPlay), "title stop play stop title ") << "somebody else's music";
}

}  // namespace
}  // namespace brumble
