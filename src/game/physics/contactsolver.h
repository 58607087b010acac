#pragma once

#include "game/physics/contact.h"

namespace brumble {

// Takes the approaching velocity out of the contacts with impulses, in passes over the buffer until
// one finds nothing left to do, and with a budget of visits that bounds the work whatever the
// number of contacts. Each body's bridge hears of an impulse before the body's velocity changes.
void ResolveContacts(const CContactBuffer& contacts);

}  // namespace brumble
