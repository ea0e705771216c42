#include "banks/frmBanks.h"

#include "common/BusyPointer.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "host/Identifiers.h"
#include "orvel/OrvelMainForm.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {
constexpr int kFirmsColumnWidth = 7000;

// The host's image list of catalogue icons.
std::shared_ptr<Object> CatalogueIcons() {
  auto mainForm = std::dynamic_pointer_cast<OrvelMainForm>(Services().MainForm());
  if (!mainForm) {
    throw RuntimeError(RuntimeError::kObjectNotSet, "Pagrindinis langas neturi paveikslėlių sąrašo");
  }
  return mainForm->ImgCatalogue();
}
}  // namespace

frmBanks::frmBanks()
    : CatalogueWindow("frmBanks", "Bankas"),
      mnuToDesktop(mnuFirms.Add("mnuToDesktop", "Padėti &ant darbo stalo")) {
  Register(mnuFirms);
  mnuToDesktop.OnClick = [this] { mnuToDesktop_Click(); };
}

void frmBanks::AddTabs() {
  if (ListCount == 0) AddList("Firms", "Įmonės");
}

void frmBanks::SetCaption() {
  SOPanel.SetCaption(OIDR().empty() ? "Naujas bankas" : "Banko kortelė");
}

void frmBanks::FillFirms() {
  OrvelResult result;
  {
    BusyPointer busy;
    result = Uio().Properties("Firms", "");
  }
  auto firms = result.Value.ObjectAs<Recordset>();

  ListView& list = *Lists[0];
  if (list.ColumnHeaders().Count() == 0) {
    list.ColumnHeaders().Add(0, "", "Pavadinimas", kFirmsColumnWidth, 0);
    list.SetSmallIcons(CatalogueIcons());
  } else {
    list.ListItems().Clear();
  }

  if (OIDR().size() < 9 || !firms) return;
  for (; !firms->IsEOF(); firms->MoveNext()) AddFirmRow(*firms);
}

void frmBanks::AddFirmRow(Recordset& firm) {
  // A row that cannot be shown (a repeated key, a value with no text) is left out.
  try {
    std::string oidr = CStr(firm.Fields("OIDR").Value());
    ListItem& row = Lists[0]->ListItems().Add(0, oidr, CStr(firm.Fields("Preview").Value()));
    row.SetTag(Variant(oidr));
    row.SetSmallIcon(IconKeyOf(oidr));
  } catch (const RuntimeError&) {
  }
}

void frmBanks::OrvelGrid_ListMouseUp(const std::string& tabKey, int, int button, int) {
  PopupOverSelectedRow(tabKey, button, "Firms", mnuFirms);
}

}  // namespace orvel
