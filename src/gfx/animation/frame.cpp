#include "gfx/animation/frame.h"

#include "gfx/sprite/spritetypes.h"
#include "utils/log/log.h"
#include "utils/xml/xmlcontext.h"

#include <string>
#include <string_view>

namespace vask {
namespace {

// A limit, so that a hostile file cannot use up the stack.
constexpr int kDeepestWrapped = 16;

bool IsTooDeep(const CXmlElement& element) {
  int depth = 0;
  for (const CXmlElement* outer = &element; outer != nullptr && outer->GetName() == "Wrapped";
       outer = outer->GetParent()) {
    ++depth;
  }
  return depth > kDeepestWrapped;
}

// Null for a name that is no frame type.
std::unique_ptr<IFrame> NewFrame(std::string_view typeName) {
  for (std::size_t i = 0; i < kFrameTypeNames.size(); ++i) {
    if (typeName == kFrameTypeNames[i]) {
      const CFrameFactory& factory = CFrameFactory::GetSingleton();
      return std::unique_ptr<IFrame>(factory.GetNew(static_cast<IFrame::frame_type>(i)));
    }
  }
  return nullptr;
}

}  // namespace

std::unique_ptr<IFrame> ReadFrame(CXmlElement& element, const std::string& fileName) {
  CLog& log = *CLog::GetSingletonPtr();
  if (IsTooDeep(element)) {
    log.Warning() << "Animation: a frame is wrapped too deep, it is skipped\n";
    return nullptr;
  }
  const std::string type = element.GetAttribute("type").ToString();
  std::unique_ptr<IFrame> frame = NewFrame(type);
  if (frame == nullptr) {
    log.Warning() << "Animation: a frame of the unknown type \"" << type << "\" is skipped\n";
    return nullptr;
  }
  CXmlContext context(&element, CXmlContext::kReading, fileName);
  frame->Serialize(context);
  return frame;
}

void WriteFrame(CXmlContext& xml, const char* elementName, IFrame& frame) {
  xml.BeginNode(elementName);
  xml.SetAttribute("type", kFrameTypeNames[static_cast<std::size_t>(frame.GetType())]);
  frame.Serialize(xml);
  xml.EndNode(elementName);
}

}  // namespace vask
