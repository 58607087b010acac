#include "console/commandfactory.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "game/brumbletaskimpl.h"
#include "kernel/consolebridge.h"

#include <memory>
#include <string>
#include <utility>

// The commands of the library "extra" that record and play games. They have no namespace: every
// line that goes to the task of the game drops a kitten.

namespace brumble {
namespace {

constexpr const char* kNoGame = "Error: no game task runs.";

// A command with the name of a file for the game that runs.
class CFileCommand : public vask::CConsoleCommand {
 public:
  using Action = std::string (CBrumbleTaskImpl::*)(const std::string& file);

  CFileCommand(std::string name, std::string help, Action action)
      : myName(std::move(name)), myHelp(std::move(help)), myAction(action) {}

  std::string Execute() override {
    return "Error: " + myName + "() You need to give a filename as a parameter.";
  }
  std::string Execute(vask::CConsoleParams* params) override {
    if (!params->Has(0, vask::CVariable::kString) || params->GetString(0).empty()) {
      return Execute();
    }
    CBrumbleTaskImpl* const game = CBrumbleTaskImpl::GetCurrent();
    return game != nullptr ? (game->*myAction)(params->GetString(0)) : kNoGame;
  }
  std::string GetHelp() const override { return myHelp; }

 private:
  std::string myName;
  std::string myHelp;
  Action myAction;
};

class CStopReplay : public vask::CConsoleCommand {
 public:
  std::string Execute() override {
    if (CBrumbleTaskImpl* const game = CBrumbleTaskImpl::GetCurrent()) {
      game->StopReplay();
    }
    return {};
  }
  std::string GetHelp() const override {
    return "stopreplay ends the recorded game that plays, and shows the title.";
  }
};

void RegisterReplayCommands() {
  vask::CCommandFactory& factory = vask::CCommandFactory::GetSingleton();
  factory.AddCommand(
      "extra", "recordgame",
      std::make_unique<CFileCommand>(
          "RecordGame",
          "recordgame(file) records the next game into a new file, instead of the folder replays.",
          &CBrumbleTaskImpl::RecordNext));
  factory.AddCommand(
      "extra", "replaygame",
      std::make_unique<CFileCommand>(
          "ReplayGame",
          "replaygame(file) plays a recorded game. Blank holds it and lets it go on, the right "
          "arrow goes on by a frame, up and down double and halve the speed; stopreplay ends it.",
          &CBrumbleTaskImpl::StartReplay));
  factory.AddCommand("extra", "stopreplay", std::make_unique<CStopReplay>());
}

const vask::CConsoleLibraryRegistrar theRegistrar("extra", &RegisterReplayCommands);

}  // namespace
}  // namespace brumble
