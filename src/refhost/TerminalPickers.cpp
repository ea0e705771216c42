#include "refhost/TerminalPickers.h"

#include <vector>

#include "host/Convert.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "refhost/Prompter.h"

namespace orvel {

namespace {

struct GroupRow {
  std::string oidr;
  std::string name;
  int level;
};

void CollectGroups(OrvelObjectUI& type, const std::string& oidr, int level,
                   std::vector<GroupRow>& rows) {
  if (level > 16) return;  // a cycle in the data ends here
  auto rs = type.GetOrvelObjectList(oidr, "", "");
  if (!rs) return;
  std::vector<GroupRow> found;
  for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
    if (!rs->Fields().Exists("GroupFlag") || rs->Fields("GroupFlag").Value().NumberValue() == 0) {
      continue;
    }
    found.push_back(
        {ConcatText(rs->Fields("OIDR").Value()), ConcatText(rs->Fields("Preview").Value()), level});
  }
  for (const auto& group : found) {
    rows.push_back(group);
    CollectGroups(type, group.oidr, level + 1, rows);
  }
}

}  // namespace

void TerminalGroupSelect::Show() {
  resultName_.clear();
  resultOidr_.clear();
  resultOType_.clear();
  std::vector<GroupRow> rows;
  try {
    auto type = objects_ ? objects_->GetOrvelObjectUI(root_) : nullptr;
    if (type) CollectGroups(*type, root_, 0, rows);
  } catch (...) {
    rows.clear();
  }
  if (rows.empty()) {
    prompter_.Say(caption_ + ": grupių nėra");
    return;
  }
  std::vector<std::string> choices;
  for (const auto& row : rows) {
    choices.push_back(std::string(static_cast<size_t>(row.level) * 2, ' ') + row.name);
  }
  int picked = prompter_.Choose(caption_, choices);
  if (picked < 0) return;
  const auto& row = rows[static_cast<size_t>(picked)];
  resultName_ = row.name;
  resultOidr_ = row.oidr;
  resultOType_ = "CGroup";
}

std::string TerminalObjectSelect::Show() { return prompter_.AskText(caption_); }

}  // namespace orvel
