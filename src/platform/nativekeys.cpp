#include "platform/nativekeys.h"

#include <X11/keysym.h>

#include <algorithm>
#include <array>

namespace vask::platform {

namespace {

struct SKeyMeaning {
  KeySym symbol;
  ENativeKey key;
};
constexpr std::array kKeys = {
    SKeyMeaning{XK_Left, ENativeKey::kLeft},
    SKeyMeaning{XK_KP_Left, ENativeKey::kLeft},
    SKeyMeaning{XK_Right, ENativeKey::kRight},
    SKeyMeaning{XK_KP_Right, ENativeKey::kRight},
    SKeyMeaning{XK_Up, ENativeKey::kUp},
    SKeyMeaning{XK_KP_Up, ENativeKey::kUp},
    SKeyMeaning{XK_Down, ENativeKey::kDown},
    SKeyMeaning{XK_KP_Down, ENativeKey::kDown},
    SKeyMeaning{XK_Home, ENativeKey::kHome},
    SKeyMeaning{XK_KP_Home, ENativeKey::kHome},
    SKeyMeaning{XK_End, ENativeKey::kEnd},
    SKeyMeaning{XK_KP_End, ENativeKey::kEnd},
    SKeyMeaning{XK_Delete, ENativeKey::kDelete},
    SKeyMeaning{XK_KP_Delete, ENativeKey::kDelete},
    SKeyMeaning{XK_Return, ENativeKey::kReturn},
    SKeyMeaning{XK_KP_Enter, ENativeKey::kReturn},
    SKeyMeaning{XK_BackSpace, ENativeKey::kBackspace},
};

// Latin-1 without its control characters.
bool IsPrintable(char character) {
  const auto code = static_cast<unsigned char>(character);
  return (code >= 32 && code < 127) || code >= 160;
}

bool IsSelectAll(KeySym symbol, unsigned state) {
  return (state & ControlMask) != 0 && (symbol == XK_a || symbol == XK_A);
}

}  // namespace

bool IsTab(KeySym symbol) {
  return symbol == XK_Tab || symbol == XK_ISO_Left_Tab || symbol == XK_KP_Tab;
}

bool IsBackwards(KeySym symbol, unsigned state) {
  return symbol == XK_ISO_Left_Tab || (state & ShiftMask) != 0;
}

SNativeKey ToNativeKey(KeySym symbol, unsigned state, std::string_view typed) {
  SNativeKey key;
  key.selects = (state & ShiftMask) != 0;
  const auto* known = std::ranges::find(kKeys, symbol, &SKeyMeaning::symbol);
  if (known != kKeys.end()) {
    key.key = known->key;
  } else if (IsSelectAll(symbol, state)) {
    key.key = ENativeKey::kSelectAll;
  } else if ((state & Mod1Mask) == 0) {
    key.text = typed;
    std::erase_if(key.text, [](char c) { return !IsPrintable(c); });
  }
  return key;
}

}  // namespace vask::platform
