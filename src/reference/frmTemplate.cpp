#include "reference/frmTemplate.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kCaption = "Šablonas";
constexpr const char* kDocumentGroups = "O1000200";
constexpr const char* kTemplates = "O0201600";

std::string FieldText(Recordset& rs, std::string_view name) {
  return ConcatText(rs.Fields(name).Value());
}

}  // namespace

frmTemplate::frmTemplate() : Form("frmTemplate") {
  SetCaption(kCaption);
  lblDocumentGroup.SetCaption("Dokumento grupė:");
  lblTemplate.SetCaption("Šablonas:");
  cmdDocumenytGroup.SetCaption("...");
  cmdTemplate.SetCaption("...");
  cmdEnter.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  txtDocumentGroup.SetLocked(true);
  txtTemplate.SetLocked(true);
  for (Control* control : std::initializer_list<Control*>{
           &imgCombo, &lblDocumentGroup, &txtDocumentGroup, &cmdDocumenytGroup, &cmdGroupClean,
           &lblTemplate, &txtTemplate, &cmdTemplate, &cmdTemplateClean, &cmdEnter, &cmdCancel}) {
    Register(*control);
  }

  imgCombo.OnClick = [this] { imgCombo_Click(); };
  cmdDocumenytGroup.OnClick = [this] { cmdDocumenytGroup_Click(); };
  cmdGroupClean.OnClick = [this] { cmdGroupClean_Click(); };
  cmdTemplate.OnClick = [this] { cmdTemplate_Click(); };
  cmdTemplateClean.OnClick = [this] { cmdTemplateClean_Click(); };
  cmdEnter.OnClick = [this] { cmdEnter_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void frmTemplate::Form_Load() {
  SetCaption(kCaption);
  Saved = false;
  cmdEnter.SetEnabled(false);
  ClearReference(&txtDocumentGroup);
  ClearReference(&txtTemplate);
  imgCombo.SetVisible(IsNewRow);
  Handle([&] {
    if (IsNewRow) {
      FillTypes();
    } else {
      ShowRow();
    }
  });
}

void frmTemplate::FillTypes() {
  imgCombo.ComboItems().Clear();
  if (!RsTemplates || RsTemplates->RecordCount() == 0) return;
  for (RsTemplates->MoveFirst(); !RsTemplates->IsEOF(); RsTemplates->MoveNext()) {
    try {
      imgCombo.ComboItems().Add(FieldText(*RsTemplates, "TemplateTypeOIDR"),
                                FieldText(*RsTemplates, "TemplateTypeName"));
    } catch (const RuntimeError&) {
      // A type with several rows is offered once.
    }
  }
  if (imgCombo.ComboItems().Count() == 0) return;
  // Picking from code raises Click, which takes the type.
  imgCombo.SetSelectedItem(&imgCombo.ComboItems().Item(1));
  TemplateTypeOIDR = imgCombo.SelectedItem()->Key();
}

void frmTemplate::ShowRow() {
  if (!RsTemplates) return;
  // An inherited row has no ID of its own: its type finds it.
  std::string filter = TemplateID < 1 ? "TemplateTypeOIDR='" + TemplateTypeOIDR + "'"
                                      : "ID=" + std::to_string(TemplateID);
  RsTemplates->SetFilter(Variant(filter));
  // A row deleted meanwhile leaves the boxes empty.
  if (RsTemplates->RecordCount() == 0 || RsTemplates->IsEOF()) return;
  SetCaption(std::string(kCaption) + ": " + FieldText(*RsTemplates, "TemplateTypeName"));
  txtDocumentGroup.SetText(FieldText(*RsTemplates, "DocumentGroupName"));
  txtDocumentGroup.SetTag(FieldText(*RsTemplates, "DocumentGroupOIDR"));
  if (!RsTemplates->Fields("ID").Value().IsNull()) {
    txtTemplate.SetText(FieldText(*RsTemplates, "BRTemplateName"));
    txtTemplate.SetTag(FieldText(*RsTemplates, "BRTemplateOIDR"));
  }
}

void frmTemplate::imgCombo_Click() {
  if (auto* item = imgCombo.SelectedItem()) TemplateTypeOIDR = item->Key();
}

void frmTemplate::cmdDocumenytGroup_Click() {
  Handle([&] {
    std::string picked = SelectGroup(kDocumentGroups, "Pasirinkite dokumento grupę",
                                     &txtDocumentGroup, std::string("Group"), "");
    if (!picked.empty()) cmdEnter.SetEnabled(true);
  });
}

void frmTemplate::cmdTemplate_Click() {
  Handle([&] {
    std::string picked =
        SelectGroup(kTemplates, "Pasirinkite šabloną", &txtTemplate, std::string("C"), "");
    if (!picked.empty()) cmdEnter.SetEnabled(true);
  });
}

void frmTemplate::cmdGroupClean_Click() {
  ClearReference(&txtDocumentGroup);
  cmdEnter.SetEnabled(true);
}

void frmTemplate::cmdTemplateClean_Click() {
  ClearReference(&txtTemplate);
  cmdEnter.SetEnabled(txtDocumentGroup.Tag().empty());
}

std::string frmTemplate::SaveParameters() {
  std::string destination = OrvelObjectUIO ? OrvelObjectUIO->OIDR() : std::string();
  return "'" + destination + "','" + TemplateTypeOIDR + "','" + txtTemplate.Tag() + "','" +
         txtDocumentGroup.Tag() + "'," + std::to_string(TemplateID);
}

void frmTemplate::cmdEnter_Click() {
  Handle([&] {
    Saved = true;
    if (OrvelObjectUIO) {
      Variant::Array params{Variant(SaveParameters())};
      // The adapter shows the business layer's message; the dialog closes
      // whatever the answer.
      OrvelObjectUIO->Methods("SaveUpdateDeleteTemplates", params);
    }
  });
  Unload();
}

void frmTemplate::cmdCancel_Click() { Unload(); }

}  // namespace orvel
