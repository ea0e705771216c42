#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

namespace orvel {

class OrvelObjectUIO;
class Recordset;

// The modal dialog that attaches one accounting template to a destination:
// for one template type, the template and the document group it applies to.
// The reference boxes show a name in Text and hold an OIDR in Tag.
//
// The one business method "SaveUpdateDeleteTemplates" serves adding,
// changing and deleting: the business layer tells them apart by the row's ID
// (0 adds) and by the two references (both empty deletes). The dialog treats
// every row alike: an inherited row (ID 0) opens with its type's values and a
// write makes a row of the destination's own.
//
// cmdEnter starts off and comes on with a pick or a clearing; clearing the
// template while a document group stays chosen turns it off, since a group
// cannot stand without a template.
class frmTemplate : public Form {
 public:
  frmTemplate();

  // Set by the caller before the dialog is shown.
  std::shared_ptr<Recordset> RsTemplates;
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO;
  std::string TemplateTypeOIDR;
  bool IsNewRow = false;
  int32_t TemplateID = 0;

  // Read back by the caller: whether the dialog was written.
  bool Saved = false;

  // The parameter string of "SaveUpdateDeleteTemplates" for the boxes as they
  // stand: '<destination>','<type>','<template>','<document group>',<ID>.
  std::string SaveParameters();

  // Event handlers.
  void imgCombo_Click();
  void cmdDocumenytGroup_Click();
  void cmdGroupClean_Click();
  void cmdTemplate_Click();
  void cmdTemplateClean_Click();
  void cmdEnter_Click();
  void cmdCancel_Click();

  // Controls.
  ImageCombo imgCombo{"imgCombo"};
  Label lblDocumentGroup{"lblDocumentGroup"};
  TextBox txtDocumentGroup{"txtDocumentGroup"};
  Button cmdDocumenytGroup{"cmdDocumenytGroup"};
  Button cmdGroupClean{"cmdGroupClean"};
  Label lblTemplate{"lblTemplate"};
  TextBox txtTemplate{"txtTemplate"};
  Button cmdTemplate{"cmdTemplate"};
  Button cmdTemplateClean{"cmdTemplateClean"};
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  void FillTypes();
  void ShowRow();
};

}  // namespace orvel
