#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace orvel {

enum ComboBoxStyle : int { vbComboDropdown = 0, vbComboDropdownList = 2 };

// A combo box: a list of texts, each with a number (ItemData), and the text
// shown. ListIndex is the picked row, 0-based, -1 for none; setting it from
// code or by the user raises Click and shows that row's text.
//
// Text follows the style: a drop-down combo (the default) takes any text and
// picks the row that reads the same (-1 when none does); a drop-down list
// only takes the text of one of its rows (anything else is RuntimeError 383),
// and "" clears the pick. Change is raised only by a drop-down combo's text
// set from code or typed; a pick shows its row's text without it.
class ComboBox : public Control {
 public:
  using Control::Control;

  int Style() const { return style_; }
  void SetStyle(int style);  // vbComboDropdown or vbComboDropdownList, else 380

  // Appends a row; returns its index (also NewIndex()).
  int AddItem(std::string text, int32_t itemData = 0);
  // Removes a row; an index outside the list is RuntimeError 381. The picked
  // row going clears the pick (without Click).
  void RemoveItem(int index);
  // Empties the list and the text; the pick goes without Click.
  void Clear();
  int ListCount() const { return static_cast<int>(items_.size()); }
  int NewIndex() const { return newIndex_; }
  // The row's text; "" for an index outside the list, as the platform reads it.
  std::string List(int index) const;
  // The row's number; an index outside the list is RuntimeError 381.
  int32_t ItemData(int index) const;
  void SetItemData(int index, int32_t data);

  int ListIndex() const { return listIndex_; }
  // -1 clears; anything outside -1..ListCount-1 is RuntimeError 380. Raises
  // Click when the pick changes.
  void SetListIndex(int index);

  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  std::function<void()> OnClick;
  std::function<void()> OnChange;
  std::function<void()> OnLostFocus;
  std::function<void(int& keyAscii)> OnKeyPress;

  // The user picking a row (-1 is not a pick). Nothing while disabled or hidden.
  void Pick(int index);
  // The user typing into a drop-down combo; refused (false) while disabled or
  // hidden, or for a drop-down list.
  bool Edit(std::string text);
  void LostFocus();
  int KeyPress(int keyAscii);

  void FocusLeft() override { LostFocus(); }
  int KeyTyped(int keyAscii) override { return KeyPress(keyAscii); }

 private:
  struct Item {
    std::string text;
    int32_t data = 0;
  };
  const Item& At(int index) const;
  Item& At(int index);
  int FindExact(const std::string& text) const;
  // Shows a row's text (or none) without raising Change.
  void SetShownText(std::string text);

  std::vector<Item> items_;
  int style_ = vbComboDropdown;
  int listIndex_ = -1;
  int newIndex_ = -1;
  std::string text_;
};

}  // namespace orvel
