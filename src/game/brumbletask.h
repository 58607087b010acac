#pragma once

#include "kernel/task.h"

#include <memory>

namespace brumble {

class CBrumbleTaskImpl;

// The game as a task of the engine, type "game". The game itself exists from the start of the task
// to its exit.
class CBrumbleTask : public vask::CTask {
 public:
  CBrumbleTask();
  ~CBrumbleTask() override;

  bool Start(vask::CConsoleParams* params) override;
  bool Start() override;
  void Update() override;
  void Exit() override;
  void Pause() override;
  void Resume() override;
  // Any line adds one more kitten, which scores nothing.
  bool ExecuteCommand(const std::string& line) override;
  bool PauseOnFocusLost() const override { return true; }

  // Null before the start and after the exit.
  CBrumbleTaskImpl* GetImpl() const { return myImpl.get(); }

 private:
  std::unique_ptr<CBrumbleTaskImpl> myImpl;
};

}  // namespace brumble
