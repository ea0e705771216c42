// The firm card: its saving rules and the debt line.
#include <iostream>
#include <memory>
#include <string>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/MemoryRecordset.h"
#include "orvel/Variant.h"
#include "testhost/CallLog.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestObjectManager.h"
#include "ui/Label.h"
#include "orvel/Ui.h"

namespace demo {
namespace {

using orvel::Variant;

constexpr const char* kCard = "O000010021";

// Two firms at the top with their own IDs, so that the step stands whatever
// the earlier steps stored; firm 21 has a debt past its limit and its term.
void SeedFirmCard(orvel::TestHost& host) {
  auto& bo = *host.BusinessObject("O0000100");
  bo.Table().Seed({
      {{"ID", Variant(20)},
       {"Name", Variant("UAB „Baltijos prekyba“")},
       {"Code", Variant("110054321")},
       {"GroupFlag", Variant(0)},
       {"ParentID", Variant::Null()}},
      {{"ID", Variant(21)},
       {"Name", Variant("UAB „Vilniaus medis“")},
       {"Code", Variant("302998877")},
       {"GroupFlag", Variant(0)},
       {"ParentID", Variant::Null()}},
  });
  auto debt = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{
      "Sum220", "Sum240", "Sum450", "Sum460", "Limit", "LimitTerm", "LimitDays"});
  debt->AddRow({Variant(0), Variant(1250.5), Variant(-80), Variant(-200), Variant(1000),
                Variant(320.75), Variant(30)});
  bo.ReplyRead("GetFirmDebt", debt);
  auto used = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"Cnt"});
  used->AddRow({Variant(0)});
  bo.ReplyRead("GetFirmIsUsedInDocuments", used);
  // Firm 20 holds the code the user is about to type.
  bo.OnRead("CheckCode", [](const std::string& param) {
    auto rs = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"Exist"});
    const bool repeated = param.find("'110054321'") != std::string::npos;
    rs->AddRow({Variant(repeated ? 1 : 0)});
    return orvel::OrvelBoResult{0, "", rs};
  });
}

void PrintLabel(orvel::Form& form, const std::string& name) {
  auto* label = dynamic_cast<orvel::Label*>(form.FindControl(name));
  if (!label) return;
  std::cout << "  " << name << ": \"" << label->Caption() << "\""
            << (label->ForeColor() == 0x0000FF ? " (red)" : "") << "\n";
}

}  // namespace

int WalkFirmCard(orvel::TestHost& host) {
  SeedFirmCard(host);
  auto firms = host.ObjectManager()->GetOrvelObjectUI("O0000100");
  if (!firms) return 1;

  Section("O0000100: the card of firm 21");
  auto card = ShowFromMenu(host, *firms, kCard, "0");
  if (!card) return 1;
  auto grid = host.Ui()->Grids().back();
  PrintLabel(*card, "lblDebt");

  Section("O0000100: a click on the debt line fetches the balance and the limits");
  auto* debt = dynamic_cast<orvel::Label*>(card->FindControl("lblDebt"));
  if (!debt) return 1;
  debt->Click();
  PrintLabel(*card, "lblDebt");
  PrintLabel(*card, "lblCredit");

  Section("O0000100: the code of firm 20 typed on firm 21, answered No");
  grid->EditField("Code", Variant("110054321"));
  host.Ui()->QueueAnswer(orvel::vbNo);
  ClickButton(*card, "cmdEnter");
  const Variant before = host.BusinessObject("O0000100")->Table().Value(21, "Code");
  std::cout << "  stored code: " << orvel::LogText(before) << "\n";

  Section("O0000100: the same write, answered Yes");
  host.Ui()->QueueAnswer(orvel::vbYes);
  ClickButton(*card, "cmdEnter");
  const Variant after = host.BusinessObject("O0000100")->Table().Value(21, "Code");
  std::cout << "  stored code: " << orvel::LogText(after) << "\n";

  const bool ok = before == Variant("302998877") && after == Variant("110054321");
  return ok ? 0 : 1;
}

}  // namespace demo
