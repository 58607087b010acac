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
CVec2 Direction(float angle);

// A box with what the tests would else work out anew for each pair. A caller that tests one box
// against many makes it once; both forms of the tests give the same bits.
struct COrientedBox {
  COrientedBox() = default;
  COrientedBox(CVec2 position, CVec2 halfExtents, CVec2 axis0)
      : centre(position), half(halfExtents), axis{{axis0, {-axis0.y, axis0.x}}} {
    ownShadow = {ShadowOn(axis[0]), ShadowOn(axis[1])};
  }

  // Half the length of the box's shadow on the axis.
  float ShadowOn(CVec2 u) const {
    return std::abs(Dot(axis[0], u)) * half.x + std::abs(Dot(axis[1], u)) * half.y;
  }
  // Bit 0 of the number is the side along axis 0, bit 1 the side along axis 1.
  CVec2 Corner(std::size_t number) const;

  CVec2 centre;
  CVec2 half;
  std::array<CVec2, 2> axis = {{{1.0F, 0.0F}, {0.0F, 1.0F}}};
  // On its own axes: nearly the half extents, but for rounding.
  std::array<float, 2> ownShadow = {};
};

struct CPointPair {
  CVec2 pointA;
  CVec2 pointB;
};

struct CTouch {
  CPointPair points;
  CVec2 normal;
};

struct CBoxTouch {
  std::array<CPointPair, 2> points;
  CVec2 normal;  // shared by both points
  int count = 0;
};

// Circles of which one has its centre inside the other do not touch.
std::optional<CTouch> CircleCircle(CVec2 posA, float radiusA, CVec2 posB, float radiusB);

// A is the circle. A centre inside the box is a touch with a zero normal.
std::optional<CTouch> CircleBox(CVec2 circle, float radius, CVec2 box, CVec2 half, float angle);
std::optional<CTouch> CircleBox(CVec2 circle, float radius, const COrientedBox& box);

// One or two points: the corners of one box that stick into the face of the other along the axis of
// least penetration. Three such corners are no touch.
std::optional<CBoxTouch> BoxBox(CVec2 posA, CVec2 halfA, float angleA, CVec2 posB, CVec2 halfB,
                                float angleB);
std::optional<CBoxTouch> BoxBox(const COrientedBox& a, const COrientedBox& b);

}  // namespace brumble
