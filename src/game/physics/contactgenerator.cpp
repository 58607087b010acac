#include "game/physics/contactgenerator.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
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

// The half extents of an AABB that meets all others.
constexpr float kUnbounded = std::numeric_limits<float>::max();

SVec2 Position(const CPhysicsBody& body) { return {body.x, body.y}; }
SVec2 Half(const CPhysicsBody& body) { return {body.halfWidth, body.halfHeight}; }

// -0 equals 0 but has another sine, and NaN equals nothing.
bool IsSameBits(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

// The half extents of the AABB. They are NaN when the angle has no direction.
SVec2 AabbHalf(const CPhysicsBody& body, SVec2 axis) {
  const float w = std::abs(body.halfWidth);
  if (body.shape == kCircle) {
    const float half = w + kMarginShare * w + kMarginSlack;
    return {half, half};
  }
  const float h = std::abs(body.halfHeight);
  const float c = std::abs(axis.x);
  const float s = std::abs(axis.y);
  const float margin = kMarginShare * (w + h) + kMarginSlack;
  return {c * w + s * h + margin, s * w + c * h + margin};
}

bool IsBounded(SVec2 v) { return std::abs(v.x) <= kMaxBounded && std::abs(v.y) <= kMaxBounded; }

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
  if (bodies > myShapes.size()) {
    myShapes.resize(bodies);
    myBoxes.resize(bodies);
  }
  if (myBroadPhase.Reserve(bodies)) {
    std::fill(myShapes.begin(), myShapes.end(), SShape());
  }
}

void CContactGenerator::Generate(std::vector<CPhysicsBody>& bodies, CContactBuffer& contacts) {
  contacts.Clear();
  Prepare(bodies);
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    for (const std::size_t j : myBroadPhase.FindMeeting(i, bodies.size())) {
      if (contacts.IsFull()) {
        return;
      }
      TestPair(bodies, i, j, contacts);
    }
  }
}

void CContactGenerator::Prepare(const std::vector<CPhysicsBody>& bodies) {
  Reserve(bodies.size());
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    PrepareBody(i, bodies[i]);
  }
}

// Most walls never change, and the axes of a body that only moves stay too.
void CContactGenerator::PrepareBody(std::size_t index, const CPhysicsBody& body) {
  SShape& known = myShapes[index];
  SOrientedBox& box = myBoxes[index];
  const SVec2 position = Position(body);
  const SVec2 half = Half(body);
  SVec2 aabbHalf = known.aabbHalf;
  if (body.shape != known.shape || !IsSameBits(body.angle, known.angle) ||
      !IsSameBits(body.halfWidth, box.half.x) || !IsSameBits(body.halfHeight, box.half.y)) {
    const SVec2 axis = Direction(body.angle);
    box.Turn(half, axis);
    aabbHalf = AabbHalf(body, axis);
    known = {body.shape, body.angle, aabbHalf};
  } else if (IsSameBits(body.x, box.centre.x) && IsSameBits(body.y, box.centre.y)) {
    return;
  }
  box.MoveTo(position);
  if (IsBounded(position) && IsBounded(aabbHalf)) {
    myBroadPhase.Put(index, position, aabbHalf);
  } else {
    myBroadPhase.Put(index, {}, {kUnbounded, kUnbounded});
  }
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
