#include "tools/tester.h"
#include "utils/xml/xml.h"

#include <memory>
#include <sstream>
#include <string>

namespace vask::tester {
namespace {

std::string Written(const CXmlElement& root) {
  std::ostringstream stream;
  WriteXml(root, stream);
  return stream.str();
}

bool TestXmlRoundTrip(STest& test) {
  CXmlElement root("Shelf");
  root.SetAttribute("label", "two words");
  CXmlContext writing(&root, CXmlContext::kWriting);
  std::string title = "What a kitten sees";
  CRect<int> place{1, -2, 30, 40};
  writing.Value("Title", title);
  writing.Value("Place", place);

  std::istringstream document(Written(root));
  const std::unique_ptr<CXmlElement> copy = ReadXml(document);
  VASK_TEST_ASSERT(test, copy != nullptr, "the document came back empty");
  VASK_TEST_ASSERT(test, Written(*copy) == Written(root), Written(*copy));

  CXmlContext reading(copy.get(), CXmlContext::kReading);
  std::string titleRead;
  CRect<int> placeRead{};
  VASK_TEST_ASSERT(test, reading.Value("Title", titleRead) && titleRead == title, titleRead);
  VASK_TEST_ASSERT(test, reading.Value("Place", placeRead) && placeRead == place, Written(*copy));
  return false;
}

const CTestRegistrar theRegistrar(&TestXmlRoundTrip, "XML round trip", __FILE__);

}  // namespace
}  // namespace vask::tester
