#include "tasks/taskaudiosdlmixer.h"

#include "audio/audiodevice.h"
#include "audio/audioformat.h"
#include "audio/audiovolume.h"
#include "audio/sdlmixereffectplayer.h"
#include "audio/sdlmixermusicplayer.h"
#include "console/consoleparams.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "tasks/audioconsole.h"
#include "utils/log/log.h"

#include <SDL.h>

#include <algorithm>
#include <bit>

namespace vask {

namespace {

void RegisterSdlMixerTasks() {
  CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<CTaskAudioSDLMixer>("audio");
  RegisterAudioVolumes();
}

const CTaskLibraryRegistrar theRegistrar("sdl_mixer", &RegisterSdlMixerTasks);

// A number among the start-up parameters, and the range to which it is clamped.
struct SStartNumber {
  int index;
  const char* name;
  const char* kind;
  int least;
  int most;
  bool isPowerOfTwo = false;
};

// What the mixer survives: it divides by the whole milliseconds of a chunk, trusts the number of
// mixing channels when it allocates them, and waits for a whole chunk before it closes the device.
// SDL 1.2 opens no device with more output channels, and the library over SDL 2 writes beyond its
// buffers when a chunk is no power of two.
constexpr SStartNumber kFrequency{0, " 1st start-up parameter (frequency)", "a number", 8000,
                                  192000};
constexpr SStartNumber kChannels{2, " 3rd start-up parameter (num_of_channels)",
                                 "a number (1 = mono, 2 = stereo)", 1, 6};
constexpr SStartNumber kChunkSize{
    3, " 4th start-up parameter (chunk_size)", "a number", 256, 8192, true};
constexpr SStartNumber kMixChannels{4, " 5th start-up parameter (number_of_audio_channels)",
                                    "a number", 1, 256};

int Hold(const SStartNumber& number, int value) {
  const int held = std::clamp(value, number.least, number.most);
  return number.isPowerOfTwo ? static_cast<int>(std::bit_ceil(static_cast<unsigned>(held))) : held;
}

// The mixer crashes when it closes a device of unsigned 16-bit samples.
std::uint16_t HeldFormat(std::uint16_t format) {
  switch (format) {
    case AUDIO_U16LSB:
      return AUDIO_S16LSB;
    case AUDIO_U16MSB:
      return AUDIO_S16MSB;
    default:
      return format;
  }
}

void ReadNumber(const CConsoleParams& params, const SStartNumber& number, const std::string& task,
                int& value) {
  if (number.index >= params.Size()) {
    return;
  }
  if (!params.IsType(number.index, CVariable::kNumber)) {
    Log().Warning() << task << number.name << " is of wrong type, should be " << number.kind
                    << "\n";
    return;
  }
  const int wanted = ToInteger(params.GetNumber(number.index));
  value = Hold(number, wanted);
  if (value != wanted) {
    Log().Warning() << task << number.name << " is held to " << value << " instead of " << wanted
                    << "\n";
  }
}

}  // namespace

CTaskAudioSDLMixer::CTaskAudioSDLMixer() : myFormat(AUDIO_S16LSB) {}

CTaskAudioSDLMixer::~CTaskAudioSDLMixer() = default;

bool CTaskAudioSDLMixer::Start(CConsoleParams* params) {
  if (params != nullptr) {
    ReadNumber(*params, kFrequency, GetName(), myFrequency);
    ReadFormat(*params);
    ReadNumber(*params, kChannels, GetName(), myChannels);
    ReadNumber(*params, kChunkSize, GetName(), myChunkSize);
    ReadNumber(*params, kMixChannels, GetName(), myMixChannels);
  }
  return Start();
}

void CTaskAudioSDLMixer::ReadFormat(const CConsoleParams& params) {
  if (params.Size() < 2) {
    return;
  }
  const std::uint16_t format = params.IsType(1, CVariable::kString)
                                   ? AudioFormatFromName(params.GetString(1))
                                   : std::uint16_t{0};
  const std::string parameter = GetName() + " 2nd start-up parameter (format)";
  if (format == 0) {
    Log().Warning() << parameter << " is of wrong type, should be a string\n";
    return;
  }
  myFormat = HeldFormat(format);
  if (myFormat != format) {
    Log().Warning() << parameter << " is held to " << AudioFormatName(myFormat) << " instead of "
                    << AudioFormatName(format) << "\n";
  }
}

bool CTaskAudioSDLMixer::Start() {
  Exit();
  myDevice = CAudioDevice::Open({myFrequency, myFormat, myChannels, myChunkSize, myMixChannels},
                                GetName());
  if (myDevice == nullptr) {
    return false;
  }
  myMusicPlayer = std::make_unique<CSDLMixerMusicPlayer>(myDevice->ChunkMilliseconds());
  myEffectPlayer = std::make_unique<CSDLMixerEffectPlayer>();
  myAudioConsole = std::make_unique<CAudioConsoleImpl>(*myMusicPlayer, *myEffectPlayer);
  return true;
}

void CTaskAudioSDLMixer::Update() {
  if (myDevice != nullptr) {
    myMusicPlayer->Update();
    myEffectPlayer->Update();
  }
}

void CTaskAudioSDLMixer::Exit() {
  myAudioConsole.reset();
  myMusicPlayer.reset();
  myEffectPlayer.reset();
  myDevice.reset();
}

void CTaskAudioSDLMixer::Pause() {
  if (myDevice != nullptr) {
    myMusicPlayer->Pause();
    myEffectPlayer->Pause();
  }
}

void CTaskAudioSDLMixer::Resume() {
  if (myDevice != nullptr) {
    myMusicPlayer->Resume();
    myEffectPlayer->Resume();
  }
}

bool CTaskAudioSDLMixer::ExecuteCommand(const std::string& line) {
  if (myAudioConsole != nullptr) {
    myAudioConsole->Execute(line);
  }
  return true;
}

}  // namespace vask
