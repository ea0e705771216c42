#pragma once

#include <memory>
#include <string>

namespace orvel {

class OrvelObjectUIO;

// The field sheet of one detail record (frmGoodProperty), behind a seam: the
// firm window's contacts, managers and activities and the goods' measures,
// prices and templates open it. Tests install one of their own.
class DetailDialog {
 public:
  virtual ~DetailDialog();
  // Shows `detail` modally, captioned `caption`, its boxes titled `msgTitle`;
  // true when the record was saved.
  virtual bool Edit(const std::shared_ptr<OrvelObjectUIO>& detail, const std::string& caption,
                    const std::string& msgTitle);
};

// The dialog in force.
DetailDialog& CurrentDetailDialog();
// Installs `dialog` in the module's state; null puts back the field sheet.
// Returns the one it replaced (null for the field sheet).
std::shared_ptr<DetailDialog> InstallDetailDialog(std::shared_ptr<DetailDialog> dialog);

}  // namespace orvel
