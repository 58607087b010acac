#include "console/console.h"

#include "console/assignmentchain.h"
#include "console/commandfactory.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "console/scriptguard.h"
#include "utils/inputfile.h"
#include "utils/log/log.h"
#include "utils/trim.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <system_error>
#include <utility>

namespace vask {
namespace {

constexpr std::size_t kNone = std::string::npos;

// The pieces between the separators (never empty); pieces of length zero are dropped.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    if (end > start) {
      pieces.push_back(text.substr(start, end - start));
    }
    start = end + separator.size();
  }
  return pieces;
}

std::string_view Unquote(std::string_view piece) {
  const bool quoted = piece.size() >= 2 && piece.front() == '"' && piece.back() == '"';
  return quoted ? piece.substr(1, piece.size() - 2) : piece;
}

void AddParam(CConsoleParams& params, std::string_view piece) {
  const std::string_view trimmed = Trim(piece);
  if (trimmed.find_first_not_of("0123456789.+-") == kNone) {
    params.AddNumber(CVariableString(std::string(trimmed)).GetNumber());
  } else {
    params.AddString(std::string(Unquote(trimmed)));
  }
}

// The keys of a console's map as a person writes them.
template <typename Map>
std::vector<std::string> Names(const Map& entries, bool caseSensitive) {
  std::vector<std::string> names;
  for (const auto& [key, entry] : entries) {
    std::string& name = names.emplace_back(key);
    if (!caseSensitive) {
      std::ranges::transform(name, name.begin(),
                             [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    }
  }
  std::ranges::sort(names);  // the keys are sorted by their capitals
  return names;
}

// A script need not be there; one that is there has to be read to its end.
void ReportIfUnread(const std::string& fileName, const std::ifstream& file) {
  std::error_code error;
  const bool isUnread = !file.is_open() || file.bad();
  if (isUnread && std::filesystem::is_regular_file(fileName, error)) {
    Log().Error() << "The script " << fileName << " can't be read to its end\n";
  }
}

}  // namespace

CConsole::CConsole() = default;

CConsole::~CConsole() {
  if (CCommandFactory* factory = CCommandFactory::PeekSingletonPtr()) {
    factory->Forget(this);
  }
}

std::string CConsole::Execute(const std::string& line, bool) {
  if (IsSpecialLine(line)) {
    return ExecuteSpecialLine(line);
  }
  CConsoleCommand* command = GetCommand(std::string(Trim(GetCommandName(line))));
  if (command == nullptr) {
    return ExecuteAssignment(line);
  }
  const std::unique_ptr<CConsoleParams> params = ParseParams(line);
  return params != nullptr ? command->Execute(params.get()) : command->Execute();
}

std::unique_ptr<CConsoleParams> CConsole::ParseParams(std::string_view line) {
  const std::size_t open = line.find('(');
  const std::size_t close = line.rfind(')');
  if (open == kNone || close == kNone || close < open) {
    return nullptr;
  }
  auto params = std::make_unique<CConsoleParams>();
  for (const std::string_view piece : Split(line.substr(open + 1, close - open - 1), ",")) {
    AddParam(*params, piece);
  }
  return params;
}

std::string CConsole::ExecuteFile(const std::string& fileName) {
  std::ifstream file = OpenInputFile(fileName);
  if (!file) {
    ReportIfUnread(fileName, file);
    return {};
  }
  const CScriptGuard guard(fileName);
  std::string line;
  while (guard.MayExecute() && std::getline(file, line)) {
    const bool hasLineEnd = !file.eof();
    if (hasLineEnd && line.ends_with('\r')) {
      line.pop_back();
    }
    Execute(line, false);
  }
  ReportIfUnread(fileName, file);
  return {};
}

std::string CConsole::ExecuteAssignment(const std::string& line) {
  if (line.find('=') == kNone) {
    const std::string word(Trim(line));
    return FindVariable(word) != nullptr ? GetVariable(word) : word;
  }
  // A command in the line may free the line, as one that binds a key anew does.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const std::string copy = line;
  const CAssignmentChain chain(copy, LongestCommandName(), [this](const std::string& name) {
    return GetCommand(name) != nullptr;
  });
  return AssignToAll(chain.Names(), Execute(std::string(chain.Value()), false));
}

std::string CConsole::AssignToAll(const std::vector<std::string_view>& names,
                                  const std::string& result) {
  std::string value(Trim(result));
  // The names that have the value already. Setting them once more would change nothing, and would
  // make a long value at the end of a long chain a quadratic matter.
  std::set<std::string_view> settled;
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    if (!settled.insert(*name).second) {
      continue;
    }
    const std::string variable(*name);
    SetVariable(variable, value);
    const std::string taken = GetVariable(variable);
    if (Trim(taken) != value) {  // a variable of the program may have made something else of it
      value = Trim(taken);
      settled.clear();
    }
  }
  return GetVariable(std::string(names.front()));
}

std::size_t CConsole::LongestCommandName() const {
  std::size_t longest = 0;
  for (const auto& [key, command] : myCommands) {
    longest = std::max(longest, key.size());
  }
  return longest;
}

void CConsole::AddCommand(const std::string& name, CConsoleCommand* command) {
  RemoveCommand(name);
  myCommands.emplace(Key(name), command);
}

void CConsole::RemoveCommand(const std::string& name) { myCommands.erase(Key(name)); }

CConsoleCommand* CConsole::GetCommand(const std::string& name) {
  const auto found = myCommands.find(Key(name));
  return found == myCommands.end() ? nullptr : found->second;
}

void CConsole::SetCaseSensitive(bool caseSensitive) { myCaseSensitive = caseSensitive; }

bool CConsole::IsCaseSensitive() const { return myCaseSensitive; }

std::map<std::string, CConsoleCommand*> CConsole::GetCommands() const { return myCommands; }

std::string CConsole::GetCommandName(const std::string& line) {
  return line.substr(0, line.find('('));
}

bool CConsole::IsSpecialLine(const std::string& line) {
  return Trim(line).empty() || line.find("::") != kNone || line.find(';') != kNone ||
         line.find("//") != kNone;
}

std::string CConsole::ExecuteSpecialLine(const std::string& line) {
  const std::string_view trimmed = Trim(line);
  if (trimmed.empty() || trimmed.starts_with("//")) {
    return {};
  }
  // The whole line, its comment included, decides of what kind it is; only the text before the
  // comment is executed. A copy, since a command may free the line.
  const bool isList = line.find(';') != kNone;
  const bool isNamespaceCall = !isList && line.find("::") != kNone;
  const std::string statement = line.substr(0, line.find("//"));
  if (isList) {
    return ExecuteStatements(statement);
  }
  return isNamespaceCall ? ExecuteNamespaceCall(statement) : Execute(statement, false);
}

std::string CConsole::ExecuteStatements(const std::string& list) {
  std::string results;
  for (const std::string_view piece : Split(list, ";")) {
    results += Execute(std::string(piece), false) + "\n";
  }
  return results;
}

std::string CConsole::ExecuteNamespaceCall(const std::string& call) {
  const std::vector<std::string_view> pieces = Split(call, "::");
  if (pieces.size() < 2) {
    return {};
  }
  return ExecuteInNamespace(std::string(pieces[0]), std::string(pieces[1]));
}

std::string CConsole::ExecuteInNamespace(const std::string&, const std::string& command) {
  return Execute(command, false);
}

std::vector<std::string> CConsole::GetCommandNames() const {
  return Names(myCommands, myCaseSensitive);
}

std::vector<std::string> CConsole::GetVariableNames() const {
  return Names(myVariables, myCaseSensitive);
}

void CConsole::AddVariable(const std::string& name, std::unique_ptr<CVarRefBase> variable) {
  RemoveVariable(name);
  if (variable != nullptr) {
    myVariables.emplace(Key(name), std::move(variable));
  }
}

void CConsole::RemoveVariable(const std::string& name) { myVariables.erase(Key(name)); }

CVarRefBase* CConsole::FindVariable(const std::string& name) const {
  const auto found = myVariables.find(Key(name));
  return found == myVariables.end() ? nullptr : found->second.get();
}

void CConsole::SetVariable(const std::string& name, const std::string& text) {
  if (FindVariable(name) == nullptr) {
    AddVariable(name, std::make_unique<CVarRefEmpty<std::string>>(name));
  }
  FindVariable(name)->SetString(text);
}

std::string CConsole::GetVariable(const std::string& name) const {
  const CVarRefBase* variable = FindVariable(name);
  return variable == nullptr ? std::string() : variable->GetString();
}

std::string CConsole::Key(const std::string& name) const {
  std::string key = name;
  if (!myCaseSensitive) {
    std::transform(key.begin(), key.end(), key.begin(), [](char c) {
      return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    });
  }
  return key;
}

}  // namespace vask
