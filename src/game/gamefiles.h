#pragma once

#include <array>

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

// All sprite files above; their pictures are decoded before the first game.
inline constexpr std::array kSpriteFiles = {
    kTitleScreenFile, kHelpScreenFile, kHelpBubblesFile, kGameOverFile,    kPausedFile,
    kBackgroundFile,  kScoreSignFile,  kKittensLeftFile, kKittenSignsFile, kOvenFile,
    kOvenBurningFile, kHellfireFile,   kLoseHairFile,    kHitSmallFile,    kHitBigFile,
};

inline constexpr const char* kBurnSound = "data/sfx/kitten_burn.wav";
// Followed by the number of the sound and the ending.
inline constexpr const char* kHitSoundStart = "data/sfx/kitten_0";
inline constexpr const char* kHitSoundEnd = ".wav";
inline constexpr int kHitSounds = 5;

}  // namespace brumble
