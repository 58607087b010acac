#pragma once

#include <cmath>
#include <optional>

namespace brumble {

// A point or a direction. All arithmetic is in float, and each operation is written out once, here:
// the scene must come out the same to the last bit whatever the build.
struct SVec2 {
  float x = 0.0F;
  float y = 0.0F;
};

constexpr SVec2 operator+(SVec2 a, SVec2 b) { return {a.x + b.x, a.y + b.y}; }
constexpr SVec2 operator-(SVec2 a, SVec2 b) { return {a.x - b.x, a.y - b.y}; }
constexpr SVec2 operator-(SVec2 a) { return {-a.x, -a.y}; }
constexpr SVec2 operator*(SVec2 a, float s) { return {a.x * s, a.y * s}; }
constexpr SVec2 operator/(SVec2 a, float s) { return {a.x / s, a.y / s}; }
constexpr float Dot(SVec2 a, SVec2 b) { return a.x * b.x + a.y * b.y; }
constexpr float Cross(SVec2 a, SVec2 b) { return a.x * b.y - a.y * b.x; }
constexpr float LengthSquared(SVec2 a) { return Dot(a, a); }
inline float Length(SVec2 a) { return std::sqrt(LengthSquared(a)); }

struct SSegment {
  SVec2 a;
  SVec2 b;
};

// The unit vector along `v` when its `length` is above 0, else `v` itself.
constexpr SVec2 Normalised(SVec2 v, float length) { return length > 0.0F ? v / length : v; }

// A segment with its direction and length, computed once for several calls.
struct SMeasuredSegment {
  SMeasuredSegment(SVec2 from, SVec2 to)
      : a(from), b(to), length(Length(to - from)), unit(Normalised(to - from, length)) {}

  SVec2 a;
  SVec2 b;
  float length;
  SVec2 unit;  // zero for a segment that is a point
};

inline SVec2 ClosestPointOnSegment(const SMeasuredSegment& s, SVec2 p) {
  const float t = Dot(s.unit, p - s.a);
  if (t < 0.0F) {
    return s.a;
  }
  if (t > s.length) {
    return s.b;
  }
  return s.a + s.unit * t;
}
SVec2 ClosestPointOnSegment(SVec2 a, SVec2 b, SVec2 p);

// Whether `a` lies on the plane through `c` or on the side that its normal `n` points to.
bool IsOnOuterSide(SVec2 a, SVec2 c, SVec2 n);

// Where the segment a-b meets the plane through `c` with normal `n`; nothing for a segment that is
// a point, runs along the plane or ends before it.
std::optional<SVec2> IntersectSegmentPlane(const SMeasuredSegment& s, SVec2 c, SVec2 n);
std::optional<SVec2> IntersectSegmentPlane(SVec2 a, SVec2 b, SVec2 c, SVec2 n);

// Cuts off what lies on the outer side of the plane. A segment that does not cross it comes back
// unchanged, even when it lies outside altogether.
SSegment ClipSegment(SVec2 a, SVec2 b, SVec2 c, SVec2 n);

// Clips by the four sides of a box; `axis0` and `axis1` are its unit axes, `half` its half extents.
SSegment ClipSegmentToBox(SVec2 a, SVec2 b, SVec2 centre, SVec2 axis0, SVec2 axis1, SVec2 half);

}  // namespace brumble
