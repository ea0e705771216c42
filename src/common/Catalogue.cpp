#include "common/Catalogue.h"

#include "common/ModuleState.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "host/Dictionary.h"
#include "host/Identifiers.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelUser.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/TextBox.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

std::shared_ptr<OrvelServices>& Stored() { return TheModuleState().services; }

constexpr int kKeyBackspace = 8;
constexpr int kKeyComma = 44;
constexpr int kKeyPoint = 46;

Variant::Array SplitToArray(const std::string& text, const char* separator) {
  Variant::Array array;
  for (auto& part : Split(text, separator)) array.emplace_back(std::move(part));
  return array;
}

std::string UserName() { return Services().Environment()->User()->Name(); }

}  // namespace

std::shared_ptr<OrvelServices> OrvelS() { return Stored(); }

bool SetOrvelS(const std::shared_ptr<OrvelServices>& services) {
  if (Stored()) return false;
  Stored() = services;
  return true;
}

void ResetOrvelS() { Stored().reset(); }

OrvelServices& Services() {
  if (!Stored()) {
    throw RuntimeError(RuntimeError::kObjectNotSet,
                       "Pagrindinė programa dar nepateikė modulio paslaugų");
  }
  return *Stored();
}

std::string AppTitle() { return Services().Environment()->Session()->AppTitle(); }

void ParseColumnConfig(const std::string& config, Dictionary& printParams, Dictionary& columns) {
  auto pieces = Split(config, "#");
  printParams.RemoveAll();
  printParams.Add("JPrintParams", Variant(SplitToArray(pieces.front(), ";")));
  columns.RemoveAll();
  for (size_t i = 1; i < pieces.size(); ++i) {
    auto column = SplitToArray(pieces[i], ";");
    column.emplace_back(std::to_string(i));
    std::string key = CStr(column.front());
    columns.Add(key, Variant(std::move(column)));
  }
}

void ShowStop(const std::string& prompt, const std::string& title) {
  Platform::Ui().MsgBox(prompt, vbCritical + vbOKOnly, title);
}

int KeyFilterDecimal(int keyAscii, const std::string& text) {
  if ((keyAscii >= '0' && keyAscii <= '9') || keyAscii == kKeyBackspace) return keyAscii;
  if (keyAscii == kKeyPoint) keyAscii = kKeyComma;
  if (keyAscii == kKeyComma) return InStr(text, ",", Compare::Text) > 0 ? 0 : keyAscii;
  return 0;
}

std::string FormatDecimalText(const std::string& text, int decimals, bool zeroIfBlank) {
  if (IsNumeric(Variant(text))) return FormatNumber(CDbl(Variant(text)), decimals, false);
  if (!zeroIfBlank) return {};
  return FormatNumber(0, 2, true);
}

std::optional<std::string> GroupLine(const std::shared_ptr<OrvelObjectUIO>& group) {
  if (!group) return std::nullopt;
  try {
    return ConcatText(group->Fields("PreviewPath").Value()) + group->Preview();
  } catch (...) {
    // The errors are ignored: the caller keeps what it showed.
    return std::nullopt;
  }
}

bool ReadAgainOrClose(OrvelObjectUIO& object, const std::string& title) {
  auto status = object.Read();
  if (status.Number == 0) return true;
  Platform::Ui().MsgBox(status.Text, vbExclamation, title);
  Services().WindowManager()->RemoveWindow(object.OIDR(), true);
  return false;
}

std::string CreatorLine(OrvelObjectUIO& object) {
  bool stored = !object.Fields("ID").Value().IsEmpty();
  if (!stored) object.Fields("CreatedByUser").SetValue(Variant(UserName()));

  std::string line = "Sukūrė:" + ConcatText(object.Fields("CreatedByUser").Value());
  Variant created = object.Fields("CreationDate").Value();
  if (!created.IsNull()) line += "(" + ConcatText(created) + ")";
  Variant updatedBy = object.Fields("UpdatedByUser").Value();
  if (!updatedBy.IsNull()) {
    line += ", koregavo:" + ConcatText(updatedBy) + "(" +
            ConcatText(object.Fields("UpdateDate").Value()) + ")";
  }

  if (stored) object.Fields("UpdatedByUser").SetValue(Variant(UserName()));
  return line;
}

ObjectRights GetObjectRights(const std::string& key) {
  auto rights = Services().Rights();
  ObjectRights result;
  result.CanRead = rights->CanRead(key, 0);
  result.CanDelete = rights->CanDelete(key, 0);
  result.CanUpdate = rights->CanUpdate(key, 0);
  result.CanInsert = rights->CanInsert(key, 0);
  return result;
}

int32_t NullToLong(const Variant& value) { return value.IsNull() ? 0 : CLng(value); }

std::string SelectGroup(const std::string& otype, const std::string& caption, TextBox* box,
                        const std::optional<std::string>& selectKind, const std::string& expected) {
  auto picker = Platform::Classes().NewGroupSelect();
  picker->SetOType(otype);
  picker->SetRootOType(otype);
  if (selectKind) picker->SetSelectKind(*selectKind);
  picker->SetCaption(caption);
  picker->Show();

  std::string path = picker->ResultOIDR();
  std::string tail = LastOidr(path);
  if (tail.empty()) return {};
  if (!expected.empty() && expected != picker->ResultOType()) return {};

  if (path.size() > 8) {
    if (!box) return tail + "_" + picker->ResultName();
    box->SetTag(tail);
    box->SetText(picker->ResultName());
    return tail;
  }
  ClearReference(box);
  return tail;
}

bool FilterRecordset(const std::shared_ptr<Recordset>& rs, const std::string& filter) {
  if (!rs || rs->RecordCount() == 0) return false;
  rs->SetFilter(Variant(filter));
  if (rs->RecordCount() == 0) {
    rs->SetFilter(Variant(0));
    return false;
  }
  return true;
}

bool ConfirmDelete(const std::string& prompt, int buttons, const std::string& title,
                   bool unlessNo) {
  const int answer = Platform::Ui().MsgBox(prompt, buttons + vbExclamation, title);
  if (unlessNo) return answer != vbNo;
  return answer == (buttons == vbYesNo ? vbYes : vbOK);
}

bool DeleteThrough(const std::string& type, const std::string& oidr) {
  auto adapter = Services().ObjectManager()->GetOrvelObjectUI(type);
  return adapter && adapter->DeleteOrvelObject(oidr) == 0;
}

void DeleteObjectAsked(OrvelObjectUIO& object) {
  if (!ConfirmDelete("Ar tikrai norite panaikinti?\n\n" + object.Preview(), vbYesNo, AppTitle())) {
    return;
  }
  const std::string oidr = object.OIDR();
  if (DeleteThrough(object.OID(), oidr)) Services().WindowManager()->RemoveWindow(oidr, false);
}

std::string ShowReference(const std::string& oidr, TextBox* box) {
  if (!RefersToRecord(oidr)) {
    ClearReference(box);
    return {};
  }
  auto object = GetObjectUIO(oidr);
  if (!object) {
    ClearReference(box);
    return {};
  }
  std::string preview = object->Preview();
  if (box) {
    box->SetText(preview);
    box->SetTag(object->OIDR());
  }
  return preview;
}

void ClearReference(TextBox* box) {
  if (!box) return;
  box->SetText("");
  box->SetTag("");
}

std::shared_ptr<OrvelObjectUIO> GetObjectUIO(const std::string& oidr) {
  return Services().ObjectManager()->GetOrvelObject(oidr);
}

bool AskCloseWithoutSaving(const std::string& caption) {
  return Platform::Ui().MsgBox(caption + "\n\nUždaryti be išsaugojimo?", vbYesNo + vbExclamation,
                               AppTitle()) == vbYes;
}

double UsedInDocuments(const Variant& answer) {
  auto rs = answer.ObjectAs<Recordset>();
  if (!rs || rs->IsEOF()) return 0;
  const Variant count = rs->Fields().Item(0).Value();
  return count.IsNull() ? 0 : CDbl(count);
}

}  // namespace orvel
