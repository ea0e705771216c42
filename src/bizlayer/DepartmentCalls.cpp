#include <optional>
#include <string>
#include <vector>

#include "bizlayer/CallArgs.h"
#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

using Args = TableBusinessObject::Args;
using callargs::At;

constexpr const char* kTemplateTypes = "O0201500";
constexpr const char* kTemplates = "O0201600";
constexpr const char* kDocumentGroups = "O1000200";
constexpr const char* kSaveCall = "SaveUpdateDeleteTemplates";
// The business layer's number for a message meant for the user.
constexpr int32_t kUserMessage = 777;

[[noreturn]] void Refuse(const std::string& text) { throw RuntimeError(kUserMessage, text); }

// The ID an OIDR of `oid` names; nullopt for "", anything else fails.
std::optional<int64_t> Reference(const std::string& oidr, const char* oid, const char* what) {
  if (oidr.empty()) return std::nullopt;
  if (oidr.size() > 8 && oidr.compare(0, 8, oid) == 0) {
    return callargs::Integer(oidr.substr(8), what);
  }
  throw RuntimeError(TableBusinessObject::kBadCall,
                     std::string("neteisinga nuoroda: ") + what + " [" + oidr + "]");
}

bool Exists(TableBusinessObject& object, const std::string& table, int64_t id) {
  return object.Query("SELECT ID FROM " + table + " WHERE ID = ?", {Variant(id)})->RecordCount() >
         0;
}

// The record and its groups upwards, nearest first; a cycle stops the walk.
std::vector<int64_t> Lineage(TableBusinessObject& destinations, int64_t id) {
  std::vector<int64_t> chain;
  std::optional<int64_t> next = id;
  while (next && chain.size() < 64) {
    chain.push_back(*next);
    auto rs =
        destinations.Query("SELECT ParentID FROM book_destinations WHERE ID = ?", {Variant(*next)});
    next.reset();
    if (rs->RecordCount() == 0) break;
    rs->MoveFirst();
    const Variant value = rs->Fields("ParentID").Value();
    int64_t parent = value.IsNull() || value.IsEmpty() ? 0 : CLng(value);
    if (parent > 0) next = parent;
  }
  return chain;
}

// One row per template attached for each type: the record's own rows (ID and
// ID2 the row), else the nearest group's (ID Null, ID2 the group's row), else
// an empty row of the type (ID and ID2 Null).
std::shared_ptr<Recordset> Templates(TableBusinessObject& destinations, const Args& args) {
  auto id = callargs::OptionalRecord(destinations, At(args, 0));
  auto out = std::make_shared<MemoryRecordset>(std::vector<std::string>{
      "TemplateTypeOIDR", "TemplateTypeName", "ID", "ID2", "BRTemplateName", "BRTemplateOIDR",
      "DocumentGroupName", "DocumentGroupOIDR"});
  const auto lineage = id ? Lineage(destinations, *id) : std::vector<int64_t>{};
  auto types = destinations.Query("SELECT ID, Name FROM br_template_types ORDER BY ID", {});
  for (types->MoveFirst(); !types->IsEOF(); types->MoveNext()) {
    const Variant typeId = types->Fields("ID").Value();
    const std::string typeOidr = kTemplateTypes + CStr(typeId);
    const Variant typeName = types->Fields("Name").Value();
    bool found = false;
    for (size_t level = 0; level < lineage.size() && !found; ++level) {
      auto rows = destinations.Query(
          "SELECT d.ID, t.Name AS BRTemplateName, ? || t.ID AS BRTemplateOIDR,"
          " g.Name AS DocumentGroupName, CASE WHEN g.ID IS NULL THEN '' ELSE ? || g.ID END"
          " AS DocumentGroupOIDR FROM destination_templates d"
          " JOIN br_templates t ON t.ID = d.BRTemplateID"
          " LEFT JOIN document_groups g ON g.ID = d.DocumentGroupID"
          " WHERE d.DestinationID = ? AND d.TemplateTypeID = ? ORDER BY d.ID",
          {Variant(kTemplates), Variant(kDocumentGroups), Variant(lineage[level]), typeId});
      for (rows->MoveFirst(); !rows->IsEOF(); rows->MoveNext()) {
        found = true;
        const Variant row = rows->Fields("ID").Value();
        out->AddRow({Variant(typeOidr), typeName, level == 0 ? row : Variant::Null(), row,
                     rows->Fields("BRTemplateName").Value(), rows->Fields("BRTemplateOIDR").Value(),
                     rows->Fields("DocumentGroupName").Value(),
                     rows->Fields("DocumentGroupOIDR").Value()});
      }
    }
    if (!found) {
      out->AddRow({Variant(typeOidr), typeName, Variant::Null(), Variant::Null(), Variant::Null(),
                   Variant(""), Variant::Null(), Variant("")});
    }
  }
  if (out->RecordCount() > 0) out->MoveFirst();
  return out;
}

// '<destination>','<type>','<template>','<document group>',<ID>: ID 0 adds a
// row, another ID changes that row of the destination, and two empty
// references delete it (or, with ID 0, do nothing). A document group needs a
// template; one type takes one template per document group.
void SaveTemplates(TableBusinessObject& destinations, const Args& args) {
  callargs::RequireExactly(args, 5,
                           "'<paskirtis>','<tipas>','<šablonas>','<dokumentų grupė>',<ID>");
  auto destination = callargs::OptionalRecord(destinations, args[0]);
  if (!destination) Refuse("Pirmiausia įrašykite tikslą.");
  if (!Exists(destinations, "book_destinations", *destination)) {
    throw RuntimeError(TableBusinessObject::kRecordNotFound,
                       std::string(kSaveCall) + ": nėra tikslo " + args[0]);
  }
  auto type = Reference(args[1], kTemplateTypes, "šablono tipas");
  auto brTemplate = Reference(args[2], kTemplates, "šablonas");
  auto group = Reference(args[3], kDocumentGroups, "dokumentų grupė");
  const int64_t rowId = callargs::Integer(args[4], "eilutės ID");
  if (!type || !Exists(destinations, "br_template_types", *type)) {
    Refuse("Nežinomas šablono tipas: " + args[1]);
  }
  if (rowId > 0) {
    auto row = destinations.Query(
        "SELECT ID FROM destination_templates WHERE ID = ? AND DestinationID = ?",
        {Variant(rowId), Variant(*destination)});
    if (row->RecordCount() == 0) Refuse("Šablonas jau panaikintas.");
  }
  if (!brTemplate && !group) {
    if (rowId > 0) {
      destinations.Query("DELETE FROM destination_templates WHERE ID = ?", {Variant(rowId)});
    }
    return;
  }
  if (!brTemplate) Refuse("Nenurodytas šablonas.");
  if (!Exists(destinations, "br_templates", *brTemplate)) Refuse("Nėra šablono " + args[2]);
  if (group && !Exists(destinations, "document_groups", *group)) {
    Refuse("Nėra dokumento grupės " + args[3]);
  }
  auto twin = destinations.Query(
      "SELECT ID FROM destination_templates WHERE DestinationID = ? AND TemplateTypeID = ?"
      " AND DocumentGroupID IS ? AND ID <> ?",
      {Variant(*destination), Variant(*type), callargs::IdOrNull(group), Variant(rowId)});
  if (twin->RecordCount() > 0) {
    Refuse("Šio tipo šablonas šiai dokumento grupei jau nurodytas.");
  }
  if (rowId > 0) {
    destinations.Query(
        "UPDATE destination_templates SET TemplateTypeID = ?, BRTemplateID = ?,"
        " DocumentGroupID = ? WHERE ID = ?",
        {Variant(*type), Variant(*brTemplate), callargs::IdOrNull(group), Variant(rowId)});
  } else {
    destinations.Query(
        "INSERT INTO destination_templates (DestinationID, TemplateTypeID, BRTemplateID,"
        " DocumentGroupID) VALUES (?, ?, ?, ?)",
        {Variant(*destination), Variant(*type), Variant(*brTemplate), callargs::IdOrNull(group)});
  }
}

}  // namespace

void AddDepartmentCalls(TableBusinessObject& departments, TableBusinessObject& destinations) {
  // The suite's firm branches to link a department to: ID and "<firm>,
  // <branch>". The argument (0: every firm) is not read.
  departments.OnRead("DO0001604_GetFirmBranches", [&departments](const Args&) {
    return departments.Query(
        "SELECT b.ID, f.Name || ', ' || b.Name AS Preview, 'O0000100' || f.ID AS FirmOIDR"
        " FROM firm_branches b JOIN firms f ON f.ID = b.FirmID ORDER BY Preview, b.ID",
        {});
  });
  destinations.OnRead("GetBRTemplates",
                      [&destinations](const Args& args) { return Templates(destinations, args); });
  destinations.OnAction(kSaveCall, [&destinations](const Args& args, Variant::Array&) {
    SaveTemplates(destinations, args);
  });
}

}  // namespace orvel
