#pragma once

#include <memory>
#include <string>

#include "adapters/ObjectUIAdapter.h"
#include "adapters/ObjectUIOAdapter.h"

namespace orvel {

class OrvelWindow;

// "O0000100", firms and firm groups: the type adapter. Its menu opens a firm's
// window, creates firms, groups and subgroups, filters the list, sets what the
// list shows (frmPreview) and deletes; its window is frmFirms.
//
// PreviewSettings ("<Active>,<NotActive>,<CodeMode>") is the user's list
// setting, read whenever the services are set and replaced by frmPreview; the
// type's own list call hands it to the business layer.
class UI0000100 final : public ObjectUIAdapter {
 public:
  UI0000100();

  const std::string& PreviewSettings() const { return previewSettings_; }
  const std::string& MsgTitle() const { return msgTitle_; }

 protected:
  std::shared_ptr<OrvelObjectUIO> NewInstance() override;
  void DoSetOrvelS() override;
  std::optional<OrvelMenuItems> DoGetMenu(const std::string& oidr, const std::string& otype,
                                          const std::string& settings) override;
  OrvelMenuResult DoClickMenu(const std::string& oidr, const std::string& otype,
                              const std::string& sKey, const std::string& settings) override;
  // An OIDR becomes "'<OIDR>','',<PreviewSettings>"; a ready parameter string
  // (one holding an apostrophe) goes on unchanged.
  std::shared_ptr<Recordset> DoGetOrvelObjectList(const std::string& oidr, const std::string& otype,
                                                  const std::string& settings) override;
  bool DoAddToDeskTopOrvelObject(const std::string& oidr) override;
  // Only with the delete right; without it 0 and nothing done.
  int32_t DoDeleteOrvelObject(const std::string& oidr) override;

 private:
  // The firm's window on its object, not shown; null when the record is gone
  // (told to the user) or the user may not read firms (not told).
  std::shared_ptr<OrvelWindow> GetFirmForm(const std::string& oidr, const std::string& otype);
  OrvelMenuResult CreateRecord(const std::string& oidr, const std::string& otype,
                               const std::string& sKey);
  OrvelMenuResult Filter();
  OrvelMenuResult ChangePreview();
  OrvelMenuResult DeleteAsked(const std::string& oidr);
  void ShowHelp();

  std::string msgTitle_;
  std::string previewSettings_ = "1,0,1";
};

// One firm or firm group. Its properties and methods are how the firm's
// windows and other modules reach the business object; see Properties and
// Methods for the names.
class UIO0000100 final : public ObjectUIOAdapter {
 protected:
  // Inner's Read; a new record (OIDR without an ID) then starts active.
  OrvelStatus DoRead() override;
  OrvelResult DoProperties(const std::string& propertyName,
                           std::string& propertyPar) override;
  OrvelResult DoMethods(const std::string& name, Variant::Array& params) override;

 private:
  OrvelResult SetTypeAndRegion();
};

}  // namespace orvel
