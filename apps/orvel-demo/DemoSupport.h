// Printing and clicking helpers shared by the walk-through's steps.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "orvel/OrvelMenuItem.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "orvel/OrvelModule.h"
#include "testhost/TestHost.h"
#include "ui/Form.h"
#include "ui/ListView.h"

namespace demo {

// The loaded module, for the steps that create its classes by name.
void SetModule(orvel::OrvelModule* module);
orvel::OrvelModule& Module();

// A heading line before each step: "# <title>".
void Section(const std::string& title);

// Prints "OIDR Preview" for each row of a list.
void PrintList(const std::shared_ptr<orvel::Recordset>& rs);

// Prints a context menu, one "key caption" line per entry.
void PrintMenu(const std::string& oidr, const std::optional<orvel::OrvelMenuItems>& menu);

// Clicks a menu entry; when the result is a window, shows it through the host's
// window manager and returns it as a form.
std::shared_ptr<orvel::Form> ShowFromMenu(orvel::TestHost& host, orvel::OrvelObjectUI& adapter,
                                          const std::string& oidr, const std::string& key,
                                          const std::string& otype = "");

// One field of a type's structure, as the business layer describes it.
struct StructureField {
  const char* name;
  const char* caption;
  int length;
  int xType;
  int visible;
};

// Answers the host service "Orvel_GetObjectStructureByOID" with these fields.
void ReplyStructure(orvel::TestHost& host, const std::vector<StructureField>& fields);

// Prints a list view: its column captions, then one line a row.
void PrintTable(const orvel::ListView& list);

// Clicks the named button of a form; false when the form has no such button.
bool ClickButton(orvel::Form& form, const std::string& name);

}  // namespace demo
