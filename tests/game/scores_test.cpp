#include "game/scores.h"

#include "platform/filelock.h"
#include "platform/wallclock.h"
#include "support/files.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

namespace brumble {
namespace {

using vask::test::FileText;

SScore Score(int points) { return {.score = points, .date = "2026-11-25", .more = ""}; }

class Scores : public ::testing::Test {
 protected:
  ~Scores() override { std::filesystem::remove(kScoresFile); }

  vask::test::CLogCapture log;
};

TEST_F(Scores, AreKeptBestFirstAndAfterEqualOnes) {
  EXPECT_EQ(BestScore(), 0) << "no file";
  vask::platform::SetWallClock([] { return std::int64_t{1767225600 + 43200}; });  // noon
  EXPECT_EQ(EnterScore({.score = 500, .date = Today(), .recording = "first", .more = ""}), 1);
  vask::platform::SetWallClock(nullptr);
  EXPECT_EQ(EnterScore({.score = 500, .date = "2026-01-02", .recording = "second", .more = ""}), 2);
  EXPECT_EQ(EnterScore({.score = 700, .date = "2026-01-03", .more = ""}), 1);
  EXPECT_EQ(FileText(kScoresFile),
            "700 2026-01-03 -\n500 2026-01-01 first\n500 2026-01-02 second\n");
  EXPECT_EQ(BestScore(), 700);
}

TEST_F(Scores, OnlyTheTenBestAreKept) {
  for (int points = 10; points <= 100; points += 10) {
    EXPECT_EQ(EnterScore(Score(points)), 1);
  }
  EXPECT_EQ(EnterScore(Score(10)), 0) << "as good as the last one, but later";
  EXPECT_EQ(EnterScore(Score(11)), 10);
  EXPECT_EQ(ReadScores()->size(), kBestScores);
}

TEST_F(Scores, UnknownFieldsAreKeptAndBrokenLinesReportedOnce) {
  vask::test::WriteFile(kScoresFile,
                        "200 2026-01-01 game.rec new field\nnonsense\n100 20x6-01-01 -\n"
                        "99999999999 2026-01-01 -\n300 2026-1--01 -\n300 2026-01-1 -\n");
  EXPECT_EQ(EnterScore(Score(100)), 2);
  EXPECT_EQ(FileText(kScoresFile), "200 2026-01-01 game.rec new field\n100 2026-11-25 -\n");
  ReadScores();
  EXPECT_EQ(log.Lines().size(), 1U) << log.Text();
  EXPECT_TRUE(log.Has("Scores: a line of scores.txt is no score: nonsense"));
}

TEST_F(Scores, LockedFileIsReportedAndLeftAsItIs) {
  EnterScore(Score(100));
  const vask::platform::CFileLock other("scores.lock", 0);
  ASSERT_TRUE(other.IsHeld());
  EXPECT_EQ(EnterScore(Score(200)), 1);
  EXPECT_TRUE(log.Has("Scores: scores.txt can't be written"));
  EXPECT_EQ(FileText(kScoresFile), "100 2026-11-25 -\n");
}

TEST_F(Scores, WritingThatFailsIsTriedOnceMore) {
  // A link to nowhere can't be written. It is gone when it is tried again.
  std::filesystem::create_symlink("missing/file", "scores.new");
  EnterScore(Score(300));
  EXPECT_EQ(FileText(kScoresFile), "300 2026-11-25 -\n");
  // A folder with something in it stays in the way.
  std::filesystem::create_directories("scores.new/kept");
  EnterScore(Score(200));
  EXPECT_TRUE(log.Has("Scores: scores.txt can't be written"));
  EXPECT_EQ(FileText(kScoresFile), "300 2026-11-25 -\n");
  std::filesystem::remove_all("scores.new");
}

}  // namespace
}  // namespace brumble
