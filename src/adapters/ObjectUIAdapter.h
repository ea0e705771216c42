#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "orvel/OrvelObjectUI.h"

namespace orvel {

// The contract every type adapter (UInnnnnnn) shares. It wraps the standard
// type object (Inner) and hands it what it does not refine, like a wrapper
// that forwards every call. A type's adapter refines the Do* hooks.
//
// The public operations are the host's: each runs its hook guarded, so that
// no failure inside the module crosses to the host (operations without a
// Number show it to the user and return their neutral value).
class ObjectUIAdapter : public OrvelObjectUI, public std::enable_shared_from_this<ObjectUIAdapter> {
 public:
  using IconRow = std::pair<const char*, const char*>;  // key (row kind), item (icon key)

  ~ObjectUIAdapter() override;

  std::string OID() final;
  void SetOID(const std::string& oid) final;
  std::string OName() final;
  std::optional<OrvelMenuItems> GetMenu(const std::string& oidr, const std::string& otype,
                                        const std::string& settings) final;
  OrvelMenuResult ClickMenu(const std::string& oidr, const std::string& otype,
                            const std::string& sKey, const std::string& settings) final;
  bool DragOK(const std::string& oidr, const std::string& otype, const std::string& settings) final;
  bool DropOK(const std::string& oidr) final;
  std::shared_ptr<Recordset> GetOrvelObjectList(const std::string& oidr, const std::string& otype,
                                                const std::string& settings) final;
  bool AddToDeskTopOrvelObject(const std::string& oidr) final;
  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) final;
  // The adapter's own table, not a copy; null for a type without one.
  std::shared_ptr<IconsTable> GetIconsTable() final { return iconsTable_; }
  int32_t DeleteOrvelObject(const std::string& oidr) final;
  // The first adapter to receive the services stores them module-wide;
  // later ones leave them. Not forwarded.
  void SetOrvelS(const std::shared_ptr<OrvelServices>& services) final;
  void SetBO(const std::shared_ptr<Object>& bo) final;
  std::shared_ptr<OrvelObjectBO> BO() final;

 protected:
  // A type without an icon table passes no rows and has none.
  explicit ObjectUIAdapter(std::initializer_list<IconRow> iconRows);

  // A new instance adapter of the pair.
  virtual std::shared_ptr<OrvelObjectUIO> NewInstance() = 0;

  // No menu: the host shows none for the type.
  virtual std::optional<OrvelMenuItems> DoGetMenu(const std::string& oidr, const std::string& otype,
                                                  const std::string& settings);
  // Acts on no key: Action 0.
  virtual OrvelMenuResult DoClickMenu(const std::string& oidr, const std::string& otype,
                                      const std::string& sKey, const std::string& settings);
  virtual bool DoDragOK(const std::string& oidr, const std::string& otype,
                        const std::string& settings);
  virtual bool DoDropOK(const std::string& oidr);
  // Inner's list for the OIDR; OType and Settings are deliberately not handed on.
  virtual std::shared_ptr<Recordset> DoGetOrvelObjectList(const std::string& oidr,
                                                          const std::string& otype,
                                                          const std::string& settings);
  // No window of its own: False.
  virtual bool DoAddToDeskTopOrvelObject(const std::string& oidr);
  // A new instance adapter on the record, read; its record set then marshals
  // only changed rows. Null when the record cannot be read (the text is dropped).
  virtual std::shared_ptr<OrvelObjectUIO> DoGetOrvelObject(const std::string& oidr);
  virtual int32_t DoDeleteOrvelObject(const std::string& oidr);
  // After every SetOrvelS, whether or not it stored the services: a type
  // that keeps settings of its own reads them here, through OrvelS().
  virtual void DoSetOrvelS() {}

  // A menu entry; the third and fourth fields stay empty.
  static OrvelMenuItem MakeMenuItem(const std::string& caption, const std::string& key);

  OrvelObjectUI& Inner() { return *inner_; }

 private:
  std::shared_ptr<OrvelObjectUI> inner_;
  std::shared_ptr<IconsTable> iconsTable_;
};

}  // namespace orvel
