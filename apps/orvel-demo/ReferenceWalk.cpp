// A reference book: the tree's menus, a record opened from its menu, edited
// and written on its card, and the list window of the book.
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
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestWindowManager.h"
#include "ui/ListView.h"
#include "ui/TextBox.h"

namespace demo {
namespace {

using orvel::Variant;

constexpr const char* kBook = "O0001602";

void SeedBook(orvel::TestHost& host) {
  auto& table = host.BusinessObject(kBook)->Table();
  table.SetFields({"ID", "ParentID", "GroupFlag", "Name", "Code"});
  table.SetDefault("ParentID", Variant(0));
  table.SetDefault("GroupFlag", Variant(0));
  table.Seed({
      {{"Name", Variant("Bankiniai")}, {"GroupFlag", Variant(1)}, {"Code", Variant("B")}},
      {{"Name", Variant("Pavedimas")}, {"ParentID", Variant(1)}, {"Code", Variant("B1")}},
      {{"Name", Variant("Grynaisiais")}, {"Code", Variant("G")}},
  });

  ReplyStructure(host, {{"ID", "ID", 4, 56, 0},
                        {"Name", "Pavadinimas", 100, 167, 1},
                        {"Code", "Kodas", 10, 167, 1}});
}

}  // namespace

int WalkReferenceBooks(orvel::TestHost& host) {
  SeedBook(host);
  auto root = host.ObjectManager()->GetOrvelObjectUI("O0001600");
  auto book = host.ObjectManager()->GetOrvelObjectUI(kBook);
  if (!root || !book) {
    std::cout << "The module gave no adapter for the reference books\n";
    return 1;
  }

  Section("O0001600 Žinynai: the menus of the root, a book, a group and an entry");
  PrintMenu("O0001600", root->GetMenu("O0001600", "C", ""));
  PrintMenu(kBook, book->GetMenu(kBook, "C", ""));
  PrintMenu("O00016021", book->GetMenu("O00016021", "Group", ""));
  PrintMenu("O00016022", book->GetMenu("O00016022", "T", "ReadOnly"));

  Section("O0001602: menu 0 on entry 2 opens its card");
  book->GetMenu("O00016022", "T", "");
  auto card = ShowFromMenu(host, *book, "O00016022", "0", "T");
  if (!card) return 1;
  auto* group = dynamic_cast<orvel::TextBox*>(card->FindControl("txtGroup"));
  std::cout << "  group: " << (group ? group->Text() : "?") << "\n";

  Section("O0001602: rename the entry and write");
  host.Ui()->Grids().back()->EditField("Name", Variant("Bankinis pavedimas"));
  if (!ClickButton(*card, "cmdEnter")) return 1;
  auto written = book->GetOrvelObject("O00016022");
  std::cout << "  Preview: " << (written ? written->Preview() : "Nothing") << "\n";
  ClickButton(*card, "SSCClose");

  Section("O0001602: menu 5 on the book opens its list window");
  auto list = ShowFromMenu(host, *book, kBook, "5", "C");
  if (!list) return 1;
  auto* table = dynamic_cast<orvel::ListView*>(list->FindControl("lvwRec"));
  if (!table) return 1;
  PrintTable(*table);
  ClickButton(*list, "SSCClose");

  bool ok =
      written && written->Preview() == "Bankinis pavedimas" && !card->Loaded() && !list->Loaded();
  return ok ? 0 : 1;
}

}  // namespace demo
