// The least that a program with our pictures and sound asks of the processor, for play.py to
// compare the game with: plain SDL that shows its window every 16 ms and plays the game's music.
//
// Usage: flip MUSIC_FILE

#include <SDL.h>
#include <SDL_mixer.h>

#include <cstdlib>

namespace {

constexpr unsigned kFrameTime = 16;  // milliseconds

bool Start(const char* music) {
  if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO) != 0 ||
      Mix_OpenAudio(44100, AUDIO_S16LSB, 2, 512) != 0) {
    return false;
  }
  SDL_WM_SetCaption("Flip", nullptr);
  return SDL_SetVideoMode(800, 600, 32, SDL_SWSURFACE) != nullptr &&
         Mix_PlayMusic(Mix_LoadMUS(music), -1) == 0;
}

bool HasQuit() {
  bool hasQuit = false;
  for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
    hasQuit |= event.type == SDL_QUIT;
  }
  return hasQuit;
}

}  // namespace

int main(int count, char* arguments[]) {
  if (count != 2 || !Start(arguments[1])) {
    return EXIT_FAILURE;
  }
  for (unsigned next = SDL_GetTicks(); !HasQuit();) {
    SDL_Flip(SDL_GetVideoSurface());
    next += kFrameTime;
    const unsigned now = SDL_GetTicks();
    SDL_Delay(next > now ? next - now : 0);
  }
  Mix_CloseAudio();
  SDL_Quit();
  return EXIT_SUCCESS;
}
