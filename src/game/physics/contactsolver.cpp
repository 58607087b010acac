#include "game/physics/contactsolver.h"

namespace brumble {
namespace {

constexpr int kMaxVisits = 200;  // of contacts in a step, over all passes
constexpr float kRestitution = 1.0F;
constexpr float kImpulseLoss = 0.9F;  // at each body in turn, so the second one gets 0.81

SVec2 VelocityAt(const CPhysicsBody& body, SVec2 arm) {
  return {body.vx - body.angularVelocity * arm.y, body.vy + body.angularVelocity * arm.x};
}

// The angular part of the inverse effective mass, for an impulse along `n` at the end of `arm`.
float AngularInverseMass(const CPhysicsBody& body, SVec2 arm, SVec2 n) {
  const float lever = Cross(arm, n);
  return body.invInertia * (lever * lever);
}

// Scales the impulse in place, then applies it.
void ApplyImpulse(CPhysicsBody& body, const CPhysicsBody& other, SVec2 arm, SVec2& impulse) {
  impulse = impulse * kImpulseLoss;
  if (body.bridge != nullptr) {
    body.bridge->OnImpact(LengthSquared(impulse), other.bridge.get());
  }
  body.vx += impulse.x * body.invMass;
  body.vy += impulse.y * body.invMass;
  body.angularVelocity += Cross(arm, impulse) * body.invInertia;
}

// Returns whether the bodies were approaching, so that it applied an impulse.
bool ResolveContact(const CContact& contact) {
  CPhysicsBody& a = *contact.bodyA;
  CPhysicsBody& b = *contact.bodyB;
  const SVec2 n = contact.normal;
  const SVec2 armA = contact.point - SVec2{a.x, a.y};
  const SVec2 armB = contact.point - SVec2{b.x, b.y};
  const float approach = Dot(n, VelocityAt(a, armA) - VelocityAt(b, armB));
  if (!(approach < 0.0F)) {
    return false;
  }
  const float inverseMass =
      a.invMass + b.invMass + AngularInverseMass(a, armA, n) + AngularInverseMass(b, armB, n);
  const float magnitude = -(1.0F + kRestitution) * approach / inverseMass;
  SVec2 impulse = n * magnitude;
  ApplyImpulse(a, b, armA, impulse);
  impulse = -impulse;
  ApplyImpulse(b, a, armB, impulse);
  return true;
}

}  // namespace

void ResolveContacts(const CContactBuffer& contacts) {
  int visits = 0;
  for (bool isAnyApproaching = true; isAnyApproaching;) {
    isAnyApproaching = false;
    for (const CContact& contact : contacts) {
      if (visits == kMaxVisits) {
        return;
      }
      ++visits;
      isAnyApproaching |= ResolveContact(contact);
    }
  }
}

}  // namespace brumble
