#pragma once

namespace vask {

// Records or plays back the input of a run. The owner calls Update once per frame.
class ITaskRecordingDeviceImpl {
 public:
  virtual ~ITaskRecordingDeviceImpl() = default;
  virtual void Update() = 0;
};

}  // namespace vask
