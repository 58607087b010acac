#include "game/physics/collision.h"

#include <cmath>
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
// one of them separates the boxes. Of equals the earlier one wins.
std::optional<std::size_t> FindLeastPenetration(const SOrientedBox& a, const SOrientedBox& b,
                                                SVec2 d) {
  std::size_t best = 0;
  float leastPenetration = 0.0F;
  for (std::size_t number = 0; number < 4; ++number) {
    const bool isOfA = number < 2;
    const std::size_t k = number % 2;
    const SVec2 u = isOfA ? a.axis[k] : b.axis[k];
    const float reach =
        isOfA ? a.ownRadius[k] + b.ProjectedRadius(u) : a.ProjectedRadius(u) + b.ownRadius[k];
    const float distance = std::abs(Dot(d, u));
    if (reach < distance) {
      return std::nullopt;
    }
    const float penetration = reach - distance;
    if (number == 0 || penetration < leastPenetration) {
      best = number;
      leastPenetration = penetration;
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

// The face on the axis that looks at the other box. When the axis is perpendicular to d, neither
// side is nearer, and both A and B use their negative face.
SFace FindReferenceFace(const SOrientedBox& box, std::size_t axisOfBox, bool isBoxA, SVec2 d) {
  static constexpr std::size_t kCornersOfFace[4][2] = {{1, 3}, {0, 2}, {2, 3}, {0, 1}};
  const SVec2 u = box.axis[axisOfBox];
  const float side = Dot(u, d);
  const bool isNegative = isBoxA ? !(side > 0.0F) : side >= 0.0F;
  const std::size_t code = 2 * axisOfBox + (isNegative ? 1 : 0);
  return {isNegative ? -u : u, box.Corner(kCornersOfFace[code][0]),
          box.Corner(kCornersOfFace[code][1])};
}

struct SCorners {
  std::array<SVec2, 2> corner;
  std::size_t count = 0;
};

// The corners of the box on the inner side of the face; none when there are more than two.
SCorners FindIncidentCorners(const SOrientedBox& box, const SFace& face) {
  SCorners found;
  for (std::size_t number = 0; number < 4; ++number) {
    const SVec2 corner = box.Corner(number);
    if (!(Dot(corner - face.first, face.normal) < 0.0F)) {
      continue;
    }
    if (found.count == found.corner.size()) {
      found.count = 0;
      return found;
    }
    found.corner[found.count++] = corner;
  }
  return found;
}

}  // namespace

SVec2 Direction(float angle) { return {std::cos(angle), std::sin(angle)}; }

SVec2 SOrientedBox::Corner(std::size_t number) const {
  const SVec2 dx = axis[0] * half.x;
  const SVec2 dy = axis[1] * half.y;
  const SVec2 onSide = (number & 1U) != 0 ? centre + dx : centre - dx;
  return (number & 2U) != 0 ? onSide + dy : onSide - dy;
}

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
  const SVec2 d = b.centre - a.centre;
  const std::optional<std::size_t> best = FindLeastPenetration(a, b, d);
  if (!best) {
    return std::nullopt;
  }
  const bool isReferenceA = *best < 2;
  const SOrientedBox& reference = isReferenceA ? a : b;
  const SFace face = FindReferenceFace(reference, *best % 2, isReferenceA, d);
  SCorners inside = FindIncidentCorners(isReferenceA ? b : a, face);
  if (inside.count == 0) {
    return std::nullopt;
  }
  if (inside.count == 2) {
    const SSegment edge = ClipSegmentToBox(inside.corner[0], inside.corner[1], reference.centre,
                                           reference.axis[0], reference.axis[1], reference.half);
    inside.corner = {edge.a, edge.b};
  }
  // Built in place: a copy costs as much as the rest.
  std::optional<SBoxTouch> result(std::in_place);
  SBoxTouch& touch = *result;
  touch.normal = isReferenceA ? -face.normal : face.normal;
  touch.count = static_cast<int>(inside.count);
  const SMeasuredSegment faceLine(face.first, face.second);
  for (std::size_t k = 0; k < inside.count; ++k) {
    const SVec2 corner = inside.corner[k];
    const SVec2 onFace = ClosestPointOnSegment(faceLine, corner);
    touch.points[k] = isReferenceA ? SPointPair{onFace, corner} : SPointPair{corner, onFace};
  }
  return result;
}

}  // namespace brumble
