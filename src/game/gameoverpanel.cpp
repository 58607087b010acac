#include "game/gameoverpanel.h"

#include "game/digits.h"
#include "game/effects.h"
#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/sprite/spritemasker.h"

#include <algorithm>
#include <array>

namespace brumble {
namespace {

constexpr int kDepth = 33;
constexpr int kLeftX = 204;  // of the captions and numbers of the two columns
constexpr int kLeftNumberX = 274;
constexpr int kRightX = 414;
constexpr int kRightNumberX = 506;
constexpr int kScoreY = 159;
constexpr int kPlaceX = 464;
constexpr int kPlaceNumberX = 532;
constexpr SScreenPoint kNewBestPlace = {280, 184};
constexpr int kPanelGap = 6;                  // between a number and the words after it
constexpr int kShortWidth = 200 + kPanelGap;  // of the words, with the gap
constexpr SScreenPoint kRankPlace = {290, 213};
constexpr int kUpperY = 256;
constexpr int kLowerY = 283;
constexpr SScreenPoint kFatesPlace = {302, 323};
constexpr int kFatesStep = 20;

constexpr std::array<int, 8> kRankScores = {0, 1, 2500, 7500, 15000, 30000, 50000, 80000};

constexpr int kFirstGhostX = 180;
constexpr int kGhostStep = 45;
constexpr int kGhostStartY = 370;  // behind the panel
constexpr int kGhostEndY = -60;
constexpr unsigned kGhostTime = 3000;  // milliseconds, of the first; each other takes longer
constexpr unsigned kGhostDelay = 500;

}  // namespace

int RankOf(int score) {
  const auto above = std::upper_bound(kRankScores.begin(), kRankScores.end(), score);
  return std::max(1, static_cast<int>(above - kRankScores.begin()));
}

void CGameOverPanel::Show(const SGameResult& result) {
  ShowCaptioned(kPanelScoreFile, result.Score(), {kLeftX, kScoreY}, kLeftNumberX);
  ShowPlace(result);
  ShowPicture(RankFile(RankOf(result.Score())), kRankPlace);
  ShowEarnings(result.story.banked);
  myFates.Begin(kFatesPlace, kFatesStep, kDepth);
  myFates.Update(result.story.fates);
  ReleaseGhosts(result.story.fates);
  PlayEffect(result.place == 1 ? kGameOverBestSound : kGameOverSound);
}

vask::CSprite* CGameOverPanel::ShowPicture(const std::string& file, SScreenPoint place) {
  const vask::CSpritePtr sprite = CGfxFactory::GetSingletonPtr()->LoadSprite(file);
  if (sprite) {
    sprite->SetPosition(place.x, place.y);
    mySprites.push_back(sprite);
  }
  return sprite.Get();
}

void CGameOverPanel::ShowCaptioned(const char* file, int number, SScreenPoint place, int numberX) {
  ShowPicture(file, place);
  mySprites.push_back(ShowNumber(number, {numberX, place.y}, kDepth));
}

void CGameOverPanel::ShowPlace(const SGameResult& result) {
  if (result.place > 0) {
    ShowCaptioned(kPanelPlaceFile, result.place, {kPlaceX, kScoreY}, kPlaceNumberX);
  }
  if (result.place == 1) {
    ShowPicture(kPanelNewBestFile, kNewBestPlace);
  } else if (result.bestBefore > result.Score()) {
    ShowShortage(result.bestBefore - result.Score());
  }
}

// The number and the words after it are centred together.
void CGameOverPanel::ShowShortage(int points) {
  const int width = NumberWidth(points);
  const int x = kScreenWidth / 2 - (width + kShortWidth) / 2;
  mySprites.push_back(ShowNumber(points, {x, kNewBestPlace.y}, kDepth));
  ShowPicture(kPanelShortFile, {x + width + kPanelGap, kNewBestPlace.y});
}

void CGameOverPanel::ShowEarnings(const SEarnings& earnings) {
  ShowCaptioned(kPanelSpinsFile, earnings.spins, {kLeftX, kUpperY}, kLeftNumberX);
  ShowCaptioned(kPanelWallsFile, earnings.walls, {kRightX, kUpperY}, kRightNumberX);
  ShowCaptioned(kPanelOvenFile, earnings.oven, {kLeftX, kLowerY}, kLeftNumberX);
  ShowCaptioned(kPanelBonusesFile, earnings.bonuses, {kRightX, kLowerY}, kRightNumberX);
}

// Each has its own place beside the others, and comes a little later than the one before.
void CGameOverPanel::ReleaseGhosts(const std::vector<EFate>& fates) {
  unsigned time = kGhostTime;
  for (std::size_t number = 0; number < fates.size(); ++number) {
    if (fates[number] != EFate::kBurnt) {
      continue;
    }
    const int x = kFirstGhostX + static_cast<int>(number) * kGhostStep;
    if (vask::CSprite* const ghost = ShowPicture(kGhostFile, {x, kGhostStartY})) {
      new vask::CExternalAnimator(new vask::CSpriteMoveToUpdator(ghost, x, kGhostEndY), time, "",
                                  false);
    }
    time += kGhostDelay;
  }
}

}  // namespace brumble
