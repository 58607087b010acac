#pragma once

#include "game/faterow.h"
#include "game/gamestory.h"
#include "game/physics/screentransform.h"
#include "gfx/sprite/sprite.h"

#include <string>
#include <vector>

namespace brumble {

// What the panel at the end of a game tells.
struct SGameResult {
  SGameStory story;
  int place = 0;       // among the best, 1 for the best; 0: not among them, or it doesn't count
  int bestBefore = 0;  // the best score before this game; 0 for none

  int Score() const {
    return story.banked.spins + story.banked.walls + story.banked.oven + story.banked.bonuses;
  }
  bool IsNewBest() const { return place == 1 && Score() > 0; }
};

// The verdict on a score: 1 for the lowest rank to 8.
int RankOf(int score);

// The words and numbers on the game-over picture, and the ghosts that rise behind it.
class CGameOverPanel {
 public:
  void Show(const SGameResult& result);

 private:
  // Null when there is no such picture.
  vask::CSprite* ShowPicture(const std::string& file, SScreenPoint place);
  void ShowCaptioned(const char* file, int number, SScreenPoint place, int numberX);
  void ShowRank(const SGameResult& result);
  void ShowPlace(const SGameResult& result);
  void ShowShortage(int points);
  void ShowEarnings(const SEarnings& earnings);
  void ReleaseGhosts(const std::vector<EFate>& fates);

  std::vector<vask::CSpritePtr> mySprites;
  CFateRow myFates;
};

}  // namespace brumble
