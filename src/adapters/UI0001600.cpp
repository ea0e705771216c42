#include "adapters/UI0001600.h"

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectSelect.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelUser.h"
#include "orvel/Recordset.h"
#include "lists/frmReferenceBookPreview.h"
#include "reference/frmDepartments.h"
#include "reference/frmDestination.h"
#include "reference/frmReferenceBook.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr size_t kOidLength = 8;
constexpr const char* kLocations = "O0001605";
// The business layer's number for a message meant for the user.
constexpr int32_t kUserMessage = 777;

std::string BookOf(const std::string& oidr) { return oidr.substr(0, kOidLength); }

bool EndsWith(const std::string& text, std::string_view tail) {
  return text.size() >= tail.size() &&
         text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

bool StartsWith(const std::string& text, std::string_view head) {
  return text.compare(0, head.size(), head) == 0;
}

bool Contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

std::string UserId() { return Services().Environment()->User()->Id(); }

constexpr const char* kDepartments = "O0001604";
constexpr const char* kDestinations = "O0001615";

// The card of a record of the book an OIDR names: the destinations' card
// adds their accounting templates to the common one. The book is told by the
// OIDR's first eight characters, so that a stored destination opens in its
// own card as well as a new one.
std::shared_ptr<frmReferenceBook> NewCard(const std::string& oidr) {
  if (BookOf(oidr) == kDestinations) return std::make_shared<frmDestination>();
  return std::make_shared<frmReferenceBook>();
}

bool IsDepartment(const std::string& oidr) { return BookOf(oidr) == kDepartments; }

// The departments' card reads its group, its branch and its rights itself;
// the tree's ReadOnly it takes from its opener.
std::shared_ptr<frmDepartments> NewDepartmentCard(std::shared_ptr<OrvelObjectUIO> object,
                                                  bool readOnly = false) {
  auto window = std::make_shared<frmDepartments>();
  window->SetOrvelObjectUIO(std::move(object));
  window->boolReadOnly = readOnly;
  return window;
}

// The window of any record of the family, not shown.
std::shared_ptr<OrvelWindow> NewObjectForm(std::shared_ptr<OrvelObjectUIO> object) {
  if (IsDepartment(object->OIDR().empty() ? object->OID() : object->OIDR())) {
    return NewDepartmentCard(std::move(object));
  }
  auto window = NewCard(object->OIDR().empty() ? object->OID() : object->OIDR());
  window->SetOrvelObjectUIO(std::move(object));
  return window;
}

// A number field of the record; 0 when it is Null or missing.
int32_t NumberField(OrvelObjectUIO& object, std::string_view name) {
  auto rs = object.RsFields();
  if (!rs || rs->IsBOF() || rs->IsEOF() || !rs->Fields().Exists(name)) return 0;
  return NullToLong(rs->Fields(name).Value());
}

// The hourglass for the time of a slow step, the default pointer after it,
// also when the step fails.
class Hourglass {
 public:
  Hourglass() { Platform::Ui().SetMousePointer(vbHourglass); }
  ~Hourglass() { Platform::Ui().SetMousePointer(vbDefault); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

bool IsTwoDigits(std::string_view text) {
  return text.size() == 2 && text[0] >= '0' && text[0] <= '9' && text[1] >= '0' && text[1] <= '9';
}

}  // namespace

UI0001600::UI0001600()
    : ObjectUIAdapter({{"BRANCH", "BRANCH"},
                       {"C", "C0001600"},
                       {"T", "C0001601"},
                       {"CGroup", "stdClose"},
                       {"OGroup", "stdOpen"}}) {}

std::shared_ptr<OrvelObjectUIO> UI0001600::NewInstance() { return std::make_shared<UIO0001600>(); }

void UI0001600::DoSetOrvelS() { msgTitle_ = AppTitle(); }

std::optional<OrvelMenuItems> UI0001600::DoGetMenu(const std::string& oidr,
                                                   const std::string& otype,
                                                   const std::string& settings) {
  readOnly_ = Contains(settings, "ReadOnly");
  groupsDisabled_ = Contains(settings, "GroupsDisabled");
  OrvelMenuItems menu;
  bool root = oidr == OID() && EndsWith(oidr, "00");
  if (root || (otype.empty() && oidr.size() == kOidLength)) return menu;

  const bool record = oidr.size() > kOidLength;
  const bool groups = !readOnly_ && !groupsDisabled_;
  if (otype == "C") {
    if (groups) menu.push_back(MakeMenuItem("Sukurti naują &grupę", "2"));
    menu.push_back(MakeMenuItem("Pa&rodyti", "5"));
    if (!readOnly_) menu.push_back(MakeMenuItem("Pridėti &naują įrašą", "1"));
    menu.push_back(MakeMenuItem("&Atrinkti", "4"));
  } else if (otype == "Group") {
    if (record) menu.push_back(MakeMenuItem("Padėti &ant darbo stalo", "0"));
    if (groups) menu.push_back(MakeMenuItem("Sukurti p&ogrupį", "3"));
    menu.push_back(MakeMenuItem("Pa&rodyti", "5"));
    if (!readOnly_) {
      menu.push_back(MakeMenuItem("Pridėti &naują įrašą", "1"));
      menu.push_back(MakeMenuItem("&Panaikinti", "6"));
    }
    menu.push_back(MakeMenuItem("&Atrinkti", "4"));
  } else if (otype == "T" || otype.empty()) {
    if (record) menu.push_back(MakeMenuItem("Padėti &ant darbo stalo", "0"));
    if (!readOnly_) {
      menu.push_back(MakeMenuItem("Pridėti &naują įrašą", "1"));
      menu.push_back(MakeMenuItem("&Panaikinti", "6"));
    }
    menu.push_back(MakeMenuItem("&Atrinkti", "4"));
  }
  // A node of a kind this book does not know has no menu at all.
  if (menu.empty()) return menu;
  menu.push_back(MakeMenuItem("-", "100"));
  menu.push_back(MakeMenuItem("Pagalba", "7"));
  menu.push_back(MakeMenuItem("-", "100"));
  return menu;
}

OrvelMenuResult UI0001600::DoClickMenu(const std::string& oidr, const std::string& otype,
                                       const std::string& sKey, const std::string&) {
  if (sKey == "5") return ShowList(oidr);
  if (sKey == "0") return OpenRecord(oidr);
  if (sKey == "2" || sKey == "3") return NewGroup(oidr, otype);
  if (sKey == "1") return NewEntry(oidr, otype);
  if (sKey == "6") return DeleteAsked(oidr);
  if (sKey == "4" || sKey == "70S2") return Filter(oidr);
  if (sKey == "116S0") return Refresh(oidr);
  if (sKey == "7") ShowHelp();
  return {};
}

void UI0001600::ShowStopBox(const std::string& prompt) {
  Platform::Ui().MsgBox(prompt, vbCritical, msgTitle_);
}

OrvelMenuResult UI0001600::ShowList(const std::string& oidr) {
  auto object = GetOrvelObject(oidr);
  if (!object) {
    ShowStopBox("Objektas panaikintas !");
    return {};
  }
  auto window = std::make_shared<frmReferenceBookPreview>();
  window->ObjectUIO = object;
  window->ListArgument = oidr;
  return {OrvelMenuResult::kShowWindow, Variant(std::shared_ptr<OrvelWindow>(window))};
}

OrvelMenuResult UI0001600::OpenRecord(const std::string& oidr) {
  // A department opens in its own card, under the same rules as any record:
  // the tree's ReadOnly, and a group that must still be there.
  std::shared_ptr<OrvelObjectUIO> object;
  std::shared_ptr<frmReferenceBook> card;
  if (IsDepartment(oidr)) {
    object = GetOrvelObject(oidr);
  } else if ((card = OpenReferenceWindow(oidr, ""))) {
    object = card->OrvelObjectUIO();
  }
  if (!object) {
    ShowStopBox("Objektas panaikintas !");
    return {};
  }
  std::string groupName;
  int32_t parentId = NumberField(*object, "ParentID");
  if (parentId > 0) {
    auto parent = GetOrvelObject(BookOf(oidr) + std::to_string(parentId));
    if (!parent) {
      ShowStopBox("Grupė panaikinta!");
      return {};
    }
    groupName = parent->Preview();
  }
  if (!card) {
    return {OrvelMenuResult::kShowWindow,
            Variant(std::shared_ptr<OrvelWindow>(NewDepartmentCard(object, readOnly_)))};
  }
  card->boolReadOnly = readOnly_;
  card->mGroupName = groupName;
  return {OrvelMenuResult::kShowWindow, Variant(std::shared_ptr<OrvelWindow>(card))};
}

OrvelMenuResult UI0001600::NewGroup(const std::string& oidr, const std::string& otype) {
  int32_t parentId = 0;
  std::string parentName;
  if (otype != "C") {
    auto parent = GetOrvelObject(oidr);
    if (!parent) {
      ShowStopBox("Grupė panaikinta!");
      return {};
    }
    parentId = NumberField(*parent, "ID");
    parentName = parent->Preview();
  }
  return NewRecordFrame(oidr, parentId, parentName, 1);
}

OrvelMenuResult UI0001600::NewEntry(const std::string& oidr, const std::string& otype) {
  const bool underIt = otype == "C" || otype == "Group";
  auto clicked = GetOrvelObject(oidr);
  if (!clicked) {
    ShowStopBox(underIt ? "Grupė panaikinta!" : "Objektas panaikintas !");
    return {};
  }
  int32_t parentId = 0;
  std::string parentName;
  if (underIt) {
    parentId = NumberField(*clicked, "ID");
    parentName = clicked->Preview();
  } else {
    // A sibling of the clicked entry, in its group.
    parentId = NumberField(*clicked, "ParentID");
    if (parentId > 0) {
      auto parent = GetOrvelObject(BookOf(oidr) + std::to_string(parentId));
      if (!parent) {
        ShowStopBox("Grupė panaikinta!");
        return {};
      }
      parentName = parent->Preview();
    }
  }
  return NewRecordFrame(oidr, parentId, parentName, 0);
}

OrvelMenuResult UI0001600::NewRecordFrame(const std::string& oidr, int32_t parentId,
                                          const std::string& parentName, int groupFlag) {
  if (IsDepartment(oidr)) {
    auto object = GetOrvelObject(BookOf(oidr));
    if (!object) return {};
    object->Fields("ParentID").SetValue(Variant(parentId));
    object->Fields("GroupFlag").SetValue(Variant(groupFlag));
    return {OrvelMenuResult::kShowWindow,
            Variant(std::shared_ptr<OrvelWindow>(NewDepartmentCard(std::move(object), readOnly_)))};
  }
  auto window = OpenReferenceWindow(BookOf(oidr), "");
  if (!window) return {};
  auto& object = *window->OrvelObjectUIO();
  object.Fields("ParentID").SetValue(Variant(parentId));
  object.Fields("GroupFlag").SetValue(Variant(groupFlag));
  window->mGroupName = parentName;
  window->boolReadOnly = readOnly_;
  return {OrvelMenuResult::kShowWindow, Variant(std::shared_ptr<OrvelWindow>(window))};
}

OrvelMenuResult UI0001600::DeleteAsked(const std::string& oidr) {
  if (Platform::Ui().MsgBox("Ar tikrai norite panaikinti?", vbYesNo + vbExclamation, msgTitle_) !=
      vbYes) {
    return {};
  }
  if (DeleteOrvelObject(oidr) != 0) return {};
  return {OrvelMenuResult::kRemoved, Variant()};
}

OrvelMenuResult UI0001600::Filter(const std::string& oidr) {
  auto dialog = Platform::Classes().NewObjectSelect();
  dialog->SetOType(OID());
  std::string answer = dialog->Show();
  if (answer.empty()) return {};
  std::string param = StartsWith(oidr, kLocations)
                          ? "'" + UserId() + "','" + answer + "','" + oidr + "'"
                          : "'" + answer + "','" + oidr + "'";
  Hourglass hourglass;
  Variant::Array value{Variant(Inner().GetOrvelObjectList(param, "", "")), Variant(param)};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

OrvelMenuResult UI0001600::Refresh(const std::string& oidr) {
  Variant::Array value{Variant(GetOrvelObjectList(oidr, "", "")), Variant("")};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

void UI0001600::ShowHelp() {
  std::string path = Services().Environment()->Session()->AppPath() + "help\\zinynai.htm";
  Variant::Array args{Variant("Žinynai"), Variant(path)};
  Services().ObjectManager()->ExecCommand("ShowHelp", args);
}

std::shared_ptr<Recordset> UI0001600::DoGetOrvelObjectList(const std::string& oidr,
                                                           const std::string&, const std::string&) {
  std::string list = oidr.empty() ? OID() : oidr;
  if (EndsWith(list, kLocations)) list = "'" + UserId() + "', '" + list + "'";
  return Inner().GetOrvelObjectList(list, "", "");
}

std::shared_ptr<OrvelObjectUIO> UI0001600::DoGetOrvelObject(const std::string& oidr) {
  return ObjectUIAdapter::DoGetOrvelObject(oidr.empty() ? OID() : oidr);
}

std::shared_ptr<frmReferenceBook> UI0001600::OpenReferenceWindow(const std::string& oidr,
                                                                 const std::string& otype) {
  auto object = GetOrvelObject(oidr);
  if (!object) return nullptr;
  if (!otype.empty()) object->SetOType(otype);
  auto window = NewCard(oidr);
  window->SetOrvelObjectUIO(object);
  return window;
}

// ---- UIO0001600 ----

OrvelResult UIO0001600::DoProperties(const std::string& propertyName,
                                     std::string& propertyPar) {
  if (propertyName == "Parent") {
    int32_t parentId = NumberField(*this, "ParentID");
    if (parentId == 0) return {};
    auto parent = UI()->GetOrvelObject(OID() + std::to_string(parentId));
    return {0, "", Variant(std::shared_ptr<Object>(parent))};
  }
  if (propertyName == "GetObjectForm") {
    return {0, "", Variant(NewObjectForm(shared_from_this()))};
  }
  // "ExtPropertiesByOID" and every other name: the parameter goes as given.
  auto reply = RequireBO().GetCall("Get" + propertyName, propertyPar, 0);
  if (reply.Number != 0) {
    Platform::Ui().MsgBox(reply.Text, vbExclamation, AppTitle());
    return {reply.Number, reply.Text, Variant()};
  }
  return {0, "", Variant(reply.Object)};
}

OrvelResult UIO0001600::DoMethods(const std::string& name, Variant::Array& params) {
  OrvelResult result;
  if (name == "GetForm") {
    result.Value = Variant(std::shared_ptr<OrvelWindow>(std::make_shared<frmReferenceBook>()));
  } else {
    // Parameters go with "." for decimals, whatever the screen shows.
    std::string param = params.empty() ? std::string() : CStr(params[0], Locale::Invariant());
    OrvelStatus status = RequireBO().ExecCall(name, param, 0);
    result.Number = status.Number;
    result.Text = status.Text;
  }
  if (result.Number == kUserMessage) {
    Platform::Ui().MsgBox(result.Text, vbExclamation, AppTitle());
  }
  return result;
}

// ---- the family's class names ----

std::shared_ptr<Object> CreateReferenceBookAdapter(std::string_view className) {
  if (className.size() == 9 && className.substr(0, 7) == "UI00016" &&
      IsTwoDigits(className.substr(7))) {
    return std::make_shared<UI0001600>();
  }
  if (className.size() == 10 && className.substr(0, 8) == "UIO00016" &&
      IsTwoDigits(className.substr(8))) {
    return std::make_shared<UIO0001600>();
  }
  return nullptr;
}

}  // namespace orvel
