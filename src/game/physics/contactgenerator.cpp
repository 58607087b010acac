#include "game/physics/contactgenerator.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

namespace brumble {
namespace {

// What the bounding test allows beyond the exact extents, as a share of the body's size. Rounding
// alone needs far less; with none, a touch that the exact test sees could be turned away. The
// absolute part keeps squares of the tiniest shapes from vanishing.
constexpr float kReachShare = 0.001F;
constexpr float kReachSlack = 1.0e-6F;

// Beyond this, distances and their squares need not be finite, and the exact tests decide alone.
constexpr float kMaxBounded = 1.0e18F;

// So many bodies are compared together; the packed arrays are padded to whole blocks.
constexpr std::size_t kBlock = 16;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

SVec2 Position(const CPhysicsBody& body) { return {body.x, body.y}; }
SVec2 Half(const CPhysicsBody& body) { return {body.halfWidth, body.halfHeight}; }

// -0 equals 0 but has another sine, and a value that is not a number equals nothing.
bool IsSameBits(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

bool IsBounded(const CPhysicsBody& body) {
  return std::abs(body.x) <= kMaxBounded && std::abs(body.y) <= kMaxBounded;
}

// Half the upright bounding box. Without a direction it is not a number, and as good as boundless.
SVec2 BoundingReach(const CPhysicsBody& body, const SOrientedBox& box) {
  const float w = std::abs(body.halfWidth);
  if (body.shape == kCircle) {
    const float reach = w + kReachShare * w + kReachSlack;
    return {reach, reach};
  }
  const float h = std::abs(body.halfHeight);
  const float c = std::abs(box.axis[0].x);
  const float s = std::abs(box.axis[0].y);
  const float margin = kReachShare * (w + h) + kReachSlack;
  return {c * w + s * h + margin, s * w + c * h + margin};
}

void Append(CContactBuffer& contacts, CPhysicsBody& a, CPhysicsBody& b, const SPointPair& points,
            SVec2 normal) {
  contacts.Append(
      {&a, &b, points.pointA, points.pointB, normal, points.pointA * 0.5F + points.pointB * 0.5F});
}

void AppendCircleBox(CContactBuffer& contacts, CPhysicsBody& circle, CPhysicsBody& body,
                     const SOrientedBox& box) {
  const std::optional<STouch> touch = CircleBox(Position(circle), circle.halfWidth, box);
  if (touch) {
    Append(contacts, circle, body, touch->points, touch->normal);
  }
}

}  // namespace

void CContactGenerator::Reserve(std::size_t bodies) {
  if (bodies <= myX.size()) {
    return;
  }
  const std::size_t size = (bodies + kBlock - 1) / kBlock * kBlock;
  myX.resize(size);
  myY.resize(size);
  myReachX.resize(size);
  myReachY.resize(size);
  myShapes.resize(size);
  myBoxes.resize(size);
  myNear.resize(size);
}

void CContactGenerator::Generate(std::vector<CPhysicsBody>& bodies, CContactBuffer& contacts) {
  contacts.Clear();
  Prepare(bodies);
  for (std::size_t i = 0; i < myCount; ++i) {
    MarkNear(i);
    for (std::size_t j = NextNear(i + 1); j < myCount; j = NextNear(j + 1)) {
      if (contacts.IsFull()) {
        return;
      }
      TestPair(bodies, i, j, contacts);
    }
  }
}

void CContactGenerator::Prepare(const std::vector<CPhysicsBody>& bodies) {
  Reserve(bodies.size());
  myCount = bodies.size();
  for (std::size_t i = 0; i < myCount; ++i) {
    PrepareBody(i, bodies[i]);
  }
}

// A wall stays as it was made, and the axes of what only moves stay too.
void CContactGenerator::PrepareBody(std::size_t index, const CPhysicsBody& body) {
  SShape& known = myShapes[index];
  const bool isTurned = body.shape != known.shape || !IsSameBits(body.angle, known.angle);
  const bool isMoved = !IsSameBits(body.x, known.x) || !IsSameBits(body.y, known.y);
  const bool isResized = !IsSameBits(body.halfWidth, known.halfWidth) ||
                         !IsSameBits(body.halfHeight, known.halfHeight);
  if (!isTurned && !isMoved && !isResized) {
    return;
  }
  known = {body.shape, body.halfWidth, body.halfHeight, body.x, body.y, body.angle};
  SOrientedBox& box = myBoxes[index];
  if (body.shape != kCircle) {
    box = SOrientedBox(Position(body), Half(body), isTurned ? Direction(body.angle) : box.axis[0]);
  }
  const SVec2 reach = IsBounded(body) ? BoundingReach(body, box) : SVec2{kInfinity, kInfinity};
  myX[index] = body.x;
  myY[index] = body.y;
  myReachX[index] = reach.x;
  myReachY[index] = reach.y;
}

// Marks every body after `first` whose bounding box meets that of `first`. What cannot be compared
// counts as near, so that whatever the exact tests make of it stays as it is. Whole blocks are
// marked, so the marks before and behind the bodies in question mean nothing.
void CContactGenerator::MarkNear(std::size_t first) {
  const float x = myX[first];
  const float y = myY[first];
  const float reachX = myReachX[first];
  const float reachY = myReachY[first];
  for (std::size_t j = (first + 1) / kBlock * kBlock; j < myCount; j += kBlock) {
    const float* const xs = &myX[j];
    const float* const ys = &myY[j];
    const float* const reachesX = &myReachX[j];
    const float* const reachesY = &myReachY[j];
    std::array<unsigned char, kBlock> near;
    for (std::size_t k = 0; k < kBlock; ++k) {
      const bool isApartX = std::abs(xs[k] - x) > reachesX[k] + reachX;
      const bool isApartY = std::abs(ys[k] - y) > reachesY[k] + reachY;
      // Joined bit by bit: no branch, so that several bodies can be compared at a time.
      near[k] = static_cast<unsigned char>(!(isApartX | isApartY));
    }
    std::memcpy(&myNear[j], near.data(), kBlock);
  }
}

// The next marked body, the body count for none; eight marks are looked at together.
std::size_t CContactGenerator::NextNear(std::size_t from) const {
  std::size_t j = from;
  for (std::uint64_t marks = 0; j + sizeof marks <= myCount; j += sizeof marks) {
    std::memcpy(&marks, &myNear[j], sizeof marks);
    if (marks != 0) {
      break;
    }
  }
  while (j < myCount && myNear[j] == 0) {
    ++j;
  }
  return j;
}

void CContactGenerator::TestPair(std::vector<CPhysicsBody>& bodies, std::size_t i, std::size_t j,
                                 CContactBuffer& contacts) const {
  CPhysicsBody& a = bodies[i];
  CPhysicsBody& b = bodies[j];
  if (a.kind == kStatic && b.kind == kStatic) {
    return;
  }
  if (a.shape == kCircle && b.shape == kCircle) {
    const std::optional<STouch> touch =
        CircleCircle(Position(a), a.halfWidth, Position(b), b.halfWidth);
    if (touch) {
      Append(contacts, a, b, touch->points, touch->normal);
    }
  } else if (a.shape == kCircle) {
    AppendCircleBox(contacts, a, b, myBoxes[j]);
  } else if (b.shape == kCircle) {
    // The circle is always A, whatever the order of the bodies.
    AppendCircleBox(contacts, b, a, myBoxes[i]);
  } else if (const std::optional<SBoxTouch> touch = BoxBox(myBoxes[i], myBoxes[j])) {
    for (int k = 0; k < touch->count; ++k) {
      Append(contacts, a, b, touch->points[static_cast<std::size_t>(k)], touch->normal);
    }
  }
}

}  // namespace brumble
