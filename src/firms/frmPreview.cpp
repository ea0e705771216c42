#include "firms/frmPreview.h"

#include "common/Catalogue.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelServices.h"
#include "host/Text.h"

namespace orvel {

frmPreview::frmPreview() : Form("frmPreview") {
  SetCaption("Peržiūros nustatymai");
  fraPreview.SetCaption("Peržiūrėti");
  fraSort.SetCaption("Rūšiuoti");
  fraShow.SetCaption("Rodyti");
  chkActive.SetCaption("Naudojamas");
  chkNotActive.SetCaption("Nenaudojamas");
  chkCode.SetCaption("Kodą");
  OptByName.SetCaption("Pagal pavadinimą");
  optByCode.SetCaption("Pagal kodą");
  cmdOK.SetCaption("Gerai");
  cmdSave.SetCaption("Išsaugoti");
  cmdCancel.SetCaption("Atšaukti");
  OptionButton::Group({&OptByName, &optByCode});
  OptByName.SetValue(true);
  fraPreview.Hold({&chkActive, &chkNotActive});
  fraShow.Hold({&chkCode});
  fraSort.Hold({&OptByName, &optByCode});
  fraSort.SetEnabled(false);
  optByCode.SetEnabled(false);
  for (Control* control : std::initializer_list<Control*>{
           &fraPreview, &chkActive, &chkNotActive, &fraShow, &chkCode, &fraSort, &OptByName,
           &optByCode, &cmdOK, &cmdSave, &cmdCancel}) {
    Register(*control);
  }
  chkCode.OnClick = [this] { chkCode_Click(); };
  cmdOK.OnClick = [this] { cmdOK_Click(); };
  cmdSave.OnClick = [this] { cmdSave_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void frmPreview::Form_Load() {
  std::vector<std::string> parts = Split(Settings, ",");
  if (parts.size() != 3) parts = {"1", "1", "1"};
  if (OType.empty()) OType = "O0000100";
  // A value other than 0, 1, 2 is the check box's own error 380.
  chkActive.SetValue(CInt(Variant(parts[0])));
  chkNotActive.SetValue(CInt(Variant(parts[1])));
  int codeMode = CInt(Variant(parts[2]));
  if (codeMode == 2) {
    chkCode.SetValue(vbChecked);
    optByCode.SetValue(true);
  } else {
    chkCode.SetValue(codeMode);
  }
  chkCode_Click();
}

void frmPreview::chkCode_Click() {
  bool withCode = chkCode.Value() != vbUnchecked;
  if (!withCode) OptByName.SetValue(true);
  optByCode.SetEnabled(withCode);
  fraSort.SetEnabled(withCode);
}

void frmPreview::Accept() {
  Accepted = true;
  Settings = std::to_string(chkActive.Value()) + "," + std::to_string(chkNotActive.Value()) + ",";
  // The string is built before the box is corrected, so "0,0,..." can leave
  // the dialog while it shows Active checked. The lists have always been
  // handed the string in that order; keep it so.
  if (chkActive.Value() == vbUnchecked && chkNotActive.Value() == vbUnchecked) {
    chkActive.SetValue(vbChecked);
  }
  Settings += optByCode.Value() ? "2" : std::to_string(chkCode.Value());
}

void frmPreview::cmdOK_Click() {
  Accept();
  Unload();
}

void frmPreview::cmdSave_Click() {
  Accept();
  Services().Environment()->SaveUserSetting(OType, "Preview", Settings);
  Unload();
}

void frmPreview::cmdCancel_Click() { Unload(); }

}  // namespace orvel
