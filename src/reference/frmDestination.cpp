#include "reference/frmDestination.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "reference/frmTemplate.h"
#include "ui/ControlConstants.h"
#include "ui/ListItem.h"
#include "ui/ListView.h"
#include "ui/OrvelGrid.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

// The type part of a row's key.
constexpr size_t kTypeOidrLength = 9;

std::string FieldText(Recordset& rs, std::string_view name) {
  return ConcatText(rs.Fields(name).Value());
}

std::string TypeOf(const ListItem& row) { return row.Key().substr(0, kTypeOidrLength); }

}  // namespace

frmDestination::frmDestination()
    : frmReferenceBook("frmDestination"),
      mnuTemplateNew(mnuTemplate.Add("mnuTemplateNew", "Pridėti &naują")),
      mnuTemplateEdit(mnuTemplate.Add("mnuTemplateEdit", "&Redaguoti")),
      mnuTemplateDelete(mnuTemplate.Add("mnuTemplateDelete", "&Panaikinti")) {
  SOPanel.SetCaption("Tikslas");
  mnuTemplate.SetVisible(false);
  Register(mnuTemplate);
  mnuTemplateNew.OnClick = [this] { mnuTemplateNew_Click(); };
  mnuTemplateEdit.OnClick = [this] { mnuTemplateEdit_Click(); };
  mnuTemplateDelete.OnClick = [this] { mnuTemplateDelete_Click(); };
}

ListView* frmDestination::TemplatesList() const { return ListCount > 0 ? Lists[0] : nullptr; }

ListItem* frmDestination::SelectedRow() const {
  ListView* list = TemplatesList();
  return list ? list->SelectedItem() : nullptr;
}

void frmDestination::AddTabs() {
  if (ListCount == 0 && Services().Rights()->Allowed("CTemplatesLock", 0)) {
    AddList(kTemplatesTab, "Šablonai");
  }
  FillTemplates();
}

void frmDestination::FillTemplates() {
  ListView* list = TemplatesList();
  if (!list) return;
  if (list->ColumnHeaders().Count() > 0) {
    list->ListItems().Clear();
  } else {
    for (const char* caption : {"Šablono tipas", "Šablonas", "Dokumento grupė"}) {
      list->ColumnHeaders().Add(0, "", caption, kColumnWidth);
    }
  }
  rsTemplates_.reset();
  try {
    auto result = Uio().Properties("BRTemplates", OIDR());
    rsTemplates_ = result.Value.ObjectAs<Recordset>();
    if (result.Number != 0 || !rsTemplates_) return;
    for (; !rsTemplates_->IsEOF(); rsTemplates_->MoveNext()) {
      auto& rs = *rsTemplates_;
      const Variant id = rs.Fields("ID").Value();
      const bool inherited = id.IsNull() && !rs.Fields("ID2").Value().IsNull();
      try {
        ListItem& row = list->ListItems().Add(0, FieldText(rs, "TemplateTypeOIDR") + ConcatText(id),
                                              FieldText(rs, "TemplateTypeName"));
        row.ListSubItems().Add(0, "",
                               FieldText(rs, "BRTemplateName") + (inherited ? kInheritedMark : ""));
        row.ListSubItems().Add(0, "", FieldText(rs, "DocumentGroupName"));
        row.SetTag(Variant(ConcatText(id)));
      } catch (const RuntimeError&) {
        // A repeated key loses only its own row.
      }
    }
  } catch (const RuntimeError&) {
    // A set without the expected fields shows what was read so far.
  }
}

void frmDestination::OrvelGrid_ListDoubleClick(int) {
  if (InitRunning) return;
  Handle(MsgTitle(), [&] {
    if (ListItem* row = SelectedRow()) OpenTemplate(TypeOf(*row), false);
  });
}

void frmDestination::OrvelGrid_ListMouseUp(const std::string& tabKey, int, int button, int) {
  if (InitRunning || button != vbRightButton || tabKey != kTemplatesTab) return;
  Handle(MsgTitle(), [&] {
    ListItem* row = SelectedRow();
    if (!row) return;
    mnuTemplateDelete.SetEnabled(!ConcatText(row->Tag()).empty());
    mnuTemplateNew.SetVisible(true);
    templateAction_ = kNone;
    templateKey_ = TypeOf(*row);
    Platform::Ui().PopupMenu(mnuTemplate);
    if (templateAction_ != kNone) DoTemplateAction();
  });
}

void frmDestination::DoTemplateAction() {
  switch (templateAction_) {
    case kNew:
      OpenTemplate(templateKey_, true);
      break;
    case kEdit:
      OpenTemplate(templateKey_, false);
      break;
    case kDelete: {
      ListItem* row = SelectedRow();
      if (!row) return;
      // Two empty references delete the row of that ID.
      Variant::Array params{Variant("'" + OIDR() + "','" + templateKey_ + "','',''," +
                                    std::to_string(CLng(row->Tag())))};
      Uio().Methods("SaveUpdateDeleteTemplates", params);
      FillTemplates();
      break;
    }
    default:
      break;
  }
}

void frmDestination::OpenTemplate(const std::string& typeOidr, bool isNewRow) {
  frmTemplate dialog;
  dialog.OrvelObjectUIO = OrvelObjectUIO();
  dialog.RsTemplates = rsTemplates_;
  dialog.TemplateTypeOIDR = typeOidr;
  dialog.IsNewRow = isNewRow;
  if (!isNewRow) {
    ListItem* row = SelectedRow();
    // An inherited row's empty Tag reads as 0.
    dialog.TemplateID = row ? CLng(Variant(Val(ConcatText(row->Tag())))) : 0;
  }
  auto shown = rsTemplates_;
  Platform::Ui().ShowModal(dialog);
  if (dialog.Saved) FillTemplates();
  if (shown) shown->SetFilter(Variant(0));
}

}  // namespace orvel
