#include "game/physics/physicshandle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "game/physics/arena.h"
#include "game/physics/physics_support.h"

namespace brumble {
namespace {

// Where the monster would head for, from the direction it takes.
TEST(PhysicsHandle, TheMouseIsSqueezedIntoThePit) {
  struct CCase {
    int x, y;
    float worldX, worldY;
  };
  const CCase cases[] = {{0, 0, -287.0F / 6.0F, -280.0F / 6.0F},
                         {800, 600, 284.0F / 6.0F, 280.0F / 6.0F},
                         {400, 0, -1.5F / 6.0F, -280.0F / 6.0F}};
  for (const CCase& c : cases) {
    CPhysicsHandle handle;
    handle.ResetWorld();
    handle.SetMousePosition(c.x, c.y);
    const CPhysicsBody& monster = handle.GetWorld()->GetBodies()[kMonsterIndex];
    EXPECT_NEAR(monster.vx / monster.vy, c.worldX / c.worldY, 1.0e-4F) << c.x << " " << c.y;
    EXPECT_NEAR(std::hypot(monster.vx, monster.vy), 75.0F, 1.0e-3F);
    EXPECT_EQ(std::signbit(monster.vy), std::signbit(c.worldY));
    handle.Step(10);
    EXPECT_FLOAT_EQ(monster.y, monster.vy * 0.01F);
  }
}

void DropWorldOf(CPhysicsHandle& handle) { CPhysicsHandle(std::move(handle)); }

TEST(PhysicsHandle, DoesNothingWithoutAWorld) {
  CPhysicsHandle handle;
  EXPECT_EQ(handle.SpawnKitten(), 8);
  DropWorldOf(handle);
  handle.SetMousePosition(1, 2);
  handle.Step(15);
  handle.ResetWorld();
  EXPECT_EQ(handle.SpawnKitten(), 0);
}

}  // namespace
}  // namespace brumble
