#pragma once

#include <array>
#include <string>

namespace brumble {

// The data files that the game names itself. The signs of the bonuses are in bonustable.h, the
// looks of a kitten in brumblegfx.cpp.

inline constexpr const char* kSpriteTableFile = "data/gfx/gfx_resources.xml";
inline constexpr const char* kSpriteTableRoot = "GfxFactory";
inline constexpr const char* kDigitsFontFile = "data/gfx/numbers.ogf";

inline constexpr const char* kTitleScreenFile = "data/gfx/title_screen.xml";
inline constexpr const char* kHelpScreenFile = "data/gfx/help_screen.xml";
inline constexpr const char* kHelpBubblesFile = "data/gfx/help_bubbles.xml";
inline constexpr const char* kGameOverFile = "data/gfx/gameover.xml";
inline constexpr const char* kPausedFile = "data/gfx/paused.xml";
inline constexpr const char* kBackgroundFile = "data/gfx/background.xml";

inline constexpr const char* kScoreSignFile = "data/gfx/score_sign.xml";
inline constexpr const char* kKittensLeftFile = "data/gfx/kittens_left.xml";
inline constexpr const char* kKittenSignsFile = "data/gfx/kitten_signs.xml";
inline constexpr const char* kOvenFile = "data/gfx/oven.xml";

inline constexpr const char* kOvenBurningFile = "data/gfx/oven_burning.xml";
inline constexpr const char* kHellfireFile = "data/gfx/hellfire.xml";
inline constexpr const char* kLoseHairFile = "data/gfx/kitten_lose_hair.xml";
inline constexpr const char* kHitSmallFile = "data/gfx/kitten_hit_small.xml";
inline constexpr const char* kHitBigFile = "data/gfx/kitten_hit_big.xml";

inline constexpr const char* kMonsterPupilFile = "data/gfx/monster_pupil.xml";
inline constexpr const char* kLampsFile = "data/gfx/lamps.xml";
inline constexpr const char* kOvenBreathFile = "data/gfx/oven_breath.xml";
inline constexpr const char* kFatePlateFile = "data/gfx/fate_plate.xml";
inline constexpr const char* kFateGhostFile = "data/gfx/fate_ghost.xml";
inline constexpr const char* kFateLeftFile = "data/gfx/fate_left.xml";

inline constexpr const char* kHintSpinFile = "data/gfx/hint_spin.xml";
inline constexpr const char* kHintLampsFile = "data/gfx/hint_lamps.xml";
inline constexpr const char* kHintDoorFile = "data/gfx/hint_door.xml";

inline constexpr const char* kPanelScoreFile = "data/gfx/panel_score.xml";
inline constexpr const char* kPanelPlaceFile = "data/gfx/panel_place.xml";
inline constexpr const char* kPanelNewBestFile = "data/gfx/panel_new_best.xml";
inline constexpr const char* kPanelShortFile = "data/gfx/panel_short.xml";
inline constexpr const char* kPanelSpinsFile = "data/gfx/panel_spins.xml";
inline constexpr const char* kPanelWallsFile = "data/gfx/panel_walls.xml";
inline constexpr const char* kPanelOvenFile = "data/gfx/panel_oven.xml";
inline constexpr const char* kPanelBonusesFile = "data/gfx/panel_bonuses.xml";
inline constexpr const char* kGhostFile = "data/gfx/ghost.xml";
inline constexpr const char* kTitleBestFile = "data/gfx/title_best.xml";

// The sprites of play and its screens; their pictures are decoded before the first game.
inline constexpr const char* kDemoFile = "data/gfx/demo.xml";
inline constexpr const char* kDemoRecording = "data/demo.replay";

inline constexpr std::array kSpriteFiles = {
    kTitleScreenFile,  kHelpScreenFile, kHelpBubblesFile, kGameOverFile,    kPausedFile,
    kBackgroundFile,   kScoreSignFile,  kKittensLeftFile, kKittenSignsFile, kOvenFile,
    kOvenBurningFile,  kHellfireFile,   kLoseHairFile,    kHitSmallFile,    kHitBigFile,
    kMonsterPupilFile, kLampsFile,      kOvenBreathFile,  kFatePlateFile,   kFateGhostFile,
    kFateLeftFile,     kHintSpinFile,   kHintLampsFile,   kHintDoorFile,    kGhostFile,
    kDemoFile,
};

// The mark of a kitten above the screen, by its hair: 1 full, 2 thinning, 3 bald.
inline std::string AboveMarkerFile(int hair) {
  return "data/gfx/above_0" + std::to_string(hair) + ".xml";
}

// The verdicts on a game, 1 to 8.
inline std::string RankFile(int rank) { return "data/gfx/rank_" + std::to_string(rank) + ".xml"; }

// What a kitten says: the first six when its hair is thinning, the others when it is bald.
inline constexpr int kSayingsOfAHair = 6;
inline std::string SayingFile(int number) {
  return (number < 10 ? "data/gfx/says_0" : "data/gfx/says_") + std::to_string(number) + ".xml";
}

inline constexpr const char* kBurnSound = "data/sfx/kitten_burn.wav";
// Followed by the number of the sound and the ending.
inline constexpr const char* kHitSoundStart = "data/sfx/kitten_0";
inline constexpr const char* kHitSoundEnd = ".wav";
inline constexpr int kHitSounds = 5;

}  // namespace brumble
