#pragma once

#include "events/mouselistener.h"
#include "input/mouseevent.h"
#include "input/taskrecordingdeviceimpl.h"

#include <string>

namespace vask {

// Writes the mouse events to a text file for as long as it lives, for CPlaybackMouse to play later:
// first the seed of the random numbers, which it sets, then a line for each event. The file is
// complete after every event, so that the record of a run that crashes is of use. What cannot be
// written, for example to a pipe, is dropped silently.
class CRecordMouse : public IMouseListener, public ITaskRecordingDeviceImpl {
 public:
  // Truncates an existing file.
  explicit CRecordMouse(std::string fileName);
  ~CRecordMouse() override;
  CRecordMouse(const CRecordMouse&) = delete;
  CRecordMouse& operator=(const CRecordMouse&) = delete;

  void OnMouseMove(int x, int y) override;
  void OnMouseButtonDown(int button) override;
  void OnMouseButtonUp(int button) override;
  void Update() override {}

 private:
  void Append(const SMouseEvent& event) const;
  void AppendButton(SMouseEvent::EType type, int button) const;

  std::string myFileName;
};

}  // namespace vask
