#include "game/physics/geometry.h"

namespace brumble {

namespace {

// Cuts the segment in place; one that is not cut need not be measured again.
void Clip(SMeasuredSegment& s, SVec2 c, SVec2 n) {
  const std::optional<SVec2> crossing = IntersectSegmentPlane(s, c, n);
  if (crossing) {
    s = IsOnOuterSide(s.a, c, n) ? SMeasuredSegment(*crossing, s.b)
                                 : SMeasuredSegment(s.a, *crossing);
  }
}

}  // namespace

SVec2 ClosestPointOnSegment(SVec2 a, SVec2 b, SVec2 p) {
  return ClosestPointOnSegment(SMeasuredSegment(a, b), p);
}

bool IsOnOuterSide(SVec2 a, SVec2 c, SVec2 n) { return Dot(a, n) - Dot(c, n) >= 0.0F; }

std::optional<SVec2> IntersectSegmentPlane(const SMeasuredSegment& s, SVec2 c, SVec2 n) {
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

std::optional<SVec2> IntersectSegmentPlane(SVec2 a, SVec2 b, SVec2 c, SVec2 n) {
  return IntersectSegmentPlane(SMeasuredSegment(a, b), c, n);
}

SSegment ClipSegment(SVec2 a, SVec2 b, SVec2 c, SVec2 n) {
  SMeasuredSegment s(a, b);
  Clip(s, c, n);
  return {s.a, s.b};
}

SSegment ClipSegmentToBox(SVec2 a, SVec2 b, SVec2 centre, SVec2 axis0, SVec2 axis1, SVec2 half) {
  // Two opposite corners; each lies on two of the four sides.
  const SVec2 p = centre + axis0 * half.x + axis1 * half.y;
  const SVec2 q = centre - axis0 * half.x - axis1 * half.y;
  SMeasuredSegment s(a, b);
  Clip(s, p, axis0);
  Clip(s, p, axis1);
  Clip(s, q, -axis0);
  Clip(s, q, -axis1);
  return {s.a, s.b};
}

}  // namespace brumble
