#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelObjectUI.h"
#include "refhost/HostTypes.h"

namespace orvel {

class OrvelWindow;
class Ui;

// The reference host's own type adapter for a type of another module of the
// suite (HostTypes): the records come from the type's business object by the
// standard calls, the window is a HostCard. The module reaches it by OIDR
// through the object manager; a stored record's node has one entry, "0", which
// opens its card (the type's own node has no menu):
//
//   list    GetCall "Orvel_GetObjectList" '<OIDR>' (or a ready argument string)
//   delete  ExecCall "Orvel_DeleteObject" '<OIDR>'
//   desktop the record's card, unless a window of it is open
class HostObjectUI : public OrvelObjectUI, public std::enable_shared_from_this<HostObjectUI> {
 public:
  HostObjectUI(const HostType& type, std::shared_ptr<Ui> ui) : type_(type), ui_(std::move(ui)) {}

  const HostType& Type() const { return type_; }
  std::shared_ptr<OrvelServices> Services() const { return services_.lock(); }
  // A card of the object, not shown yet.
  std::shared_ptr<OrvelWindow> NewCard(const std::shared_ptr<OrvelObjectUIO>& object);

  std::string OID() override { return std::string(type_.oid); }
  void SetOID(const std::string&) override {}
  std::string OName() override { return std::string(type_.name); }
  std::optional<OrvelMenuItems> GetMenu(const std::string& oidr, const std::string& otype,
                                        const std::string& settings) override;
  OrvelMenuResult ClickMenu(const std::string& oidr, const std::string& otype,
                            const std::string& sKey, const std::string& settings) override;
  bool DragOK(const std::string&, const std::string&, const std::string&) override { return true; }
  bool DropOK(const std::string&) override { return false; }
  std::shared_ptr<Recordset> GetOrvelObjectList(const std::string& oidr, const std::string& otype,
                                                const std::string& settings) override;
  bool AddToDeskTopOrvelObject(const std::string& oidr) override;
  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) override;
  std::shared_ptr<IconsTable> GetIconsTable() override { return nullptr; }
  int32_t DeleteOrvelObject(const std::string& oidr) override;
  void SetOrvelS(const std::shared_ptr<OrvelServices>& services) override { services_ = services; }
  void SetBO(const std::shared_ptr<Object>& bo) override;
  std::shared_ptr<OrvelObjectBO> BO() override { return bo_; }

 private:
  const HostType& type_;
  std::shared_ptr<Ui> ui_;
  std::weak_ptr<OrvelServices> services_;
  std::shared_ptr<OrvelObjectBO> bo_;
};

}  // namespace orvel
