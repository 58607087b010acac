#pragma once

namespace vask {

// SDL names a key after what it types in the user's first layout, and by that name it is bound. So
// that the same keys do the same everywhere, two kinds of keys go by their place instead:
//
// - the key under Escape is "backquote", whatever it types;
// - a key in the place of a letter of a US keyboard is that letter when SDL has only a "world" name
//   for it, as with layouts that have no Latin letters.
//
// `place` is the key code of X (the key under Escape is 49, P is 33); 0, an unknown place, leaves
// the name as it is.
int KeyByPlace(int key, int place);

}  // namespace vask
