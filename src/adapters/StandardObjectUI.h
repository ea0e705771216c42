#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelObjectUI.h"

namespace orvel {

// The standard type object that every type adapter wraps and forwards to.
// It reaches data only through the type's business object:
//
//   list    GetCall "Orvel_GetObjectList"  Param "'<OIDR>'", or the OIDR as it
//           stands when it is a ready argument string (it holds an apostrophe)
//   delete  ExecCall "Orvel_DeleteObject"  Param "'<OIDR>'"
//
// and reads and saves records through StandardObjectUIO. It offers no menu
// and no window; OName is TypeName(OID).
// The display name of a type: its caption registered by this module, or
// else what the host names it (host service "Orvel_GetObjectName" with the
// OID); "" when neither names it.
std::string TypeName(const std::string& oid);

class StandardObjectUI : public OrvelObjectUI,
                         public std::enable_shared_from_this<StandardObjectUI> {
 public:
  std::string OID() override { return oid_; }
  void SetOID(const std::string& oid) override { oid_ = oid; }
  std::string OName() override;
  std::optional<OrvelMenuItems> GetMenu(const std::string& oidr, const std::string& otype,
                                        const std::string& settings) override;
  OrvelMenuResult ClickMenu(const std::string& oidr, const std::string& otype,
                            const std::string& sKey, const std::string& settings) override;
  bool DragOK(const std::string& oidr, const std::string& otype,
              const std::string& settings) override;
  bool DropOK(const std::string& oidr) override;
  std::shared_ptr<Recordset> GetOrvelObjectList(const std::string& oidr, const std::string& otype,
                                                const std::string& settings) override;
  // Tells the host's object manager to place the object on the desktop.
  bool AddToDeskTopOrvelObject(const std::string& oidr) override;
  // A standard instance object on the record, or null when it cannot be read.
  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) override;
  std::shared_ptr<IconsTable> GetIconsTable() override { return nullptr; }
  int32_t DeleteOrvelObject(const std::string& oidr) override;
  // Stores the module-wide reference when none is stored yet.
  void SetOrvelS(const std::shared_ptr<OrvelServices>& services) override;
  void SetBO(const std::shared_ptr<Object>& bo) override;
  std::shared_ptr<OrvelObjectBO> BO() override { return bo_; }

 private:
  std::string oid_;
  std::shared_ptr<OrvelObjectBO> bo_;
};

}  // namespace orvel
