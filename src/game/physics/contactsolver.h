#pragma once

#include "game/physics/contact.h"

namespace brumble {

// Sequential impulses (E. Catto, "Fast and Simple Physics using Sequential Impulses", GDC 2006):
// each contact in turn gets the impulse that takes its approaching velocity out, in passes over the
// buffer until one applies none. A limit of visits bounds the work. The impulse is that of C.
// Hecker, "Collision Response", Game Developer, March 1997. A body's bridge is told of an impulse
// before the body's velocity changes.
void ResolveContacts(const CContactBuffer& contacts);

}  // namespace brumble
