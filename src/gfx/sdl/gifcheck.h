#pragma once

#include <string>

namespace vask::sdl {

// Whether SDL_image may read the file: it is no GIF, or one whose picture has a size that SDL has
// surfaces for, and no extension before it that the file cuts off. SDL_image follows a null pointer
// for another size, and looks for the end of the extension for ever.
bool CheckGifFile(const std::string& fileName);

}  // namespace vask::sdl
