#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/RecordingObserver.h"
#include "ui/TextBox.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

// A dialog that records its life cycle and can refuse to close.
class frmProbe : public Form {
 public:
  frmProbe() : Form("frmProbe") {
    Register(txtName);
    Register(cmdEnter);
    Register(txtName);  // twice: kept once
  }

  TextBox txtName{"txtName"};
  Button cmdEnter{"cmdEnter"};

  std::vector<std::string> events;
  bool refuseUnload = false;
  bool unloadInLoad = false;
  int swallowKey = 0;

 protected:
  void Form_KeyPress(int& keyAscii) override {
    events.push_back("Form_KeyPress " + std::to_string(keyAscii));
    if (keyAscii == swallowKey) keyAscii = 0;
  }
  void Form_Load() override {
    events.push_back("Load");
    if (unloadInLoad) Unload();
  }
  void Form_QueryUnload(bool& cancel) override {
    events.push_back("QueryUnload");
    cancel = refuseUnload;
  }
  void Form_Unload() override {
    events.push_back("Unload");
    Unload();  // unloading again from inside changes nothing more
  }
};

// A probe with two text boxes that log their focus and key events.
class FocusProbe : public frmProbe {
 public:
  FocusProbe() {
    Register(txtCode);
    Register(txtHidden);
    txtHidden.SetVisible(false);
    for (TextBox* box : {&txtName, &txtCode}) {
      box->OnGotFocus = [this, box] { events.push_back(box->Name() + ".GotFocus"); };
      box->OnLostFocus = [this, box] { events.push_back(box->Name() + ".LostFocus"); };
      box->OnKeyPress = [this, box](int& key) {
        events.push_back(box->Name() + ".KeyPress " + std::to_string(key));
      };
    }
    txtName.OnValidate = [this](bool& cancel) {
      events.push_back("txtName.Validate");
      cancel = txtName.Text().empty();
    };
  }
  TextBox txtCode{"txtCode"};
  TextBox txtHidden{"txtHidden"};
};

// A hidden or foreign control takes no focus; a cancelled Validate keeps it, a passed one lets
// it move on. A typed key goes to the focused box, the form's preview maybe swallowing it first.
TEST(Form, SetFocusValidates_TypeKeyPreviewed_LifeCycleLoadsOnce_ObserverFollowsIt) {
  FocusProbe form;
  TextBox stranger{"txtStranger"};
  EXPECT_FALSE(form.SetFocus(form.txtHidden));
  EXPECT_FALSE(form.SetFocus(stranger));
  EXPECT_EQ(form.ActiveControl(), nullptr);
  ASSERT_TRUE(form.SetFocus(form.txtName));
  EXPECT_FALSE(form.SetFocus(form.txtCode));
  EXPECT_EQ(form.ActiveControl(), &form.txtName);
  form.txtName.SetText("UAB");
  EXPECT_TRUE(form.SetFocus(form.txtCode));
  EXPECT_EQ(form.ActiveControl(), &form.txtCode);
  EXPECT_THAT(form.events, ElementsAre("txtName.GotFocus", "txtName.Validate", "txtName.Validate",
                                       "txtName.LostFocus", "txtCode.GotFocus"));
  form.events.clear();
  EXPECT_EQ(form.TypeKey('a'), 'a');  // no preview: only the box
  form.SetKeyPreview(true);
  form.swallowKey = 13;
  EXPECT_EQ(form.TypeKey('b'), 'b');
  EXPECT_EQ(form.TypeKey(13), 0);
  EXPECT_THAT(form.events, ElementsAre("txtCode.KeyPress 97", "Form_KeyPress 98",
                                       "txtCode.KeyPress 98", "Form_KeyPress 13"));
  // Load runs once however often the form is shown; a refused QueryUnload keeps it shown; Hide
  // keeps it loaded; a Show after an Unload loads again.
  frmProbe life;
  EXPECT_FALSE(life.Loaded());
  life.Load();
  life.Show();
  life.Show();
  life.Load();
  EXPECT_TRUE(life.Visible());
  life.refuseUnload = true;
  EXPECT_FALSE(life.Unload());
  EXPECT_TRUE(life.Visible());
  life.Hide();
  EXPECT_TRUE(life.Loaded());
  EXPECT_FALSE(life.Visible());
  life.refuseUnload = false;
  EXPECT_TRUE(life.Unload());
  EXPECT_FALSE(life.Loaded());
  EXPECT_TRUE(life.Unload());  // not loaded: nothing to ask
  life.Show();
  EXPECT_TRUE(life.Visible());
  EXPECT_THAT(life.events, ElementsAre("Load", "QueryUnload", "QueryUnload", "Unload", "Load"));
  // A form its own Form_Load unloads is not shown.
  frmProbe unloading;
  unloading.unloadInLoad = true;
  unloading.Show();
  EXPECT_FALSE(unloading.Loaded() || unloading.Visible());
  EXPECT_THAT(unloading.events, ElementsAre("Load", "QueryUnload", "Unload"));
  frmProbe observed;
  EXPECT_EQ(observed.Controls(), (std::vector<Control*>{&observed.txtName, &observed.cmdEnter}));
  EXPECT_EQ(observed.FindControl("cmdEnter"), &observed.cmdEnter);
  EXPECT_EQ(observed.FindControl("cmdNone"), nullptr);
  RecordingObserver observer;
  observed.SetObserver(&observer);
  for (int twice = 0; twice < 2; ++twice) observed.SetCaption("Bankai");
  observed.Show();
  observed.SetEnabled(false);
  observed.Unload();
  EXPECT_THAT(observer.changes,
              ElementsAre("frmProbe.Caption", "frmProbe.Loaded", "frmProbe.Visible",
                          "frmProbe.Enabled", "frmProbe.Visible", "frmProbe.Loaded"));
}

}  // namespace
}  // namespace orvel
