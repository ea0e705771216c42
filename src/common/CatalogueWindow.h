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

// The card of one catalogue record: the pattern every catalogue window
// shares. A heading (SOPanel), Write and Cancel (cmdEnter, cmdCancel), New
// and Close (SSCNew, SSCClose; a right click on Close deletes), and the host's
// field sheet with its list tabs (OrvelGrid). The record's object comes from
// the builder through the OrvelObjectUIO property and is read in Form_Load.
//
// Editing state is told by the buttons: while the record is unchanged
// cmdEnter and cmdCancel are off and SSCNew on; after a change the reverse.
// The window is new while its object's OIDR is empty.
//
// A window adds its tabs, lists and caption through the hooks; the handlers
// here are the shared behaviour and run guarded, so that no failure inside
// the module reaches the host.
class CatalogueWindow : public Form,
                        public OrvelWindow,
                        public std::enable_shared_from_this<CatalogueWindow> {
 public:
  // The title of this pattern's message boxes.
  static constexpr const char* kMsgTitle = "Orvel Apskaita";

  ~CatalogueWindow() override;

  // OrvelWindow
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return object_; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override;
  void Show() override { Form::Show(); }
  // Asks before unsaved changes are given up: "<heading>\n\nUždaryti be
  // išsaugojimo?", Yes and No; Cancel on any answer but Yes. The close button
  // is then enabled exactly when the window may go.
  void QueryRemove(bool& cancel) override;
  void Unload() override { Form::Unload(); }

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
  Panel SOPanel{"SOPanel"};
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};
  Button SSCClose{"SSCClose"};
  Button SSCNew{"SSCNew"};
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

  // While the record has unsaved edits (cmdEnter on) asks "<heading>\n\n
  // Uždaryti be išsaugojimo?" with Yes and No; true when the window must stay.
  bool KeepUnsavedEdits(const std::string& title);
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
  // The window's object; RuntimeError when the builder gave none.
  orvel::OrvelObjectUIO& Uio();
  std::string OIDR();
  std::shared_ptr<OrvelWindow> Self();

  bool InitRunning = false;
  bool Initialized = false;
  std::vector<ListView*> Lists;
  int ListCount = 0;
  int ActiveList = -1;

 private:
  std::shared_ptr<orvel::OrvelObjectUIO> object_;
};

}  // namespace orvel
