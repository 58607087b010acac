#pragma once

#include "game/physics/geometry.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace brumble {

// The narrow phase: exact tests of one shape against another. Shapes in, contact data out, no world
// needed. Each returns nothing when the shapes do not touch. Normals point from B towards A, where
// A is the first shape.

// The unit vector at the angle: a box's own x axis.
inline SVec2 Direction(float angle) { return {std::cos(angle), std::sin(angle)}; }

// A box with its axes and projections, which a caller that tests one box against many computes
// once. Both forms of the tests give the same bits.
struct SOrientedBox {
  SOrientedBox() = default;
  SOrientedBox(SVec2 position, SVec2 halfExtents, SVec2 axis0) {
    Turn(halfExtents, axis0);
    MoveTo(position);
  }

  // To be followed by MoveTo, as the corners have to come along.
  void Turn(SVec2 halfExtents, SVec2 axis0) {
    half = halfExtents;
    axis = {axis0, {-axis0.y, axis0.x}};
    ownRadius = {ProjectedRadius(axis[0]), ProjectedRadius(axis[1])};
  }
  void MoveTo(SVec2 position) {
    const SVec2 dx = axis[0] * half.x;
    const SVec2 dy = axis[1] * half.y;
    const SVec2 left = position - dx;
    const SVec2 right = position + dx;
    centre = position;
    corner = {left - dy, right - dy, left + dy, right + dy};
  }

  // Half the length of the box's projection on the unit vector.
  float ProjectedRadius(SVec2 u) const {
    return std::abs(Dot(axis[0], u)) * half.x + std::abs(Dot(axis[1], u)) * half.y;
  }

  SVec2 centre;
  SVec2 half;
  std::array<SVec2, 2> axis = {{{1.0F, 0.0F}, {0.0F, 1.0F}}};
  // The projected radius on its own axes: the half extents, but for rounding.
  std::array<float, 2> ownRadius = {};
  // Bit 0 of a corner's number tells its side along axis 0, bit 1 the side along axis 1.
  std::array<SVec2, 4> corner = {};
};

struct SPointPair {
  SVec2 pointA;
  SVec2 pointB;
};

struct STouch {
  SPointPair points;
  SVec2 normal;
};

struct SBoxTouch {
  std::array<SPointPair, 2> points;
  SVec2 normal;  // shared by both points
  int count = 0;
};

// Circles do not touch when the centre of one is inside the other.
std::optional<STouch> CircleCircle(SVec2 posA, float radiusA, SVec2 posB, float radiusB);

// A is the circle. A centre inside the box is a touch with a zero normal.
std::optional<STouch> CircleBox(SVec2 circle, float radius, SVec2 box, SVec2 half, float angle);
std::optional<STouch> CircleBox(SVec2 circle, float radius, const SOrientedBox& box);

// The separating axis test over the four face normals (S. Gottschalk, M. C. Lin and D. Manocha,
// "OBBTree: A Hierarchical Structure for Rapid Interference Detection", SIGGRAPH 1996) finds the
// axis of least penetration. Reference-face clipping (E. Catto, "Fast and Simple Physics using
// Sequential Impulses", GDC 2006) then makes one or two points: the corners of the other box that
// are inside the face of the box that owns the axis, clipped to its sides. Three such corners are
// no touch.
std::optional<SBoxTouch> BoxBox(SVec2 posA, SVec2 halfA, float angleA, SVec2 posB, SVec2 halfB,
                                float angleB);
std::optional<SBoxTouch> BoxBox(const SOrientedBox& a, const SOrientedBox& b);

}  // namespace brumble
