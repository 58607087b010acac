#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "events/eventbridge.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "kernel/task.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"

namespace vask::test {

// Writes its hooks down as "name.hook " and does in them what the test wants.
class CRecorder : public CTask {
 public:
  CRecorder(std::string name, int priority, std::string& record) : myRecord(record) {
    SetName(name);
    SetPriority(priority);
  }

  using CTask::Start;
  bool Start() override {
    const bool result = runs;  // the reaction may delete the task
    Note("start");
    return result;
  }
  void Update() override { Note("update"); }
  void Exit() override { Note("exit"); }
  void Pause() override { Note("pause"); }
  void Resume() override { Note("resume"); }
  bool PauseOnFocusLost() const override { return pausesOnFocusLost; }

  bool runs = true;
  bool pausesOnFocusLost = false;
  // Done once, in the hook of that name. May delete the task.
  std::map<std::string, std::function<void()>> reactions;

 private:
  void Note(const std::string& hook) {
    myRecord += GetName() + "." + hook + " ";
    if (const auto found = reactions.find(hook); found != reactions.end()) {
      const auto reaction = std::move(found->second);
      reactions.erase(found);
      reaction();
    }
  }

  std::string& myRecord;
};

// Goes before all others in every frame.
class CDriver : public CTask {
 public:
  explicit CDriver(std::function<void(int)> onFrame) : myOnFrame(std::move(onFrame)) {
    SetPriority(-1000);
  }
  void Update() override { myOnFrame(myFrame++); }

 private:
  std::function<void(int)> myOnFrame;
  int myFrame = 0;
};

// A world of its own: a fresh kernel on a clock that stands, and tasks that record.
class CKernelTest : public testing::Test {
 protected:
  CKernelTest() { Clean(); }
  ~CKernelTest() override {
    tasks.clear();
    Clean();
  }

  static void Clean() {
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
  }

  CKernel& Kernel() { return CKernel::GetSingleton(); }

  CRecorder& Make(const std::string& name, int priority) {
    tasks[name] = std::make_unique<CRecorder>(name, priority, record);
    return *tasks[name];
  }

  CRecorder& Start(const std::string& name, int priority, unsigned interval = 0) {
    CRecorder& task = Make(name, priority);
    task.SetTimedInterval(interval);
    Kernel().StartTask(&task, nullptr);
    return task;
  }

  // Runs so many frames, calling `onFrame` at the front of each, then quits. Answers what the
  // frames recorded; `record` then holds the frame of the quitting.
  std::string RunFrames(int frames, const std::function<void(int)>& onFrame = nullptr) {
    record.clear();
    std::string recorded;
    CDriver driver([&](int frame) {
      if (frame == frames) {
        recorded = std::exchange(record, {});
        Kernel().Quit();
      } else if (onFrame) {
        onFrame(frame);
      }
    });
    Kernel().StartTask(&driver, nullptr);
    EXPECT_EQ(Kernel().Run(), 0);
    return recorded;
  }

  CFakeClock clock;
  std::string record;
  std::map<std::string, std::unique_ptr<CRecorder>> tasks;
};

}  // namespace vask::test
