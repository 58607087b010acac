#include "game/physics/collision.h"

#include <cmath>
#include <utility>

namespace brumble {
namespace {

// Clamps to [-half, half] and answers the square of what was cut off.
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

// The axis of least penetration, counted A0, A1, B0, B1; nothing when one of them separates the
// boxes. Of equals the earlier one wins.
std::optional<std::size_t> FindBestAxis(const COrientedBox& a, const COrientedBox& b, CVec2 d) {
  std::size_t best = 0;
  float leastPenetration = 0.0F;
  for (std::size_t number = 0; number < 4; ++number) {
    const bool isOfA = number < 2;
    const std::size_t k = number % 2;
    const CVec2 u = isOfA ? a.axis[k] : b.axis[k];
    const float reach = isOfA ? a.ownShadow[k] + b.ShadowOn(u) : a.ShadowOn(u) + b.ownShadow[k];
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

// A face of the reference box: its outward normal and its ends.
struct CFace {
  CVec2 normal;
  CVec2 first;
  CVec2 second;
};

// The face across the best axis that looks at the other box. With u across d, A's box shows its
// negative face and B's box too, as neither side is nearer.
CFace FindFace(const COrientedBox& box, std::size_t axisOfBox, bool isBoxA, CVec2 d) {
  static constexpr std::size_t kCornersOfFace[4][2] = {{1, 3}, {0, 2}, {2, 3}, {0, 1}};
  const CVec2 u = box.axis[axisOfBox];
  const float side = Dot(u, d);
  const bool isNegative = isBoxA ? !(side > 0.0F) : side >= 0.0F;
  const std::size_t code = 2 * axisOfBox + (isNegative ? 1 : 0);
  return {isNegative ? -u : u, box.Corner(kCornersOfFace[code][0]),
          box.Corner(kCornersOfFace[code][1])};
}

struct CCorners {
  std::array<CVec2, 2> corner;
  std::size_t count = 0;
};

// The corners of the box that lie behind the face; none as well when there are more than two.
CCorners FindPenetrating(const COrientedBox& box, const CFace& face) {
  CCorners found;
  for (std::size_t number = 0; number < 4; ++number) {
    const CVec2 corner = box.Corner(number);
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

CVec2 Direction(float angle) { return {std::cos(angle), std::sin(angle)}; }

CVec2 COrientedBox::Corner(std::size_t number) const {
  const CVec2 dx = axis[0] * half.x;
  const CVec2 dy = axis[1] * half.y;
  const CVec2 onSide = (number & 1U) != 0 ? centre + dx : centre - dx;
  return (number & 2U) != 0 ? onSide + dy : onSide - dy;
}

std::optional<CTouch> CircleCircle(CVec2 posA, float radiusA, CVec2 posB, float radiusB) {
  const CVec2 apart = posA - posB;
  const float distance = Length(apart);
  const CVec2 normal = Normalised(apart, distance);
  if (!(distance <= radiusA + radiusB && distance >= radiusA && distance >= radiusB)) {
    return std::nullopt;
  }
  return CTouch{{posA - normal * radiusA, posB + normal * radiusB}, normal};
}

std::optional<CTouch> CircleBox(CVec2 circle, float radius, CVec2 box, CVec2 half, float angle) {
  return CircleBox(circle, radius, COrientedBox(box, half, Direction(angle)));
}

std::optional<CTouch> CircleBox(CVec2 circle, float radius, const COrientedBox& box) {
  const float cs = box.axis[0].x;
  const float sn = box.axis[0].y;
  const CVec2 delta = circle - box.centre;
  CVec2 local = {delta.x * cs + delta.y * sn, delta.y * cs - delta.x * sn};
  const float excessX = ClampToHalf(local.x, box.half.x);
  const float excessY = ClampToHalf(local.y, box.half.y);
  if (!(excessX + excessY <= radius * radius)) {
    return std::nullopt;
  }
  if (excessX == 0.0F && excessY == 0.0F) {
    // Nothing was cut off: turning the centre back into the world would return it only nearly, and
    // the rounding would pass for a direction.
    return CTouch{{circle, circle}, {}};
  }
  const CVec2 onBox = box.centre + CVec2{local.x * cs - local.y * sn, local.x * sn + local.y * cs};
  const CVec2 apart = circle - onBox;
  const CVec2 normal = Normalised(apart, Length(apart));
  return CTouch{{circle - normal * radius, onBox}, normal};
}

std::optional<CBoxTouch> BoxBox(CVec2 posA, CVec2 halfA, float angleA, CVec2 posB, CVec2 halfB,
                                float angleB) {
  return BoxBox(COrientedBox(posA, halfA, Direction(angleA)),
                COrientedBox(posB, halfB, Direction(angleB)));
}

std::optional<CBoxTouch> BoxBox(const COrientedBox& a, const COrientedBox& b) {
  const CVec2 d = b.centre - a.centre;
  const std::optional<std::size_t> best = FindBestAxis(a, b, d);
  if (!best) {
    return std::nullopt;
  }
  const bool isReferenceA = *best < 2;
  const COrientedBox& reference = isReferenceA ? a : b;
  const CFace face = FindFace(reference, *best % 2, isReferenceA, d);
  CCorners inside = FindPenetrating(isReferenceA ? b : a, face);
  if (inside.count == 0) {
    return std::nullopt;
  }
  if (inside.count == 2) {
    const CSegment edge = ClipSegmentToBox(inside.corner[0], inside.corner[1], reference.centre,
                                           reference.axis[0], reference.axis[1], reference.half);
    inside.corner = {edge.a, edge.b};
  }
  // Filled in where it is answered: copying it costs as much as the rest.
  std::optional<CBoxTouch> answer(std::in_place);
  CBoxTouch& touch = *answer;
  touch.normal = isReferenceA ? -face.normal : face.normal;
  touch.count = static_cast<int>(inside.count);
  const CMeasuredSegment faceLine(face.first, face.second);
  for (std::size_t k = 0; k < inside.count; ++k) {
    const CVec2 corner = inside.corner[k];
    const CVec2 onFace = ClosestPointOnSegment(faceLine, corner);
    touch.points[k] = isReferenceA ? CPointPair{onFace, corner} : CPointPair{corner, onFace};
  }
  return answer;
}

}  // namespace brumble
