#include <bit>
#include <sstream>

#include "game/physics/physics_support.h"
#include "game/physics/physicshandle.h"

namespace brumble {
namespace {

// The end of the scene, as every build must reach it. After a change that means to move bodies,
// the failing test prints the rows to put here, and the hash.
constexpr std::uint64_t kHash = 0xE4E874A7D5B59DFB;
constexpr const char* kReference =
#include "game/physics/determinism_reference.inc"
    ;

template <typename T>
std::uint32_t Bits(T value) {
  return std::bit_cast<std::uint32_t>(value);
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
  std::uint64_t hash = 0xCBF29CE484222325U;  // FNV-1a, byte by byte from the lowest
  const auto mix = [&hash](std::uint32_t value) {
    for (int byte = 0; byte < 4; ++byte) {
      hash = (hash ^ ((value >> (8 * byte)) & 0xFFU)) * 0x100000001B3U;
    }
  };
  std::istringstream reference(kReference);
  std::ostringstream rows;
  std::string difference;  // the first body and field that are not as they should be
  std::uint32_t index = 0;
  for (const CPhysicsBody& b : handle.GetWorld()->GetBodies()) {
    // clang-format off
    const std::pair<const char*, std::uint32_t> fields[] = {
        {"shape", Bits(b.shape)}, {"halfWidth", Bits(b.halfWidth)}, {"halfHeight", Bits(b.halfHeight)},
        {"x", Bits(b.x)}, {"y", Bits(b.y)}, {"angle", Bits(b.angle)}, {"vx", Bits(b.vx)}, {"vy", Bits(b.vy)},
        {"angularVelocity", Bits(b.angularVelocity)}, {"invMass", Bits(b.invMass)},
        {"invInertia", Bits(b.invInertia)}, {"kind", Bits(b.kind)}, {"look", Bits(b.look)},
        {"bridge's myHealth", Bits(b.bridge->myHealth)}};
    // clang-format on
    for (const auto& [name, bits] : fields) {
      std::uint32_t expected = 0;
      reference >> std::hex >> expected;
      if (difference.empty() && bits != expected) {
        difference = "body " + std::to_string(index) + ", " + name;
      }
      mix(bits);
      rows << std::hex << bits << " ";
    }
    rows << "\n";
    ++index;
  }
  mix(index);
  EXPECT_EQ(difference, "");
  EXPECT_EQ(hash, kHash) << std::hex << hash << "\n" << rows.str();
}

}  // namespace
}  // namespace brumble
