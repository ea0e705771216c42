#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelWindow.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/OrvelGrid.h"
#include "ui/Panel.h"

namespace orvel {

class OrvelServices;
class Ui;

// The reference host's card of one record of a type it serves itself: the
// heading names the type, the field sheet shows the record. A card that
// writes has "Įrašyti", which saves and keeps the card on the record, and
// "Atšaukti", which reads it again; a card that only shows takes no typing.
// "Uždaryti" closes it through the window manager. A failed write shows
// "Klaida!" and the text, and the card stays with what was typed.
class HostCard : public Form, public OrvelWindow, public std::enable_shared_from_this<HostCard> {
 public:
  HostCard(Ui& ui, bool editable, std::shared_ptr<OrvelServices> services);
  ~HostCard() override;

  // OrvelWindow
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return object_; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override {
    object_ = std::move(object);
  }
  void Show() override { Form::Show(); }
  void QueryRemove(bool& cancel) override { cancel = false; }
  void Unload() override { Form::Unload(); }

  void cmdEnter_Click();
  void cmdCancel_Click();
  void SSCClose_Click();

  Panel SOPanel{"SOPanel"};
  std::shared_ptr<orvel::OrvelGrid> OrvelGrid;
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};
  Button SSCClose{"SSCClose"};

 protected:
  void Form_Load() override;

 private:
  void ShowRecord();
  std::string Title() const;

  Ui& ui_;
  bool editable_;
  std::shared_ptr<OrvelServices> services_;
  std::shared_ptr<orvel::OrvelObjectUIO> object_;
};

}  // namespace orvel
