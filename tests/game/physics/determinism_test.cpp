#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <string>
#include <vector>

#include "game/physics/arena.h"
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

Bits BitsOf(const CPhysicsBody& body) {
  const auto bits = [](auto value) { return std::bit_cast<std::uint32_t>(value); };
  return {bits(body.shape),
          bits(body.halfWidth),
          bits(body.halfHeight),
          bits(body.x),
          bits(body.y),
          bits(body.angle),
          bits(body.vx),
          bits(body.vy),
          bits(body.angularVelocity),
          bits(body.invMass),
          bits(body.invInertia),
          bits(body.kind),
          bits(body.look),
          bits(body.bridge->myHealth)};
}

// FNV-1a, byte by byte from the lowest.
void Mix(std::uint64_t& hash, std::uint32_t value) {
  for (int byte = 0; byte < 4; ++byte) {
    hash = (hash ^ ((value >> (8 * byte)) & 0xFFU)) * 0x100000001B3U;
  }
}

std::uint64_t HashOf(const std::vector<CPhysicsBody>& bodies) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const CPhysicsBody& body : bodies) {
    for (const std::uint32_t value : BitsOf(body)) {
      Mix(hash, value);
    }
  }
  Mix(hash, static_cast<std::uint32_t>(bodies.size()));
  return hash;
}

std::string RowsOf(const std::vector<CPhysicsBody>& bodies) {
  std::string rows;
  for (const CPhysicsBody& body : bodies) {
    rows += "{";
    for (const std::uint32_t value : BitsOf(body)) {
      char text[16];
      std::snprintf(text, sizeof text, "0x%X, ", static_cast<unsigned>(value));
      rows += text;
    }
    rows += "},\n";
  }
  return rows;
}

// The first body and field that differ from the reference; empty when none does.
std::string FirstDifference(const std::vector<CPhysicsBody>& bodies) {
  for (std::size_t i = 0; i < std::min(bodies.size(), std::size(kReference)); ++i) {
    const Bits bits = BitsOf(bodies[i]);
    for (std::size_t k = 0; k < bits.size(); ++k) {
      if (bits[k] != kReference[i][k]) {
        return "body " + std::to_string(i) + ", " + kFields[k];
      }
    }
  }
  return bodies.size() != std::size(kReference) ? "the number of bodies" : "";
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

using CDeterminismTest = CWorldTest;

TEST_F(CDeterminismTest, ASceneEndsInTheSameBitsInEveryBuild) {
  WorldState() = {};
  EventLog log;
  CLoggingFactory factory(log);
  CPhysicsHandle handle;
  handle.GetWorld()->SetBridgeFactory(&factory);
  handle.ResetWorld();
  PlayScene(handle);
  const std::vector<CPhysicsBody>& bodies = handle.GetWorld()->GetBodies();
  EXPECT_EQ(FirstDifference(bodies), "");
  EXPECT_EQ(HashOf(bodies), kHash) << std::hex << HashOf(bodies) << "\n" << RowsOf(bodies);
}

}  // namespace
}  // namespace brumble
