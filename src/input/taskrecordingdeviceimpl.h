#pragma once

namespace vask {

// What records or plays back the input of a run. Whoever owns one updates it once per frame.
class ITaskRecordingDeviceImpl {
 public:
  virtual ~ITaskRecordingDeviceImpl() = default;
  virtual void Update() = 0;
};

}  // namespace vask
