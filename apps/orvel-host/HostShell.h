#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace orvel {

class Form;
class LinePrompter;
class OrvelWindow;
class ReferenceHost;

// The terminal host's commands, one a line, over the running reference host:
//   help                       the commands
//   tree                       the catalogue the module registered
//   list OIDR [TEXT]           a node's members (OIDR Preview)
//   menu OIDR [OTYPE]          a node's context menu
//   click OIDR KEY [OTYPE]     picks a menu entry and carries out its result
//   windows                    the open windows
//   show                       the current window: caption, controls, fields, tabs
//   set FIELD TEXT             types into a field of the current window's sheet
//   press CONTROL              clicks a button or menu entry of the current window
//   close                      the current window's close button
//   quit
// The current window is the last one shown (or the modal form being run).
// Lines starting with '#' are comments. A word in double quotes may hold
// blanks: click O0002200 "Valiutų kursų įrašymas".
class HostShell {
 public:
  HostShell(ReferenceHost& host, LinePrompter& prompter, std::ostream& out);

  // Runs commands until "quit" or the end of input; returns the number of
  // commands that failed.
  int Run();
  // Runs one command; false when it failed (the reason was printed).
  bool Execute(const std::string& line);

 private:
  bool Help();
  bool Tree();
  bool List(const std::vector<std::string>& args);
  bool Menu(const std::vector<std::string>& args);
  bool Click(const std::vector<std::string>& args);
  bool Windows();
  bool Show();
  bool Set(const std::vector<std::string>& args, const std::string& line);
  bool Press(const std::vector<std::string>& args);
  void RunModal(Form& form);
  Form* CurrentForm();
  bool Fail(const std::string& reason);

  ReferenceHost& host_;
  LinePrompter& prompter_;
  std::ostream& out_;
  std::vector<Form*> modal_;
  bool quit_ = false;
};

}  // namespace orvel
