#include "tools/assertmail.h"

#include "kernel/applicationfactory.h"
#include "tools/mail.h"

namespace vask {
namespace {

constexpr const char* kProgramName = "Cassert test program";
constexpr const char* kSubject = "BUGBUG: Cassert test program";

// The variable of the application console without the quotes around it; `otherwise` when it is
// empty, or when there is no console: a check may fail early or late.
std::string GetSetting(const std::string& name, const std::string& otherwise) {
  const CApplicationFactory* factory = CApplicationFactory::PeekSingletonPtr();
  const CConsole* console = factory == nullptr ? nullptr : factory->PeekConsole();
  std::string text = console == nullptr ? "" : console->GetVariable(name);
  if (text.size() > 1 && text.front() == '"' && text.back() == '"') {
    text = text.substr(1, text.size() - 2);
  }
  return text.empty() ? otherwise : text;
}

int GetPort() {
  int port = 0;
  ReadFromText(GetSetting("mail_port", ""), port);
  return port;
}

std::string ComposeReport(const CAssertion& assertion, const std::string& description) {
  std::string report = assertion.GetMessage() + "\n\n" + assertion.GetExpression() + " (" +
                       assertion.GetFile() + ":" + std::to_string(assertion.GetLine()) + ")\n\n";
  for (const auto& variable : assertion.GetVariables()) {
    report += std::string(variable->IsReadOnly() ? "const " : "") + variable->GetTypeName() + " " +
              variable->GetName() + " = " + variable->GetString() + "\n";
  }
  return report + "\n" + description;
}

}  // namespace

std::string MailAssertion(const CAssertion& assertion, const std::string& description) {
  CMail mail;
  mail.SetHost(GetSetting("mail_host", ""));
  mail.SetPort(GetPort());
  mail.SetHelo(GetSetting("mail_helo", "localhost"));
  mail.SetSender(kProgramName, GetSetting("mail_sender", "brumble@localhost"));
  mail.SetSubject(kSubject);
  mail.SetText(ComposeReport(assertion, description));
  mail.Send(GetSetting("mail_recipient", ""));
  return mail.GetError();
}

}  // namespace vask
