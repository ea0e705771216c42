// The list window of the bank type: its table, its printout, and closing it.
#include <iostream>
#include <memory>
#include <string>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelResult.h"
#include "orvel/OrvelWindow.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestPrintDoc.h"
#include "testhost/TestWindowManager.h"
#include "ui/ListView.h"

namespace demo {
namespace {

using orvel::Variant;

}  // namespace

int WalkBankList(orvel::TestHost& host) {
  // The bank type's fields as the business layer describes them.
  ReplyStructure(host, {{"ID", "ID", 4, 56, 0},
                        {"Name", "Pavadinimas", 100, 167, 1},
                        {"Code", "Kodas", 10, 167, 1},
                        {"SWIFT", "SWIFT kodas", 11, 167, 1}});
  auto banks = host.ObjectManager()->GetOrvelObjectUI("O0000300");
  if (!banks) return 1;

  Section("O0000300: the list window of the banks");
  auto window = std::dynamic_pointer_cast<orvel::OrvelWindow>(
      Module().CreateObject("frmReferenceBookPreview"));
  auto type = banks->GetOrvelObject("");
  if (!window || !type) return 1;
  window->SetOrvelObjectUIO(type);
  host.WindowManager()->ShowWindow(window);
  auto form = std::dynamic_pointer_cast<orvel::Form>(window);
  auto* table = form ? dynamic_cast<orvel::ListView*>(form->FindControl("lvwRec")) : nullptr;
  if (!table) return 1;
  PrintTable(*table);

  Section("O0000300: print the list");
  ClickButton(*form, "cmdPrint");
  auto doc = host.HostClasses()->LastPrintDoc();
  if (!doc) return 1;
  for (const auto& line : doc->Lines()) std::cout << "  " << line << "\n";

  Section("O0000300: close the list");
  ClickButton(*form, "SSCClose");
  return form->Loaded() ? 1 : 0;
}

}  // namespace demo
