#pragma once

#include <cmath>
#include <optional>

namespace brumble {

// A point or a direction. All arithmetic is in float, and each operation is written out once, here:
// the scene must come out the same to the last bit whatever the build.
struct CVec2 {
  float x = 0.0F;
  float y = 0.0F;
};

constexpr CVec2 operator+(CVec2 a, CVec2 b) { return {a.x + b.x, a.y + b.y}; }
constexpr CVec2 operator-(CVec2 a, CVec2 b) { return {a.x - b.x, a.y - b.y}; }
constexpr CVec2 operator-(CVec2 a) { return {-a.x, -a.y}; }
constexpr CVec2 operator*(CVec2 a, float s) { return {a.x * s, a.y * s}; }
constexpr CVec2 operator/(CVec2 a, float s) { return {a.x / s, a.y / s}; }
constexpr float Dot(CVec2 a, CVec2 b) { return a.x * b.x + a.y * b.y; }
constexpr float Cross(CVec2 a, CVec2 b) { return a.x * b.y - a.y * b.x; }
constexpr float LengthSquared(CVec2 a) { return Dot(a, a); }
inline float Length(CVec2 a) { return std::sqrt(LengthSquared(a)); }

struct CSegment {
  CVec2 a;
  CVec2 b;
};

// The unit vector along `v` when its `length` is above 0, else `v` itself.
constexpr CVec2 Normalised(CVec2 v, float length) { return length > 0.0F ? v / length : v; }

// A segment with its direction and length, for asking more than once.
struct CMeasuredSegment {
  CMeasuredSegment(CVec2 from, CVec2 to)
      : a(from), b(to), length(Length(to - from)), unit(Normalised(to - from, length)) {}

  CVec2 a;
  CVec2 b;
  float length;
  CVec2 unit;  // zero for a segment that is a point
};

inline CVec2 ClosestPointOnSegment(const CMeasuredSegment& s, CVec2 p) {
  const float t = Dot(s.unit, p - s.a);
  if (t < 0.0F) {
    return s.a;
  }
  if (t > s.length) {
    return s.b;
  }
  return s.a + s.unit * t;
}
CVec2 ClosestPointOnSegment(CVec2 a, CVec2 b, CVec2 p);

// Whether `a` lies on the plane through `c` or on the side that its normal `n` points to.
bool IsOnOuterSide(CVec2 a, CVec2 c, CVec2 n);

// Where the segment a-b meets the plane through `c` with normal `n`; nothing for a segment that is
// a point, runs along the plane or ends before it.
std::optional<CVec2> IntersectSegmentPlane(const CMeasuredSegment& s, CVec2 c, CVec2 n);
std::optional<CVec2> IntersectSegmentPlane(CVec2 a, CVec2 b, CVec2 c, CVec2 n);

// Cuts off what lies on the outer side of the plane. A segment that does not cross it comes back
// unchanged, even when it lies outside altogether.
CSegment ClipSegment(CVec2 a, CVec2 b, CVec2 c, CVec2 n);

// Clips by the four sides of a box; `axis0` and `axis1` are its unit axes, `half` its half extents.
CSegment ClipSegmentToBox(CVec2 a, CVec2 b, CVec2 centre, CVec2 axis0, CVec2 axis1, CVec2 half);

}  // namespace brumble
