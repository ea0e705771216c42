#include "DemoSupport.h"

#include <iostream>

#include "host/MemoryRecordset.h"
#include "orvel/OrvelResult.h"
#include "orvel/OrvelWindow.h"
#include "testhost/CallLog.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestWindowManager.h"
#include "ui/Button.h"

namespace demo {

namespace {
orvel::OrvelModule* loadedModule = nullptr;
}  // namespace

void SetModule(orvel::OrvelModule* module) { loadedModule = module; }
orvel::OrvelModule& Module() { return *loadedModule; }

void Section(const std::string& title) { std::cout << "\n# " << title << "\n"; }

void PrintList(const std::shared_ptr<orvel::Recordset>& rs) {
  if (!rs) return;
  for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
    std::cout << "  " << orvel::LogText(rs->Fields("OIDR").Value()) << " "
              << orvel::LogText(rs->Fields("Preview").Value()) << "\n";
  }
}

void PrintMenu(const std::string& oidr, const std::optional<orvel::OrvelMenuItems>& menu) {
  std::cout << "  menu of " << oidr << ":";
  if (!menu) std::cout << " none";
  std::cout << "\n";
  if (!menu) return;
  for (const auto& item : *menu) std::cout << "    " << item.Key << " " << item.Caption << "\n";
}

std::shared_ptr<orvel::Form> ShowFromMenu(orvel::TestHost& host, orvel::OrvelObjectUI& adapter,
                                          const std::string& oidr, const std::string& key,
                                          const std::string& otype) {
  auto result = adapter.ClickMenu(oidr, otype, key, "");
  auto window = result.Value.ObjectAs<orvel::OrvelWindow>();
  if (result.Action != orvel::OrvelMenuResult::kShowWindow || !window) return nullptr;
  host.WindowManager()->ShowWindow(window);
  return std::dynamic_pointer_cast<orvel::Form>(window);
}

void ReplyStructure(orvel::TestHost& host, const std::vector<StructureField>& fields) {
  auto structure = std::make_shared<orvel::MemoryRecordset>(
      std::vector<std::string>{"Name", "Caption", "Length", "xType", "Visible"});
  for (const auto& f : fields) {
    structure->AddRow({orvel::Variant(f.name), orvel::Variant(f.caption), orvel::Variant(f.length),
                       orvel::Variant(f.xType), orvel::Variant(f.visible)});
  }
  host.ObjectManager()->ReplyToCall("Orvel_GetObjectStructureByOID",
                                    orvel::OrvelResult{0, "", orvel::Variant(structure)});
}

void PrintTable(const orvel::ListView& list) {
  std::string headers;
  for (const auto& column : list.ColumnHeaders()) headers += " | " + column->Text();
  std::cout << " " << headers << "\n";
  for (const auto& item : list.ListItems()) {
    std::string row = item->Text();
    for (const auto& sub : item->ListSubItems()) row += " | " + sub->Text();
    std::cout << "   | " << row << "\n";
  }
}

bool ClickButton(orvel::Form& form, const std::string& name) {
  auto* button = dynamic_cast<orvel::Button*>(form.FindControl(name));
  if (!button) return false;
  button->Click();
  return true;
}

}  // namespace demo
