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

// Keys as a person writes them.
std::vector<std::string> Names(std::vector<std::string> keys, bool caseSensitive) {
  for (std::string& name : keys) {
    if (!caseSensitive) {
      std::ranges::transform(name, name.begin(),
                             [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    }
  }
  std::ranges::sort(keys);
  return keys;
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
  std::string name = GetCommandName(line);
  name = Trim(name);
  CConsoleCommand* command = GetCommand(name);
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
  const std::size_t equals = line.find('=');
  if (equals == kNone) {
    const std::string word(Trim(line));
    const CVarRefBase* variable = FindVariable(word);
    return variable != nullptr ? variable->GetString() : word;
  }
  return equals > 0 && line.find('=', equals + 1) == kNone ? ExecuteOneAssignment(line, equals)
                                                           : ExecuteAssignmentChain(line);
}

std::string CConsole::ExecuteOneAssignment(const std::string& line, std::size_t equals) {
  // Copied first: a command in the line may free the line, as one that binds a key anew does.
  const std::string name(Trim(std::string_view(line).substr(0, equals)));
  const std::string result = Execute(line.substr(equals + 1), false);
  return Assign(name, std::string(Trim(result)));
}

std::string CConsole::ExecuteAssignmentChain(const std::string& line) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the line may be freed, as above
  const std::string copy = line;
  const CAssignmentChain chain(copy, myLongestCommand, [this](const std::string& name) {
    return GetCommand(name) != nullptr;
  });
  return AssignToAll(chain.Names(), Execute(std::string(chain.Value()), false));
}

std::string CConsole::Assign(const std::string& name, const std::string& value) {
  CVarRefBase& variable = FindOrAddVariable(name);
  variable.SetString(value);
  return variable.GetString();
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
    const std::string taken = Assign(std::string(*name), value);
    if (Trim(taken) != value) {  // a variable of the program may have made something else of it
      value = Trim(taken);
      settled.clear();
    }
  }
  return GetVariable(std::string(names.front()));
}

void CConsole::AddCommand(const std::string& name, CConsoleCommand* command) {
  RemoveCommand(name);
  const auto added = myCommands.emplace(Key(name), command).first;
  myLongestCommand = std::max(myLongestCommand, added->first.size());
}

void CConsole::RemoveCommand(const std::string& name) { myCommands.erase(Key(name)); }

CConsoleCommand* CConsole::GetCommand(const std::string& name) {
  if (name.size() > myLongestCommand) {
    return nullptr;
  }
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
  std::vector<std::string> keys;
  for (const auto& [key, command] : myCommands) {
    keys.push_back(key);
  }
  return Names(std::move(keys), myCaseSensitive);
}

std::vector<std::string> CConsole::GetVariableNames() const {
  return Names(myVariables.GetKeys(), myCaseSensitive);
}

void CConsole::AddVariable(const std::string& name, std::unique_ptr<CVarRefBase> variable) {
  if (variable != nullptr) {
    myVariables.Put(Key(name), std::move(variable));
  } else {
    RemoveVariable(name);
  }
}

void CConsole::RemoveVariable(const std::string& name) { myVariables.Erase(Key(name)); }

CVarRefBase* CConsole::FindVariable(const std::string& name) const {
  return myVariables.Find(Key(name));
}

CVarRefBase& CConsole::FindOrAddVariable(const std::string& name) {
  std::string key = Key(name);
  CVarRefBase* const variable = myVariables.Find(key);
  return variable != nullptr
             ? *variable
             : myVariables.Put(std::move(key), std::make_unique<CVarRefEmpty<std::string>>(name));
}

void CConsole::SetVariable(const std::string& name, const std::string& text) {
  FindOrAddVariable(name).SetString(text);
}

std::string CConsole::GetVariable(const std::string& name) const {
  const CVarRefBase* variable = FindVariable(name);
  return variable == nullptr ? std::string() : variable->GetString();
}

// The program stays in the "C" locale, in which no other letters have capitals. A call of the
// library for each one would take as long as the look into the table.
std::string CConsole::Key(const std::string& name) const {
  std::string key = name;
  if (!myCaseSensitive) {
    std::ranges::transform(key, key.begin(), [](char c) {
      return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
  }
  return key;
}

}  // namespace vask
