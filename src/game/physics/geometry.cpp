#include "game/physics/geometry.h"

namespace brumble {

namespace {

// Cuts the segment in place; one that is not cut need not be measured again.
void Clip(CMeasuredSegment& s, CVec2 c, CVec2 n) {
  const std::optional<CVec2> crossing = IntersectSegmentPlane(s, c, n);
  if (crossing) {
    s = IsOnOuterSide(s.a, c, n) ? CMeasuredSegment(*crossing, s.b)
                                 : CMeasuredSegment(s.a, *crossing);
  }
}

}  // namespace

CVec2 ClosestPointOnSegment(CVec2 a, CVec2 b, CVec2 p) {
  return ClosestPointOnSegment(CMeasuredSegment(a, b), p);
}

bool IsOnOuterSide(CVec2 a, CVec2 c, CVec2 n) { return Dot(a, n) - Dot(c, n) >= 0.0F; }

std::optional<CVec2> IntersectSegmentPlane(const CMeasuredSegment& s, CVec2 c, CVec2 n) {
  const float slope = Dot(n, s.unit);
  if (s.length == 0.0F || slope == 0.0F) {
    return std::nullopt;
  }
  const float t = (Dot(c, n) - Dot(s.a, n)) / slope;
  if (t < 0.0F || t > s.length) {
    return std::nullopt;
  }
  return s.a + s.unit * t;
}

std::optional<CVec2> IntersectSegmentPlane(CVec2 a, CVec2 b, CVec2 c, CVec2 n) {
  return IntersectSegmentPlane(CMeasuredSegment(a, b), c, n);
}

CSegment ClipSegment(CVec2 a, CVec2 b, CVec2 c, CVec2 n) {
  CMeasuredSegment s(a, b);
  Clip(s, c, n);
  return {s.a, s.b};
}

CSegment ClipSegmentToBox(CVec2 a, CVec2 b, CVec2 centre, CVec2 axis0, CVec2 axis1, CVec2 half) {
  // Two opposite corners; each lies on two of the four sides.
  const CVec2 p = centre + axis0 * half.x + axis1 * half.y;
  const CVec2 q = centre - axis0 * half.x - axis1 * half.y;
  CMeasuredSegment s(a, b);
  Clip(s, p, axis0);
  Clip(s, p, axis1);
  Clip(s, q, -axis0);
  Clip(s, q, -axis1);
  return {s.a, s.b};
}

}  // namespace brumble
