#pragma once

#include "tasks/taskaudiosdlmixer.h"

#include <memory>
#include <string>
#include <vector>

namespace vask {

class CConsole;
class CConsoleCommand;

// The audio task's own commands: "PlayMusic", "PlayMusicFadeIn", "StopMusic", "StopMusicFadeOut",
// "PlayEffect" and "PreloadEffect". Wrong calls are logged; every result is empty.
class CTaskAudioSDLMixer::CAudioConsoleImpl {
 public:
  // The players must outlive the console.
  CAudioConsoleImpl(CSDLMixerMusicPlayer& music, CSDLMixerEffectPlayer& effects);
  ~CAudioConsoleImpl();
  CAudioConsoleImpl(const CAudioConsoleImpl&) = delete;
  CAudioConsoleImpl& operator=(const CAudioConsoleImpl&) = delete;

  void Execute(const std::string& line);

 private:
  void Add(const char* name, std::unique_ptr<CConsoleCommand> command);

  std::vector<std::unique_ptr<CConsoleCommand>> myCommands;
  std::unique_ptr<CConsole> myConsole;
};

}  // namespace vask
