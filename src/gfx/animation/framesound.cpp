#include "gfx/animation/framesound.h"

#include "console/console.h"
#include "kernel/applicationfactory.h"
#include "utils/log/log.h"
#include "utils/xml/xmlcontext.h"

#include <algorithm>
#include <utility>

namespace vask {
namespace {

const CFrameTypeRegistrar<CFrameSound> theRegistrar(IFrame::frame_sound);

// These would end the name, or the command, in a console line: a file could run commands that way.
bool FitsConsoleLine(const std::string& name) {
  const auto contains = [&name](const char* part) { return name.find(part) != std::string::npos; };
  return !contains("\"") && !contains(",") && !contains("::") && !contains(";") && !contains("//");
}

}  // namespace

bool CFrameSound::Apply(CSprite*, unsigned) {
  if (!mySoundFile.empty()) {
    const std::string line = "Audio::PlayEffect( \"" + mySoundFile + "\" );";
    CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
    // The frame may be gone now.
  }
  return true;
}

unsigned CFrameSound::GetDelay() const {
  return myWrapped != nullptr ? myWrapped->GetDelay() : GetLength();
}

unsigned CFrameSound::GetLength() const {
  return myWrapped != nullptr ? myWrapped->GetLength() : 0;
}

void CFrameSound::Serialize(CXmlContext& xml) {
  if (xml.IsWriting()) {
    xml.SetAttribute("sound_file", mySoundFile);
    return;
  }
  const CXmlElement* element = xml.GetCurrent();
  if (element == nullptr || !element->HasAttribute("sound_file")) {
    return;
  }
  const std::string name = element->GetAttribute("sound_file").ToString();
  if (FitsConsoleLine(name)) {
    mySoundFile = name;
  } else {
    CLog::GetSingletonPtr()->Warning()
        << "Animation: the sound file name \"" << name << "\" is refused\n";
  }
}

}  // namespace vask
