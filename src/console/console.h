#pragma once

#include "console/variabletable.h"
#include "utils/containers/varref.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vask {

class CConsoleCommand;
class CConsoleParams;

// Executes lines of the command language.
//
//   name                         a command without parameters, else a variable, else the word
//   name(1, text, "more text")   a command with numbers and strings; a string holds no comma
//   variable = value             the value is executed as a line; chains set every variable
//   one; two; three              statements in turn
//   task::name(...)              a command of a task's own console
//   // a comment
//
// Names are matched without regard to case unless SetCaseSensitive says otherwise. Commands are not
// owned, variables are.
class CConsole {
 public:
  CConsole();
  CConsole(const CConsole&) = delete;
  CConsole& operator=(const CConsole&) = delete;

  virtual ~CConsole();
  // Executes one line and returns its result. The base ignores `echo`.
  virtual std::string Execute(const std::string& line, bool echo);
  // Executes every line of a text file; returns an empty text. A file that cannot be read does
  // nothing. A file that is being executed already, or is nested more than 64 deep, is not executed
  // and logs one error.
  virtual std::string ExecuteFile(const std::string& fileName);
  // A line whose name is no command: an assignment, a variable, or a word that echoes back.
  virtual std::string ExecuteAssignment(const std::string& line);
  // Enters the command under the name, replacing an earlier one.
  virtual void AddCommand(const std::string& name, CConsoleCommand* command);
  virtual void RemoveCommand(const std::string& name);
  // Null for an unknown name.
  virtual CConsoleCommand* GetCommand(const std::string& name);
  virtual void SetCaseSensitive(bool caseSensitive);
  virtual bool IsCaseSensitive() const;
  virtual std::map<std::string, CConsoleCommand*> GetCommands() const;
  // The text before the first "(" of the line.
  virtual std::string GetCommandName(const std::string& line);
  // Whether the line holds "::", ";" or "//", or is blank.
  virtual bool IsSpecialLine(const std::string& line);
  virtual std::string ExecuteSpecialLine(const std::string& line);
  // The base executes the command here, whatever the namespace.
  virtual std::string ExecuteInNamespace(const std::string& space, const std::string& command);

  // The names that are known here, sorted; in lower case unless case counts.
  std::vector<std::string> GetCommandNames() const;
  std::vector<std::string> GetVariableNames() const;

  // Variables. The console owns the reference; an earlier one of the same name dies.
  void AddVariable(const std::string& name, std::unique_ptr<CVarRefBase> variable);
  void RemoveVariable(const std::string& name);
  // Null for an unknown name.
  CVarRefBase* FindVariable(const std::string& name) const;
  // Sets the variable from text; an unknown name becomes a new text variable.
  void SetVariable(const std::string& name, const std::string& text);
  // The variable as text; empty for an unknown name.
  std::string GetVariable(const std::string& name) const;
  // Ties the name to a variable of the program, which must outlive the console or its removal.
  template <typename T>
  void RegisterVariable(const std::string& name, T& variable) {
    AddVariable(name, std::make_unique<CVarRef<T>>(&variable, name));
  }

 private:
  std::string Key(const std::string& name) const;
  // Null when the line has no parameter list.
  static std::unique_ptr<CConsoleParams> ParseParams(std::string_view line);
  std::string ExecuteStatements(const std::string& list);
  std::string ExecuteNamespaceCall(const std::string& call);
  // A line with one "=", at that place.
  std::string ExecuteOneAssignment(const std::string& line, std::size_t equals);
  std::string ExecuteAssignmentChain(const std::string& line);
  // Sets the variables, from the last to the first, to the result; returns the first one's value.
  std::string AssignToAll(const std::vector<std::string_view>& names, const std::string& result);
  // Sets the one variable; returns its value.
  std::string Assign(const std::string& name, const std::string& value);
  // An unknown name becomes a new text variable.
  CVarRefBase& FindOrAddVariable(const std::string& name);

  std::map<std::string, CConsoleCommand*> myCommands;
  CVariableTable myVariables;
  bool myCaseSensitive = false;
  std::size_t myLongestCommand = 0;  // the length of no command's name is greater
};

}  // namespace vask
