#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace vask {

// What an audio task wants of the sound device.
struct SAudioSettings {
  int frequency;         // Hz
  std::uint16_t format;  // SDL's number of the sample format
  int channels;          // of the output
  int chunkSize;         // samples that are mixed at a time
  int mixChannels;       // effects that play at the same time
};

// One task's hold on the sound device and the mixer, which all audio tasks share. The first hold
// opens the device with its settings, later ones take it as it is; the last one to go closes it.
//
//     const std::unique_ptr<CAudioDevice> device = CAudioDevice::Open(settings, "Audio");
class CAudioDevice {
 public:
  // Null when there is no device. Logs the outcome, with the name of the holder.
  static std::unique_ptr<CAudioDevice> Open(const SAudioSettings& wanted,
                                            const std::string& holder);
  // The holder must have stopped and freed all its sounds.
  ~CAudioDevice();
  CAudioDevice(const CAudioDevice&) = delete;
  CAudioDevice& operator=(const CAudioDevice&) = delete;

  // The length of the chunk that the first hold wanted; the device may use a longer one.
  int ChunkMilliseconds() const;

 private:
  CAudioDevice() = default;

  static bool OpenFirst(const SAudioSettings& wanted);
  static bool Join(const SAudioSettings& wanted, const std::string& holder);

  static int ourChunkSize;  // that the first hold wanted
};

}  // namespace vask
