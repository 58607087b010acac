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

// The margin of an AABB beyond the exact extents, as a share of the body's size. Rounding alone
// needs far less; without a margin, a touch that the narrow phase finds could be rejected. The
// absolute part is for shapes so small that their squares vanish.
constexpr float kMarginShare = 0.001F;
constexpr float kMarginSlack = 1.0e-6F;

// Beyond this, distances and their squares need not be finite, and the narrow phase decides alone.
constexpr float kMaxBounded = 1.0e18F;

// As many bodies are compared together; the packed arrays are padded to whole blocks.
constexpr std::size_t kBlock = 16;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

SVec2 Position(const CPhysicsBody& body) { return {body.x, body.y}; }
SVec2 Half(const CPhysicsBody& body) { return {body.halfWidth, body.halfHeight}; }

// -0 equals 0 but has another sine, and NaN equals nothing.
bool IsSameBits(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

bool IsBounded(const CPhysicsBody& body) {
  return std::abs(body.x) <= kMaxBounded && std::abs(body.y) <= kMaxBounded;
}

// The half extents of the AABB. They are NaN when the angle has no direction, and then meet all.
SVec2 AabbHalf(const CPhysicsBody& body, const SOrientedBox& box) {
  const float w = std::abs(body.halfWidth);
  if (body.shape == kCircle) {
    const float half = w + kMarginShare * w + kMarginSlack;
    return {half, half};
  }
  const float h = std::abs(body.halfHeight);
  const float c = std::abs(box.axis[0].x);
  const float s = std::abs(box.axis[0].y);
  const float margin = kMarginShare * (w + h) + kMarginSlack;
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
  myHalfX.resize(size);
  myHalfY.resize(size);
  myShapes.resize(size);
  myBoxes.resize(size);
  myOverlaps.resize(size);
}

void CContactGenerator::Generate(std::vector<CPhysicsBody>& bodies, CContactBuffer& contacts) {
  contacts.Clear();
  Prepare(bodies);
  for (std::size_t i = 0; i < myCount; ++i) {
    MarkOverlaps(i);
    for (std::size_t j = NextOverlap(i + 1); j < myCount; j = NextOverlap(j + 1)) {
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

// Most walls never change, and the axes of a body that only moves stay too.
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
  const SVec2 half = IsBounded(body) ? AabbHalf(body, box) : SVec2{kInfinity, kInfinity};
  myX[index] = body.x;
  myY[index] = body.y;
  myHalfX[index] = half.x;
  myHalfY[index] = half.y;
}

// The broad phase: marks every body after `first` whose AABB meets that of `first`. NaN counts as
// an overlap, so that the narrow phase decides. Whole blocks are marked; the marks before the
// bodies in question and after them mean nothing.
void CContactGenerator::MarkOverlaps(std::size_t first) {
  const float x = myX[first];
  const float y = myY[first];
  const float halfX = myHalfX[first];
  const float halfY = myHalfY[first];
  for (std::size_t j = (first + 1) / kBlock * kBlock; j < myCount; j += kBlock) {
    const float* const xs = &myX[j];
    const float* const ys = &myY[j];
    const float* const halvesX = &myHalfX[j];
    const float* const halvesY = &myHalfY[j];
    std::array<unsigned char, kBlock> overlaps;
    for (std::size_t k = 0; k < kBlock; ++k) {
      const bool isApartX = std::abs(xs[k] - x) > halvesX[k] + halfX;
      const bool isApartY = std::abs(ys[k] - y) > halvesY[k] + halfY;
      // A bitwise or: without a branch, several bodies can be compared at a time.
      overlaps[k] = static_cast<unsigned char>(!(isApartX | isApartY));
    }
    std::memcpy(&myOverlaps[j], overlaps.data(), kBlock);
  }
}

// The next marked body, or the body count. Reads eight marks at a time.
std::size_t CContactGenerator::NextOverlap(std::size_t from) const {
  std::size_t j = from;
  for (std::uint64_t marks = 0; j + sizeof marks <= myCount; j += sizeof marks) {
    std::memcpy(&marks, &myOverlaps[j], sizeof marks);
    if (marks != 0) {
      break;
    }
  }
  while (j < myCount && myOverlaps[j] == 0) {
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
