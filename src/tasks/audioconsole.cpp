#include "tasks/audioconsole.h"

#include "audio/sdlmixereffectplayer.h"
#include "audio/sdlmixermusicplayer.h"
#include "console/console.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "kernel/applicationfactory.h"
#include "utils/log/log.h"

#include <utility>

namespace vask {

namespace {

constexpr int kDefaultFadeIn = 1000;  // milliseconds

// Logs a complaint; returns the empty result.
std::string Warn(const std::string& complaint) {
  CLog::GetSingletonPtr()->Warning() << complaint << "\n";
  return {};
}

// A command whose first argument is a file.
class CFileCommand : public CConsoleCommand {
 public:
  explicit CFileCommand(std::string name) : myName(std::move(name)) {}

  std::string Execute(CConsoleParams* params) override {
    if (params->Size() == 0) {
      return Execute();
    }
    if (!params->IsType(0, CVariable::kString)) {
      return Warn(myName + " -command the 1st parameter is of wrong type, should be string");
    }
    Run(params->GetString(0), *params);
    return {};
  }
  std::string Execute() override {
    return Warn(myName + " -command requires atleast one parameter");
  }

 protected:
  virtual void Run(const std::string& file, const CConsoleParams& params) = 0;

 private:
  std::string myName;
};

class CPlayEffectCmd : public CFileCommand {
 public:
  explicit CPlayEffectCmd(CSDLMixerEffectPlayer& effects)
      : CFileCommand("PlayEffect"), myEffects(effects) {}

 protected:
  void Run(const std::string& file, const CConsoleParams&) override { myEffects.Play(file); }

 private:
  CSDLMixerEffectPlayer& myEffects;
};

class CPreloadEffectCmd : public CFileCommand {
 public:
  explicit CPreloadEffectCmd(CSDLMixerEffectPlayer& effects)
      : CFileCommand("PreloadEffect"), myEffects(effects) {}

 protected:
  void Run(const std::string& file, const CConsoleParams&) override { myEffects.Preload(file); }

 private:
  CSDLMixerEffectPlayer& myEffects;
};

class CPlayMusicCmd : public CFileCommand {
 public:
  explicit CPlayMusicCmd(CSDLMixerMusicPlayer& music) : CFileCommand("PlayMusic"), myMusic(music) {}

 protected:
  void Run(const std::string& file, const CConsoleParams&) override { myMusic.Play(file); }

 private:
  CSDLMixerMusicPlayer& myMusic;
};

class CPlayMusicFadeInCmd : public CFileCommand {
 public:
  explicit CPlayMusicFadeInCmd(CSDLMixerMusicPlayer& music)
      : CFileCommand("PlayMusicFadeIn"), myMusic(music) {}

 protected:
  void Run(const std::string& file, const CConsoleParams& params) override {
    int milliseconds = kDefaultFadeIn;
    if (params.Has(1, CVariable::kNumber)) {
      milliseconds = ToInteger(params.GetNumber(1));
    } else if (params.Size() > 1) {
      Warn("PlayMusicFadeIn -command the 2nd parameter is of wrong type, should be a number");
    }
    myMusic.PlayFadeIn(file, milliseconds);
  }

 private:
  CSDLMixerMusicPlayer& myMusic;
};

class CStopMusicCmd : public CConsoleCommand {
 public:
  explicit CStopMusicCmd(CSDLMixerMusicPlayer& music) : myMusic(music) {}

  std::string Execute(CConsoleParams*) override {
    Warn("StopMusic -command, no parameters needed");
    return Execute();
  }
  std::string Execute() override {
    myMusic.Stop();
    return {};
  }

 private:
  CSDLMixerMusicPlayer& myMusic;
};

class CStopMusicFadeOutCmd : public CConsoleCommand {
 public:
  explicit CStopMusicFadeOutCmd(CSDLMixerMusicPlayer& music) : myMusic(music) {}

  std::string Execute(CConsoleParams* params) override {
    if (params->Size() == 0) {
      return Execute();
    }
    if (!params->IsType(0, CVariable::kNumber)) {
      return Warn("StopMusicFadeOut -command the 1st parameter is of wrong type, should be number");
    }
    myMusic.StopFadeOut(ToInteger(params->GetNumber(0)));
    return {};
  }
  std::string Execute() override {
    return Warn("StopMusicFadeOut -command requires atleast one parameter");
  }

 private:
  CSDLMixerMusicPlayer& myMusic;
};

}  // namespace

CTaskAudioSDLMixer::CAudioConsoleImpl::CAudioConsoleImpl(CSDLMixerMusicPlayer& music,
                                                         CSDLMixerEffectPlayer& effects)
    : myConsole(CApplicationFactory::GetSingletonPtr()->NewConsole()) {
  Add("PlayMusic", std::make_unique<CPlayMusicCmd>(music));
  Add("PlayMusicFadeIn", std::make_unique<CPlayMusicFadeInCmd>(music));
  Add("StopMusic", std::make_unique<CStopMusicCmd>(music));
  Add("StopMusicFadeOut", std::make_unique<CStopMusicFadeOutCmd>(music));
  Add("PlayEffect", std::make_unique<CPlayEffectCmd>(effects));
  Add("PreloadEffect", std::make_unique<CPreloadEffectCmd>(effects));
}

CTaskAudioSDLMixer::CAudioConsoleImpl::~CAudioConsoleImpl() = default;

void CTaskAudioSDLMixer::CAudioConsoleImpl::Add(const char* name,
                                                std::unique_ptr<CConsoleCommand> command) {
  myConsole->AddCommand(name, command.get());
  myCommands.push_back(std::move(command));
}

void CTaskAudioSDLMixer::CAudioConsoleImpl::Execute(const std::string& line) {
  myConsole->Execute(line, false);
}

}  // namespace vask
