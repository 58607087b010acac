#pragma once

namespace vask {

// The key to use for a key code of SDL, which names a key after what it types in the user's first
// layout. Two kinds of keys go by their place instead, so that they do the same everywhere:
//
// - the key under Escape is "backquote", whatever it types;
// - a key in the place of a letter of a US keyboard is that letter when SDL has only a "world" name
//   for it, as with layouts that have no Latin letters.
//
// `place` is the key code of X (the key under Escape is 49, P is 33); with 0, an unknown place, the
// key stays as it is.
int KeyByPlace(int key, int place);

}  // namespace vask
