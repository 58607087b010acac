#include <array>
#include <bit>
#include <iterator>
#include <sstream>

#include "game/physics/physics_support.h"
#include "game/physics/physicshandle.h"

namespace brumble {
namespace {

constexpr std::array<const char*, 14> kFields = {
    "shape", "halfWidth",       "halfHeight", "x",          "y",    "angle", "vx",
    "vy",    "angularVelocity", "invMass",    "invInertia", "kind", "look",  "bridge's myHealth"};

using Bits = std::array<std::uint32_t, kFields.size()>;

// The end of the scene, as every build must reach it. After a change that means to move bodies,
// the failing test prints the rows to put here, and the hash.
constexpr std::uint64_t kHash = 0xE4E874A7D5B59DFB;
constexpr Bits kReference[] = {
#include "game/physics/determinism_reference.inc"
};

Bits BitsOf(const CPhysicsBody& b) {
  const auto bits = [](auto value) { return std::bit_cast<std::uint32_t>(value); };
  // clang-format off
  return {bits(b.shape), bits(b.halfWidth), bits(b.halfHeight), bits(b.x), bits(b.y), bits(b.angle),
          bits(b.vx), bits(b.vy), bits(b.angularVelocity), bits(b.invMass), bits(b.invInertia),
          bits(b.kind), bits(b.look), bits(b.bridge->myHealth)};
  // clang-format on
}

// FNV-1a, byte by byte from the lowest.
void Mix(std::uint64_t& hash, std::uint32_t value) {
  for (int byte = 0; byte < 4; ++byte) {
    hash = (hash ^ ((value >> (8 * byte)) & 0xFFU)) * 0x100000001B3U;
  }
}

// A player who sweeps through the pit, ever at another height, under a rain of kittens. Integers
// only, so that the script itself has no rounding.
void PlayScene(CPhysicsHandle& handle) {
  for (int step = 0; step < 2000; ++step) {
    if (step % 20 == 0) {
      handle.SpawnKitten();
    }
    const int sweep = step * 23 % 1600;
    handle.SetMousePosition(sweep < 800 ? sweep : 1600 - sweep, 300 + step * 7 % 250);
    handle.Step(15);
  }
}

TEST_F(CWorldTest, ASceneEndsInTheSameBitsInEveryBuild) {
  WorldState() = {};
  CPhysicsHandle handle;
  handle.GetWorld()->SetBridgeFactory(this);
  handle.ResetWorld();
  PlayScene(handle);
  std::uint64_t hash = 0xCBF29CE484222325U;
  std::string difference;  // the first body and field that are not as they should be
  std::ostringstream rows;
  const std::vector<CPhysicsBody>& bodies = handle.GetWorld()->GetBodies();
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    rows << "{" << std::hex;
    for (std::size_t k = 0; k < kFields.size(); ++k) {
      const std::uint32_t bits = BitsOf(bodies[i])[k];
      Mix(hash, bits);
      rows << "0x" << bits << ", ";
      if (difference.empty() && i < std::size(kReference) && bits != kReference[i][k]) {
        difference = "body " + std::to_string(i) + ", " + kFields[k];
      }
    }
    rows << "},\n";
  }
  Mix(hash, static_cast<std::uint32_t>(bodies.size()));
  EXPECT_EQ(difference, "");
  EXPECT_EQ(bodies.size(), std::size(kReference));
  EXPECT_EQ(hash, kHash) << std::hex << hash << "\n" << rows.str();
}

}  // namespace
}  // namespace brumble
