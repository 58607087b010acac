#pragma once

#include "platform/nativekey.h"

#include <X11/X.h>

#include <string_view>

namespace vask::platform {

// The keys of an X server as the controls of a native window know them. `state` is the mask of the
// modifier keys.

// Whether the key moves the focus to another control, and whether backwards.
bool IsTab(KeySym symbol);
bool IsBackwards(KeySym symbol, unsigned state);

// `typed` is what the key types, in Latin-1. With the Alt key held it types nothing; Ctrl and A
// select all.
SNativeKey ToNativeKey(KeySym symbol, unsigned state, std::string_view typed);

}  // namespace vask::platform
