#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace orvel {

class FieldSheet;
class Form;
class LinePrompter;
class ListItem;
class ListView;
class OrvelWindow;
class ReferenceHost;
class TerminalUi;

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
//   tab TAB                    picks a tab of a tab strip, or shows a list tab's
//                              rows numbered
//   row LIST ROW               clicks a row of a list (a list tab or a list control)
//   dblclick LIST [ROW]        double-clicks a list (its row first) or a text box
//   rclick CONTROL [ROW]       right-clicks a list (its row first) or a button
//   drag OIDR [LIST]           drops a member of a catalogue onto the window's lists
//   label LABEL                clicks a label
//   close                      the current window's close button
//   quit
// The current window is the last one shown (or the modal form being run).
// A LIST is a list tab of the field sheet (by key or caption) or a list
// control (by name); a ROW is a row's key, its number from 1, or its text.
// A popup menu or a message box asks on its own; the next line answers it
// with an entry's caption or number, a button's name ("Taip", "Gerai").
// After every command the windows' due timers fire (TerminalUi::RunTimers).
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
  bool Tab(const std::vector<std::string>& args);
  // Row, DoubleClick and RightClick: the row picked first when one is named.
  bool Row(const std::vector<std::string>& args);
  bool DoubleClick(const std::vector<std::string>& args);
  bool RightClick(const std::vector<std::string>& args);
  bool Drag(const std::vector<std::string>& args);
  bool ClickLabel(const std::vector<std::string>& args);
  bool Dispatch(const std::string& command, const std::vector<std::string>& args,
                const std::string& line);
  void RunModal(Form& form);
  Form* CurrentForm();
  // The field sheet of a window: its own sheet control, else the one that
  // shows its object; null when none.
  FieldSheet* SheetOf(Form* form);
  // A list of the current window by name: a list tab of its sheet (with
  // `tab` its index) or a list control; false, with the reason printed,
  // when there is none.
  struct ListTarget {
    FieldSheet* sheet = nullptr;
    int tab = -1;
    ListView* list = nullptr;
  };
  bool FindList(const std::string& name, ListTarget& target);
  // Clicks the row named (key, number or text); false, with the reason
  // printed, when the list has no such row or takes no clicks.
  bool PickRow(ListView& list, const std::string& row);
  bool Fail(const std::string& reason);

  ReferenceHost& host_;
  LinePrompter& prompter_;
  std::ostream& out_;
  TerminalUi* terminal_ = nullptr;
  std::vector<Form*> modal_;
  bool quit_ = false;
};

}  // namespace orvel
