#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "orvel/IconsTable.h"
#include "orvel/Object.h"
#include "orvel/OrvelMenuItem.h"
#include "orvel/OrvelMenuResult.h"

namespace orvel {

class OrvelObjectBO;
class OrvelObjectUIO;
class OrvelServices;
class Recordset;

/// The object-type adapter: what the host's catalogue tree calls on a type.
/// `settings` is the host's free string; most adapters ignore it.
class OrvelObjectUI : public Object {
 public:
  virtual std::string OID() = 0;
  virtual void SetOID(const std::string& oid) = 0;
  virtual std::string OName() = 0;
  /// The context menu of a node, or nullopt for no menu at all.
  virtual std::optional<OrvelMenuItems> GetMenu(const std::string& oidr, const std::string& otype,
                                                const std::string& settings) = 0;
  /// sKey: a menu number in decimal, or a chord "<virtual key>S<shift mask>".
  virtual OrvelMenuResult ClickMenu(const std::string& oidr, const std::string& otype,
                                    const std::string& sKey, const std::string& settings) = 0;
  virtual bool DragOK(const std::string& oidr, const std::string& otype,
                      const std::string& settings) = 0;
  virtual bool DropOK(const std::string& oidr) = 0;
  virtual std::shared_ptr<Recordset> GetOrvelObjectList(const std::string& oidr,
                                                        const std::string& otype,
                                                        const std::string& settings) = 0;
  virtual bool AddToDeskTopOrvelObject(const std::string& oidr) = 0;
  /// The instance adapter, read and ready, or null when it cannot be read.
  virtual std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) = 0;
  virtual std::shared_ptr<IconsTable> GetIconsTable() = 0;
  /// 0 on success.
  virtual int32_t DeleteOrvelObject(const std::string& oidr) = 0;
  virtual void SetOrvelS(const std::shared_ptr<OrvelServices>& services) = 0;
  virtual void SetBO(const std::shared_ptr<Object>& bo) = 0;
  virtual std::shared_ptr<OrvelObjectBO> BO() = 0;
};

}  // namespace orvel
