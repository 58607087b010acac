#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "events/eventbridge.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"

namespace vask::test {

// Writes its hooks down as "name.hook " and does in them what the test wants. An update is written
// as the name alone.
class CRecorder : public CTask {
 public:
  CRecorder(const std::string& name, int priority, std::string& record) : myRecord(record) {
    SetName(name);
    SetPriority(priority);
  }

  using CTask::Start;
  bool Start() override {
    const bool result = runs;  // the reaction may delete the task
    Note("start", ".start");
    return result;
  }
  void Update() override { Note("update", ""); }
  void Exit() override { Note("exit", ".exit"); }
  void Pause() override { Note("pause", ".pause"); }
  void Resume() override { Note("resume", ".resume"); }
  bool PauseOnFocusLost() const override { return pausesOnFocusLost; }

  bool runs = true;
  bool pausesOnFocusLost = false;
  // Done once, in the hook of that name. May delete the task.
  std::map<std::string, std::function<void()>> reactions;

 private:
  void Note(const std::string& hook, const std::string& written) {
    myRecord += GetName() + written + " ";
    if (auto reaction = reactions.extract(hook)) {
      reaction.mapped()();
    }
  }

  std::string& myRecord;
};

// A world of its own: a fresh kernel on a clock that stands, and tasks that record.
class CKernelTest : public testing::Test {
 protected:
  CKernelTest() { Clean(); }
  ~CKernelTest() override { Clean(); }

  void Clean() {
    tasks.clear();
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
  }

  static CKernel& Kernel() { return CKernel::GetSingleton(); }
  static void Focus(bool gained) { CEventBridge::GetSingleton().FocusEvent(gained); }
  void Pause(const std::string& name) { Kernel().PauseTask(tasks[name].get()); }
  void Resume(const std::string& name) { Kernel().ResumeTask(tasks[name].get()); }
  void Kill(const std::string& name) { Kernel().KillTask(tasks[name].get()); }

  CRecorder& Make(const std::string& name, int priority, unsigned interval = 0) {
    tasks[name] = std::make_unique<CRecorder>(name, priority, record);
    tasks[name]->SetTimedInterval(interval);
    return *tasks[name];
  }

  CRecorder& Start(const std::string& name, int priority, unsigned interval = 0, bool runs = true) {
    CRecorder& task = Make(name, priority, interval);
    task.runs = runs;
    Kernel().StartTask(&task, nullptr);
    return task;
  }

  // Runs so many frames, calling `onFrame` at the front of each, then quits. Answers what the
  // frames recorded; `record` then holds the frame of the quitting.
  std::string RunFrames(int frames, const std::function<void(int)>& onFrame = nullptr) {
    struct CDriver : CTask {
      void Update() override { onFrame(frame++); }
      std::function<void(int)> onFrame;
      int frame = 0;
    } driver;
    record.clear();
    std::string recorded;
    driver.SetPriority(-1000);
    driver.onFrame = [&](int frame) {
      if (frame == frames) {
        recorded = std::exchange(record, {});
        Kernel().Quit();
      } else if (onFrame) {
        onFrame(frame);
      }
    };
    Kernel().StartTask(&driver, nullptr);
    EXPECT_EQ(Kernel().Run(), 0);
    return recorded;
  }

  CFakeClock clock;
  std::string record;
  std::map<std::string, std::unique_ptr<CRecorder>> tasks;
};

}  // namespace vask::test
