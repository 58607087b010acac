#pragma once

#include "game/physics/geometry.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace brumble {

// The tests of one shape against another: shapes in, contact data out, no world needed. Each
// answers nothing when the shapes do not touch. Normals point from B towards A, where A is the
// first shape.

// The unit vector at the angle: a box's own x axis.
SVec2 Direction(float angle);

// A box with what the tests would else work out anew for each pair. A caller that tests one box
// against many makes it once; both forms of the tests give the same bits.
struct SOrientedBox {
  SOrientedBox() = default;
  SOrientedBox(SVec2 position, SVec2 halfExtents, SVec2 axis0)
      : centre(position), half(halfExtents), axis{{axis0, {-axis0.y, axis0.x}}} {
    ownShadow = {ShadowOn(axis[0]), ShadowOn(axis[1])};
  }

  // Half the length of the box's shadow on the axis.
  float ShadowOn(SVec2 u) const {
    return std::abs(Dot(axis[0], u)) * half.x + std::abs(Dot(axis[1], u)) * half.y;
  }
  // Bit 0 of the number is the side along axis 0, bit 1 the side along axis 1.
  SVec2 Corner(std::size_t number) const;

  SVec2 centre;
  SVec2 half;
  std::array<SVec2, 2> axis = {{{1.0F, 0.0F}, {0.0F, 1.0F}}};
  // On its own axes: nearly the half extents, but for rounding.
  std::array<float, 2> ownShadow = {};
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

// Circles of which one has its centre inside the other do not touch.
std::optional<STouch> CircleCircle(SVec2 posA, float radiusA, SVec2 posB, float radiusB);

// A is the circle. A centre inside the box is a touch with a zero normal.
std::optional<STouch> CircleBox(SVec2 circle, float radius, SVec2 box, SVec2 half, float angle);
std::optional<STouch> CircleBox(SVec2 circle, float radius, const SOrientedBox& box);

// One or two points: the corners of one box that stick into the face of the other along the axis of
// least penetration. Three such corners are no touch.
std::optional<SBoxTouch> BoxBox(SVec2 posA, SVec2 halfA, float angleA, SVec2 posB, SVec2 halfB,
                                float angleB);
std::optional<SBoxTouch> BoxBox(const SOrientedBox& a, const SOrientedBox& b);

}  // namespace brumble
