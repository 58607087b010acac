#include "tasks/taskaudiosdlmixer.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <string_view>
#include <utility>

#include "console/consoleparams.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "tasks/audioconsole.h"
#include "tasks/audiovolume.h"
#include "tasks/sdlmixereffectplayer.h"
#include "tasks/sdlmixermusicplayer.h"
#include "utils/log/log.h"

namespace vask {

namespace {

void RegisterSdlMixerTasks() {
  CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<CTaskAudioSDLMixer>("audio");
  RegisterAudioVolumes();
}

const CTaskLibraryRegistrar registrar("sdl_mixer", &RegisterSdlMixerTasks);

constexpr std::array<std::pair<std::string_view, std::uint16_t>, 6> kFormats = {{
    {"U8", AUDIO_U8},
    {"S8", AUDIO_S8},
    {"U16LSB", AUDIO_U16LSB},
    {"S16LSB", AUDIO_S16LSB},
    {"U16MSB", AUDIO_U16MSB},
    {"S16MSB", AUDIO_S16MSB},
}};

// A number among the start-up parameters, and the range to which it is held.
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
// SDL 1.2 opens no device with more output channels, and the library over SDL 2 writes behind its
// buffers when a chunk is no power of two.
constexpr SStartNumber kFrequency{0, " 1st start-up parameter (frequency)", "a number", 8000,
                                  192000};
constexpr SStartNumber kChannels{2, " 3rd start-up parameter (num_of_channels)",
                                 "a number (1 = mono, 2 = stereo)", 1, 6};
constexpr SStartNumber kChunkSize{
    3, " 4th start-up parameter (chunk_size)", "a number", 256, 8192, true};
constexpr SStartNumber kMixChannels{4, " 5th start-up parameter (number_of_audio_channels)",
                                    "a number", 1, 256};

constexpr int kDriverNameSize = 256;

CLog& Log() { return *CLog::GetSingletonPtr(); }

std::string_view FormatName(std::uint16_t format) {
  for (const auto& [name, value] : kFormats) {
    if (value == format) {
      return name;
    }
  }
  return {};
}

// 0 for a name that is no format.
std::uint16_t FormatFromName(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  for (const auto& [known, value] : kFormats) {
    if (known == name) {
      return value;
    }
  }
  return 0;
}

std::string DescribeFormat(int frequency, std::uint16_t format, int channels) {
  return "frequency: " + std::to_string(frequency) +
         "Hz, format: " + std::string(FormatName(format)) +
         ", channels: " + std::to_string(channels);
}

void LogVersion(const char* text, int major, int minor, int patch) {
  Log() << text << major << "." << minor << "." << patch << "\n";
}

void LogSdlError() { Log().Error() << "Error description: " << SDL_GetError() << "\n"; }

bool InitAudioSubsystem() {
  Log() << "Initializing audio ";
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
    Log() << "[OK]\n";
    return true;
  }
  Log() << "[failed]\n";
  const CLogBlock block(Log());
  Log().Error() << "Initializing SDL_Audio didn't seem to work.\n";
  LogSdlError();
  return false;
}

// Another audio task may still have the mixer open.
void QuitAudioSubsystem() {
  if (Mix_QuerySpec(nullptr, nullptr, nullptr) == 0) {
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
  }
}

int Hold(const SStartNumber& number, int value) {
  const int held = std::clamp(value, number.least, number.most);
  return number.isPowerOfTwo ? static_cast<int>(std::bit_ceil(static_cast<unsigned>(held))) : held;
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

CTaskAudioSDLMixer::~CTaskAudioSDLMixer() { FreePlayers(); }

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
  const std::uint16_t format =
      params.IsType(1, CVariable::kString) ? FormatFromName(params.GetString(1)) : std::uint16_t{0};
  if (format != 0) {
    myFormat = format;
  } else {
    Log().Warning() << GetName()
                    << " 2nd start-up parameter (format) is of wrong type, should be a string\n";
  }
}

bool CTaskAudioSDLMixer::Start() {
  Exit();
  if (!InitAudioSubsystem()) {
    return false;
  }
  Log() << "Initializing mixer API\n";
  if (!OpenDevice()) {
    QuitAudioSubsystem();
    return false;
  }
  Log() << "Mixer API initialized succesfully\n\n";
  const int chunkMilliseconds = (myChunkSize * 1000 + myDeviceFrequency - 1) / myDeviceFrequency;
  myMusicPlayer = std::make_unique<CSDLMixerMusicPlayer>(chunkMilliseconds);
  myEffectPlayer = std::make_unique<CSDLMixerEffectPlayer>();
  myAudioConsole = std::make_unique<CAudioConsoleImpl>(*myMusicPlayer, *myEffectPlayer);
  return true;
}

bool CTaskAudioSDLMixer::OpenDevice() {
  const CLogBlock block(Log());
  LogVersion("Compiled with SDL_mixer version: ", SDL_MIXER_MAJOR_VERSION, SDL_MIXER_MINOR_VERSION,
             SDL_MIXER_PATCHLEVEL);
  const SDL_version& linked = *Mix_Linked_Version();
  LogVersion("Running with SDL_mixer version: ", linked.major, linked.minor, linked.patch);

  const std::string parameters = DescribeFormat(myFrequency, myFormat, myChannels) +
                                 ", chunksize: " + std::to_string(myChunkSize);
  Log() << "Opening audio device with " << parameters << "\t";
  if (Mix_OpenAudio(myFrequency, myFormat, myChannels, myChunkSize) == -1) {
    Log() << "[failed]\n";
    const CLogBlock errors(Log());
    Log().Error() << "Mix_OpenAudio failed with parameters " << parameters << "\n";
    LogSdlError();
    return false;
  }
  myIsOpen = true;
  Log() << "[OK]\n";
  DescribeDevice();
  Mix_AllocateChannels(myMixChannels);
  return true;
}

// The device need not have what it was asked for.
void CTaskAudioSDLMixer::DescribeDevice() {
  int frequency = myFrequency;
  std::uint16_t format = myFormat;
  int channels = myChannels;
  const int timesOpened = Mix_QuerySpec(&frequency, &format, &channels);
  if (timesOpened > 0) {
    Log() << "Audio device opened " << timesOpened << " times  with parameters "
          << DescribeFormat(frequency, format, channels) << "\n";
  } else {
    Log().Warning() << "Error in executing Mix_QuerySpec: " << SDL_GetError() << "\n";
  }
  myDeviceFrequency = std::max(frequency, 1);

  std::array<char, kDriverNameSize> driver{};
  SDL_AudioDriverName(driver.data(), kDriverNameSize);
  Log() << "Using audiodriver: " << driver.data() << "\n";
  Log() << "Number of audio channels allocated " << myMixChannels << "\n";
}

void CTaskAudioSDLMixer::Update() {
  if (myIsOpen) {
    myMusicPlayer->Update();
    myEffectPlayer->Update();
  }
}

void CTaskAudioSDLMixer::Exit() {
  FreePlayers();
  CloseDevice();
}

void CTaskAudioSDLMixer::FreePlayers() {
  myAudioConsole.reset();
  myMusicPlayer.reset();
  myEffectPlayer.reset();
}

// Only what this task has opened: SDL_mixer breaks when it is closed, or asked, once too often.
void CTaskAudioSDLMixer::CloseDevice() {
  if (std::exchange(myIsOpen, false)) {
    Mix_CloseAudio();
    QuitAudioSubsystem();
  }
}

void CTaskAudioSDLMixer::Pause() {
  if (myIsOpen) {
    myMusicPlayer->Pause();
    myEffectPlayer->Pause();
  }
}

void CTaskAudioSDLMixer::Resume() {
  if (myIsOpen) {
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
