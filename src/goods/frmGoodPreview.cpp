#include "goods/frmGoodPreview.h"

#include <vector>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace orvel {

namespace {

constexpr size_t kFields = 7;

int CheckValue(const std::string& field) { return Val(field) != 0 ? vbChecked : vbUnchecked; }

}  // namespace

frmGoodPreview::frmGoodPreview() : Form("frmGoodPreview") {
  SetCaption("Peržiūros nustatymai");
  fraSort.SetCaption("Rūšiuoti");
  fraShow.SetCaption("Rodyti");
  fraView.SetCaption("Peržiūrėti");
  chkActive.SetCaption("Naudojamas");
  chkNotActive.SetCaption("Nenaudojamas");
  chkCode.SetCaption("Kodą");
  txtLocation.SetText("Visi sandeliai");
  txtLocation.SetLocked(true);
  chkByLocation.SetCaption("Pagal sandėlį");
  optByCode.SetCaption("Pagal kodą");
  OptByName.SetCaption("Pagal pavadinimą");
  chkOnlyWithRest.SetCaption("Prekės turinčios likutį");
  cmdOK.SetCaption("Gerai");
  cmdSave.SetCaption("Išsaugoti");
  cmdCancel.SetCaption("Atšaukti");
  OptionButton::Group({&optByCode, &OptByName});
  fraSort.Hold({&optByCode, &OptByName});
  fraShow.Hold({&chkActive, &chkNotActive, &chkOnlyWithRest});
  fraView.Hold({&chkCode, &chkByLocation, &txtLocation, &cmdLocation});
  for (Control* control :
       std::vector<Control*>{&fraSort, &optByCode, &OptByName, &fraShow, &chkActive, &chkNotActive,
                             &chkOnlyWithRest, &fraView, &chkCode, &chkByLocation, &txtLocation,
                             &cmdLocation, &cmdOK, &cmdSave, &cmdCancel}) {
    Register(*control);
  }
  chkByLocation.OnClick = [this] { chkByLocation_Click(); };
  cmdLocation.OnClick = [this] { cmdLocation_Click(); };
  cmdOK.OnClick = [this] { cmdOK_Click(); };
  cmdSave.OnClick = [this] { cmdSave_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void frmGoodPreview::Form_Load() {
  Handle([&] {
    std::vector<std::string> a = Split(Settings, ",");
    if (a.size() != kFields) a = Split(kDefaultSettings, ",");
    if (SectionOID.empty()) SectionOID = kDefaultSection;
    chkActive.SetValue(CheckValue(a[0]));
    chkNotActive.SetValue(CheckValue(a[1]));
    chkCode.SetValue(CheckValue(a[2]));
    chkOnlyWithRest.SetValue(CheckValue(a[6]));
    chkByLocation.SetValue(CheckValue(a[4]));
    if (chkByLocation.Value() == vbChecked) {
      std::vector<std::string> quoted = Split(a[3], "'");
      std::string oidr = quoted.size() > 1 ? quoted[1] : std::string();
      txtLocation.SetTag(oidr);
      if (Len(oidr) >= 9) {
        // A warehouse that can no longer be read keeps the default text.
        if (auto warehouse = GetObjectUIO(oidr)) {
          std::string name;
          try {
            name = ConcatText(warehouse->Fields("Preview").Value());
          } catch (const RuntimeError&) {
            name = warehouse->Preview();  // a record without the field
          }
          txtLocation.SetText(name);
        }
      }
    }
    if (Val(a[5]) == 1) {
      optByCode.SetValue(true);
    } else {
      OptByName.SetValue(true);
    }
    EnableLocation();
  });
}

void frmGoodPreview::EnableLocation() {
  const bool on = chkByLocation.Value() == vbChecked;
  txtLocation.SetEnabled(on);
  cmdLocation.SetEnabled(on);
}

void frmGoodPreview::chkByLocation_Click() {
  Handle([&] { EnableLocation(); });
}

void frmGoodPreview::cmdLocation_Click() {
  Handle([&] {
    auto picker = Platform::Classes().NewGroupSelect();
    picker->SetOType(kWarehouseOid);
    picker->SetRootOType(kWarehouseOid);
    picker->Show();
    const std::string result = picker->ResultOIDR();
    if (InStr(result, "O") == 0) return;
    if (Len(result) < 9) {
      txtLocation.SetText("");
      txtLocation.SetTag("");
    } else {
      txtLocation.SetTag(result);
      txtLocation.SetText(picker->ResultName());
    }
  });
}

void frmGoodPreview::BuildSettings() {
  if (chkByLocation.Value() != vbChecked) {
    txtLocation.SetText("");
    txtLocation.SetTag("");
  }
  Confirmed = true;
  if (chkActive.Value() == vbUnchecked && chkNotActive.Value() == vbUnchecked) {
    chkActive.SetValue(vbChecked);
  }
  Settings = std::to_string(chkActive.Value()) + "," + std::to_string(chkNotActive.Value()) + "," +
             std::to_string(chkCode.Value()) + ",'" + txtLocation.Tag() + "'," +
             std::to_string(chkByLocation.Value()) + "," + (optByCode.Value() ? "1" : "0") + "," +
             std::to_string(chkOnlyWithRest.Value());
}

void frmGoodPreview::cmdOK_Click() {
  Handle([&] {
    BuildSettings();
    Unload();
  });
}

void frmGoodPreview::cmdSave_Click() {
  Handle([&] {
    BuildSettings();
    Services().Environment()->SaveUserSetting(SectionOID, "Preview", Settings);
    Unload();
  });
}

void frmGoodPreview::cmdCancel_Click() {
  Handle([&] { Unload(); });
}

}  // namespace orvel
