#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelWindow.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/OrvelGrid.h"
#include "ui/Panel.h"

namespace orvel {

// The frame every catalogue card shares, with or without a field sheet: the
// heading (SOPanel), New and Close (SSCNew, SSCClose; a right click on Close
// deletes the record), the question before unsaved edits are given up, and
// the record's object, which the builder hands over through the
// OrvelObjectUIO property. The frame registers none of its controls: each
// card registers them in the order it shows them.
class CatalogueFrame : public Form,
                       public OrvelWindow,
                       public std::enable_shared_from_this<CatalogueFrame> {
 public:
  // The title of the catalogue cards' message boxes.
  static constexpr const char* kMsgTitle = "Orvel Apskaita";

  ~CatalogueFrame() override;

  // OrvelWindow
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return object_; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override;
  void Show() override { Form::Show(); }
  void Unload() override { Form::Unload(); }

  Panel SOPanel{"SOPanel"};
  Button SSCClose{"SSCClose"};
  Button SSCNew{"SSCNew"};

 protected:
  explicit CatalogueFrame(std::string formName);

  // Where the right-click delete finds the adapter that deletes the record:
  // the object manager's adapter of the record's type, or the record's own.
  enum class DeleteVia { kObjectManager, kRecord };
  // Asks "Ar tikrai norite panaikinti?\n<preview>" with OK and Cancel under
  // `title`; on OK deletes the record and, when that succeeded, has the
  // window manager remove its window (`ask` passed on).
  void DeleteRecordAsked(const std::string& title, DeleteVia via, bool ask);
  // Off first, so that a second click cannot come in while events run; then
  // the window manager closes the window.
  void CloseFrame();
  // While `edited`, asks "<heading>\n\nUždaryti be išsaugojimo?" with Yes
  // and No; true when the window must stay.
  bool KeepUnsavedEdits(bool edited, const std::string& title);
  // The window's object; RuntimeError when the builder gave none.
  orvel::OrvelObjectUIO& Uio();
  std::string OIDR();
  std::shared_ptr<OrvelWindow> Self();

 private:
  std::shared_ptr<orvel::OrvelObjectUIO> object_;
};

// The card of one catalogue record on the host's field sheet: the frame with
// Write and Cancel (cmdEnter, cmdCancel) and the sheet with its list tabs
// (OrvelGrid). The record's object is read in Form_Load.
//
// Editing state is told by the buttons: while the record is unchanged
// cmdEnter and cmdCancel are off and SSCNew on; after a change the reverse.
// The window is new while its object's OIDR is empty.
//
// A window adds its tabs, lists and caption through the hooks; the handlers
// here are the shared behaviour and run guarded, so that no failure inside
// the module reaches the host.
class CatalogueWindow : public CatalogueFrame {
 public:
  ~CatalogueWindow() override;

  // Asks before unsaved changes are given up: "<heading>\n\nUždaryti be
  // išsaugojimo?", Yes and No; Cancel on any answer but Yes. The close button
  // is then enabled exactly when the window may go.
  void QueryRemove(bool& cancel) override;

  // Reads the record into the window: sheet, tabs, caption, lists, buttons.
  // Runs at load and after every re-read; tabs and columns are added once.
  virtual void InitForm();

  // Event handlers. The window wires its buttons and the grid's events to
  // these once; a window that differs overrides the handler.
  virtual void cmdEnter_Click();
  virtual void cmdCancel_Click();
  virtual void SSCNew_Click();
  virtual void SSCClose_Click();
  virtual void SSCClose_MouseUp(int button, int shift = 0);
  void mnuToDesktop_Click();
  virtual void OrvelGrid_FieldChanged();
  // The grid's lists; nothing by default.
  virtual void OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button,
                                     int shift) {
    (void)tabKey, (void)tabIndex, (void)button, (void)shift;
  }
  virtual void OrvelGrid_ListDoubleClick(int tabIndex) { (void)tabIndex; }
  virtual void OrvelGrid_ListDragOver(const std::shared_ptr<Object>& data, int& effect) {
    (void)data, (void)effect;
  }
  virtual void OrvelGrid_ListDragDrop(const std::shared_ptr<Object>& data) { (void)data; }

  // A child object the window must unload with its own writes.
  std::shared_ptr<orvel::Object> ShowObject;

  // Controls.
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};
  std::shared_ptr<orvel::OrvelGrid> OrvelGrid;

 protected:
  CatalogueWindow(std::string formName, std::string heading);

  // Form
  void Form_Load() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload() override;

  // Hooks of InitForm: the tabs not made yet, the heading, the lists.
  virtual void AddTabs() {}
  virtual void SetCaption() = 0;
  virtual void FillLists() {}

  // KeepUnsavedEdits while the record has unsaved edits (cmdEnter on).
  bool KeepUnsavedEdits(const std::string& title) {
    return CatalogueFrame::KeepUnsavedEdits(cmdEnter.Enabled(), title);
  }
  // cmdEnter, cmdCancel on when changed; SSCNew the opposite.
  void SetButtons(bool changed);
  // Tells the child object to unload, ignoring its failures, and lets it go.
  void UnloadChild();
  // Adds a tab of the sheet and makes it the active list.
  ListView& AddList(const std::string& key, const std::string& caption);
  // Pops `menu` up over the active list when the right button went up over
  // tab `tabKey` and a row is selected.
  void PopupOverSelectedRow(const std::string& tabKey, int button, const std::string& onTab,
                            Menu& menu);
  bool InitRunning = false;
  bool Initialized = false;
  std::vector<ListView*> Lists;
  int ListCount = 0;
  int ActiveList = -1;
};

}  // namespace orvel
