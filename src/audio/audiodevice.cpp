#include "audio/audiodevice.h"

#include "audio/audioformat.h"
#include "utils/log/log.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <array>

namespace vask {

namespace {

constexpr int kDriverNameSize = 256;

// How many holds there are, by the mixer's own count.
int CountHolds() { return Mix_QuerySpec(nullptr, nullptr, nullptr); }

std::string DescribeFormat(const SAudioSettings& settings) {
  return "frequency: " + std::to_string(settings.frequency) +
         "Hz, format: " + std::string(AudioFormatName(settings.format)) +
         ", channels: " + std::to_string(settings.channels);
}

std::string Describe(const SAudioSettings& settings) {
  return DescribeFormat(settings) + ", chunksize: " + std::to_string(settings.chunkSize);
}

void LogVersion(const char* text, int major, int minor, int patch) {
  Log() << text << major << "." << minor << "." << patch << "\n";
}

void LogSdlError() { Log().Error() << "Error description: " << SDL_GetError() << "\n"; }

bool InitAudioSubsystem() {
  Log() << "Initializing audio ";
  // Only once: the library over SDL 2 counts the calls, and the shutdown is a single one.
  if (SDL_WasInit(SDL_INIT_AUDIO) != 0 || SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
    Log() << "[OK]\n";
    return true;
  }
  Log() << "[failed]\n";
  const CLogBlock block(Log());
  Log().Error() << "Initializing SDL_Audio didn't seem to work.\n";
  LogSdlError();
  return false;
}

void QuitAudioSubsystem() {
  if (CountHolds() == 0) {
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
  }
}

// The device's actual settings, which may differ from the wanted ones. The mixer does not tell the
// size of its chunks.
SAudioSettings QueryDevice(int chunkSize) {
  SAudioSettings device{0, 0, 0, chunkSize, Mix_AllocateChannels(-1)};
  Mix_QuerySpec(&device.frequency, &device.format, &device.channels);
  return device;
}

void LogDevice(const SAudioSettings& device) {
  if (const int count = CountHolds()) {
    Log() << "Audio device opened " << count << " times  with parameters " << DescribeFormat(device)
          << "\n";
  } else {
    Log().Warning() << "Error in executing Mix_QuerySpec: " << SDL_GetError() << "\n";
  }
  std::array<char, kDriverNameSize> driver{};
  SDL_AudioDriverName(driver.data(), kDriverNameSize);
  Log() << "Using audiodriver: " << driver.data() << "\n";
}

bool OpenMixer(const SAudioSettings& device, const SAudioSettings& wanted) {
  LogVersion("Compiled with SDL_mixer version: ", SDL_MIXER_MAJOR_VERSION, SDL_MIXER_MINOR_VERSION,
             SDL_MIXER_PATCHLEVEL);
  const SDL_version& linked = *Mix_Linked_Version();
  LogVersion("Running with SDL_mixer version: ", linked.major, linked.minor, linked.patch);
  Log() << "Opening audio device with " << Describe(wanted) << "\t";
  if (Mix_OpenAudio(device.frequency, device.format, device.channels, device.chunkSize) == 0) {
    Log() << "[OK]\n";
    return true;
  }
  Log() << "[failed]\n";
  const CLogBlock block(Log());
  Log().Error() << "Mix_OpenAudio failed with parameters " << Describe(wanted) << "\n";
  LogSdlError();
  return false;
}

void AllocateChannels(int count) {
  Log() << "Number of audio channels allocated " << count << "\n";
  Mix_AllocateChannels(count);
}

}  // namespace

int CAudioDevice::ourChunkSize = 0;

std::unique_ptr<CAudioDevice> CAudioDevice::Open(const SAudioSettings& wanted,
                                                 const std::string& holder) {
  const bool isFirst = CountHolds() == 0;
  if (!isFirst && SDL_WasInit(SDL_INIT_AUDIO) == 0) {
    Log().Error() << "The sound device went with the window; stop the audio tasks that had it\n";
    return nullptr;
  }
  if (!InitAudioSubsystem()) {
    return nullptr;
  }
  Log() << "Initializing mixer API\n";
  if (!(isFirst ? OpenFirst(wanted) : Join(wanted, holder))) {
    QuitAudioSubsystem();
    return nullptr;
  }
  Log() << "Mixer API initialized succesfully\n\n";
  return std::unique_ptr<CAudioDevice>(new CAudioDevice);
}

bool CAudioDevice::OpenFirst(const SAudioSettings& wanted) {
  const CLogBlock block(Log());
  if (!OpenMixer(wanted, wanted)) {
    return false;
  }
  ourChunkSize = wanted.chunkSize;
  LogDevice(QueryDevice(ourChunkSize));
  AllocateChannels(wanted.mixChannels);
  return true;
}

// With another format than the device has, the mixer would close it under the other holders; fewer
// channels would cut off what they play.
bool CAudioDevice::Join(const SAudioSettings& wanted, const std::string& holder) {
  const CLogBlock block(Log());
  const SAudioSettings device = QueryDevice(ourChunkSize);
  if (!OpenMixer(device, wanted)) {
    return false;
  }
  LogDevice(device);
  if (Describe(device) != Describe(wanted)) {
    Log().Warning() << holder << " shares the audio device as it is, with " << Describe(device)
                    << "\n";
  }
  AllocateChannels(std::max(wanted.mixChannels, device.mixChannels));
  return true;
}

CAudioDevice::~CAudioDevice() {
  Mix_CloseAudio();
  QuitAudioSubsystem();
}

int CAudioDevice::ChunkMilliseconds() const {
  const int frequency = std::max(1, QueryDevice(ourChunkSize).frequency);
  return (ourChunkSize * 1000 + frequency - 1) / frequency;
}

}  // namespace vask
