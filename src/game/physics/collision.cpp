#include "game/physics/collision.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace brumble {
namespace {

// Clamps to [-half, half] and returns the square of what was cut off.
float ClampToHalf(float& value, float half) {
  const float before = value;
  if (value < -half) {
    value = -half;
  } else if (value > half) {
    value = half;
  } else {
    return 0.0F;
  }
  const float cut = before - value;
  return cut * cut;
}

// The separating axis test: the axis of least penetration, counted A0, A1, B0, B1, or nothing when
// one of them separates the boxes. Of equals the earlier one wins. The axes of a box are at right
// angles, so two products of axes tell all eight, but for their signs.
std::optional<std::size_t> FindLeastPenetration(const SOrientedBox& a, const SOrientedBox& b,
                                                SVec2 d) {
  const float along = std::abs(Dot(a.axis[0], b.axis[0]));
  const float across = std::abs(Dot(a.axis[0], b.axis[1]));
  const std::array<float, 4> penetration = {
      a.ownRadius[0] + (along * b.half.x + across * b.half.y) - std::abs(Dot(d, a.axis[0])),
      a.ownRadius[1] + (across * b.half.x + along * b.half.y) - std::abs(Dot(d, a.axis[1])),
      b.ownRadius[0] + (along * a.half.x + across * a.half.y) - std::abs(Dot(d, b.axis[0])),
      b.ownRadius[1] + (across * a.half.x + along * a.half.y) - std::abs(Dot(d, b.axis[1]))};
  // Bitwise: which axis separates can't be foretold, and half of the pairs have none.
  if ((penetration[0] < 0.0F) | (penetration[1] < 0.0F) | (penetration[2] < 0.0F) |
      (penetration[3] < 0.0F)) {
    return std::nullopt;
  }
  std::size_t best = 0;
  float least = penetration[0];
  for (std::size_t number = 1; number < penetration.size(); ++number) {
    if (penetration[number] < least) {
      best = number;
      least = penetration[number];
    }
  }
  return best;
}

// The reference face: its outward normal and its ends.
struct SFace {
  SVec2 normal;
  SVec2 first;
  SVec2 second;
};

// The face on the axis that looks at the other box, which lies where `toOther` points. When the
// axis is perpendicular to that, neither side is nearer, and the negative face is taken.
SFace FindReferenceFace(const SOrientedBox& box, std::size_t axisOfBox, SVec2 toOther) {
  static constexpr std::size_t kCornersOfFace[4][2] = {{1, 3}, {0, 2}, {2, 3}, {0, 1}};
  const SVec2 u = box.axis[axisOfBox];
  const bool isNegative = !(Dot(u, toOther) > 0.0F);
  const std::size_t code = 2 * axisOfBox + (isNegative ? 1 : 0);
  return {isNegative ? -u : u, box.corner[kCornersOfFace[code][0]],
          box.corner[kCornersOfFace[code][1]]};
}

// A bit for each corner of the box that is on the inner side of the face.
std::uint32_t FindIncidentCorners(const SOrientedBox& box, const SFace& face) {
  std::uint32_t inside = 0;
  for (std::size_t number = 0; number < box.corner.size(); ++number) {
    const bool isInside = Dot(box.corner[number] - face.first, face.normal) < 0.0F;
    inside |= static_cast<std::uint32_t>(isInside) << number;
  }
  return inside;
}

SVec2 LowestCorner(const SOrientedBox& box, std::uint32_t corners) {
  return box.corner[static_cast<std::size_t>(std::countr_zero(corners))];
}

SPointPair TouchFace(const SMeasuredSegment& face, SVec2 corner, bool isFaceOfA) {
  const SVec2 onFace = ClosestPointOnSegment(face, corner);
  return isFaceOfA ? SPointPair{onFace, corner} : SPointPair{corner, onFace};
}

}  // namespace

std::optional<STouch> CircleCircle(SVec2 posA, float radiusA, SVec2 posB, float radiusB) {
  const SVec2 apart = posA - posB;
  const float distance = Length(apart);
  const SVec2 normal = Normalised(apart, distance);
  if (!(distance <= radiusA + radiusB && distance >= radiusA && distance >= radiusB)) {
    return std::nullopt;
  }
  return STouch{{posA - normal * radiusA, posB + normal * radiusB}, normal};
}

std::optional<STouch> CircleBox(SVec2 circle, float radius, SVec2 box, SVec2 half, float angle) {
  return CircleBox(circle, radius, SOrientedBox(box, half, Direction(angle)));
}

std::optional<STouch> CircleBox(SVec2 circle, float radius, const SOrientedBox& box) {
  const float cs = box.axis[0].x;
  const float sn = box.axis[0].y;
  const SVec2 delta = circle - box.centre;
  SVec2 local = {delta.x * cs + delta.y * sn, delta.y * cs - delta.x * sn};
  const float excessX = ClampToHalf(local.x, box.half.x);
  const float excessY = ClampToHalf(local.y, box.half.y);
  if (!(excessX + excessY <= radius * radius)) {
    return std::nullopt;
  }
  if (excessX == 0.0F && excessY == 0.0F) {
    // The centre is inside. Turned back into the world it would come out slightly moved, and the
    // rounding error would be taken for a direction.
    return STouch{{circle, circle}, {}};
  }
  const SVec2 onBox = box.centre + SVec2{local.x * cs - local.y * sn, local.x * sn + local.y * cs};
  const SVec2 apart = circle - onBox;
  const SVec2 normal = Normalised(apart, Length(apart));
  return STouch{{circle - normal * radius, onBox}, normal};
}

std::optional<SBoxTouch> BoxBox(SVec2 posA, SVec2 halfA, float angleA, SVec2 posB, SVec2 halfB,
                                float angleB) {
  return BoxBox(SOrientedBox(posA, halfA, Direction(angleA)),
                SOrientedBox(posB, halfB, Direction(angleB)));
}

std::optional<SBoxTouch> BoxBox(const SOrientedBox& a, const SOrientedBox& b) {
  // Returned everywhere, so that it is built in place: a copy costs much.
  std::optional<SBoxTouch> result;
  const std::optional<std::size_t> best = FindLeastPenetration(a, b, b.centre - a.centre);
  if (!best) {
    return result;
  }
  const bool isReferenceA = *best < 2;
  const SOrientedBox& reference = isReferenceA ? a : b;
  const SOrientedBox& other = isReferenceA ? b : a;
  const SFace face = FindReferenceFace(reference, *best % 2, other.centre - reference.centre);
  const std::uint32_t corners = FindIncidentCorners(other, face);
  const std::uint32_t furtherCorners = corners & (corners - 1);
  if (corners == 0 || (furtherCorners & (furtherCorners - 1)) != 0) {
    return result;
  }
  SBoxTouch& touch = result.emplace();
  touch.normal = isReferenceA ? -face.normal : face.normal;
  const SVec2 corner = LowestCorner(other, corners);
  const SMeasuredSegment line(face.first, face.second);
  if (furtherCorners == 0) {
    touch.count = 1;
    touch.points[0] = TouchFace(line, corner, isReferenceA);
    return result;
  }
  const SSegment edge =
      ClipSegmentToBox(corner, LowestCorner(other, furtherCorners), reference.centre,
                       reference.axis[0], reference.axis[1], reference.half);
  touch.count = 2;
  touch.points = {TouchFace(line, edge.a, isReferenceA), TouchFace(line, edge.b, isReferenceA)};
  return result;
}

}  // namespace brumble
