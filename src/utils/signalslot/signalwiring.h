#pragma once

namespace vask {

class CXmlContext;

namespace css {

class CSignal;

// The connections of a signal as XML, for LoadXml, SaveXml and objects that serialise a signal of
// theirs. One element "Slot" for each connection, with the attributes "target" (the object's name)
// and "function" (the slot's).
class CSignalWiring {
 public:
  // The signal must outlive the wiring.
  explicit CSignalWiring(CSignal& signal) : mySignal(signal) {}

  // Reading adds to the connections that are there; a slot that is not found is left out with a
  // warning in the log. Writing leaves out what is not published under a name.
  void Serialize(CXmlContext& xml);

 private:
  void Read(const CXmlContext& xml);
  void Write(CXmlContext& xml) const;

  CSignal& mySignal;
};

}  // namespace css
}  // namespace vask
