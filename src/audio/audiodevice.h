#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace vask {

// How an audio task would like the sound device.
struct SAudioSettings {
  int frequency;         // Hz
  std::uint16_t format;  // SDL's number of the sample format
  int channels;          // of the output
  int chunkSize;         // samples that are mixed at a time
  int mixChannels;       // effects that play at the same time
};

// One task's hold on the sound device and on the mixer, which all audio tasks share. The first hold
// opens the device as it likes it, a later one takes it as it is; the last one that goes closes it.
//
//   const std::unique_ptr<CAudioDevice> device = CAudioDevice::Open(settings, GetName());
//   if (device == nullptr) return false;
class CAudioDevice {
 public:
  // Null when there is no device. What came of it is logged; `holder` is named there.
  static std::unique_ptr<CAudioDevice> Open(const SAudioSettings& wanted,
                                            const std::string& holder);
  // Nothing of the holder's may be playing or loaded any more.
  ~CAudioDevice();
  CAudioDevice(const CAudioDevice&) = delete;
  CAudioDevice& operator=(const CAudioDevice&) = delete;

  // How long a chunk is that the device was asked for; it may have taken a longer one.
  int ChunkMilliseconds() const;

 private:
  CAudioDevice() = default;

  static bool OpenFirst(const SAudioSettings& wanted);
  static bool Join(const SAudioSettings& wanted, const std::string& holder);

  static int ourChunkSize;  // that the first hold asked for
};

}  // namespace vask
