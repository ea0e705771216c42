#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "common/Boundary.h"
#include "common/CatalogueWindow.h"
#include "orvel/Variant.h"
#include "ui/Button.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace orvel {

class Fields;

// What tells one catalogue of groups from another.
struct GroupedKind {
  // The catalogue's type and the key of its rights.
  const char* oid;
  const char* rightKey;
  // The heading of a stored group, a new group, a stored record, a new one.
  const char* captions[4];
  // The group picker's kinds and the types it leaves out.
  const char* selectKind;
  const char* excludeTypes;
  // Whether a group picked for the record also becomes the group a new
  // record made from this window goes into.
  bool newRecordFollowsPick;
};

// The card of a record in a catalogue of groups (firms, goods): the record's
// group line with its picker, the members of a group taken in by drag and
// drop, the host's list period, and the editing rights of the catalogue's
// key. Its handlers run guarded under the session's title (MsgTitle).
class GroupedCard : public CatalogueWindow {
 public:
  // The card's buttons and the close button: asks before unsaved edits are
  // given up. A window that stays keeps its close button enabled, one that
  // goes has it disabled, as these cards have always done.
  void QueryRemove(bool& cancel) override;
  // Reads the record into the window (ReadCard) under the hourglass; the
  // window is left usable after a failure.
  void InitForm() override;

  // Picks the record's group; the catalogue root takes it to the top.
  void cmdParentGroup_Click();
  // An edit wakes cmdEnter and cmdCancel, as far as the rights allow.
  void OrvelGrid_FieldChanged() override;

  // cmdEnter and cmdCancel on when `enable` and the user may write the record
  // (insert for a new one, update for a stored one).
  void SetEditState(bool enable);
  // The heading by the record: new or stored, group or not.
  void UpdateCaption();

  // Controls.
  TextBox txtGroup{"txtGroup"};
  Button cmdParentGroup{"cmdParentGroup"};
  Timer timerModal{"timerModal"};

  // Window state.
  std::shared_ptr<orvel::OrvelObjectUIO> ParentObject;
  int32_t ParentID = 0;
  bool IsGroup = false;
  bool IsRoot = false;
  bool IsNew = false;
  bool Loading = false;
  std::string MsgTitle;
  // The host's list period, as GetOldPeriod / GetNewPeriod hand it over.
  Variant Period;
  // The tab the user is on, numbered from 1.
  int16_t CurrentTab = 0;

 protected:
  GroupedCard(std::string formName, std::string heading, const GroupedKind& kind);

  void Form_Load() override;
  void SetCaption() override { UpdateCaption(); }

  // The body of InitForm.
  virtual void ReadCard() = 0;
  virtual void timerModal_Timer() {}

  // Each menu's click runs its handler guarded.
  template <class W>
  void WireMenus(std::initializer_list<std::pair<Menu*, void (W::*)()>> clicks) {
    for (const auto& [menu, handler] : clicks) {
      menu->OnClick = [this, handler = handler] {
        Handle(MsgTitle, [&] { (static_cast<W*>(this)->*handler)(); });
      };
    }
  }

  // The group line over the sheet: the path of the record's group.
  void ShowGroupLine();
  // The right-click delete of the record when `button` is the right one and
  // `allowed`; the window manager is asked before the window goes.
  void DeleteOnRightClick(int button, bool allowed, DeleteVia via);
  // Writes the sheet. A failed write is shown ("Klaida!") and the window
  // stays editable, re-read after a record changed meanwhile; a good one
  // tells the window manager. True when written.
  bool SaveSheet();
  // Asks the host for a new list period; true when it differs from the one
  // in force, which it then replaces.
  bool TakeNewPeriod();
  // A record dropped on the group: listed by `addRow` (which refuses a
  // record listed already), then moved into the group and written.
  void TakeIntoGroup(orvel::OrvelObjectUIO& dragged, const std::function<void(Fields&)>& addRow);
  // Whether `dragged`, of group flag `draggedGroupFlag`, is this record's
  // own group or one above it: a group cannot move under itself.
  bool WouldHoldItsOwnGroup(orvel::OrvelObjectUIO& dragged, int32_t draggedGroupFlag);

  const GroupedKind& kind_;
};

}  // namespace orvel
