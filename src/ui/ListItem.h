#pragma once

#include <cstdint>
#include <string>

#include "orvel/Variant.h"
#include "ui/KeyedList.h"
#include "ui/ListSubItems.h"

namespace orvel {

class ListView;

// One row of a list view: key, text, a value of the module's own (Tag: Empty
// until set; some rows carry Null), the key of its small icon, colour, bold,
// and its further columns. Made by ListItems::Add and owned by the view; a
// reference stays valid while the row is in the list. Changes notify the
// view's observer as "ListItems".
class ListItem {
 public:
  ListItem(ListView& view, std::string key, std::string text, std::string smallIcon = {})
      : view_(view),
        key_(std::move(key)),
        text_(std::move(text)),
        smallIcon_(std::move(smallIcon)),
        subItems_(view) {}
  ListItem(const ListItem&) = delete;
  ListItem& operator=(const ListItem&) = delete;

  int Index() const { return index_; }  // 1-based
  const std::string& Key() const { return key_; }
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  const Variant& Tag() const { return tag_; }
  void SetTag(Variant tag);
  // The key of the icon in the view's SmallIcons list; "" for none.
  const std::string& SmallIcon() const { return smallIcon_; }
  void SetSmallIcon(std::string key);
  int32_t ForeColor() const { return foreColor_; }
  void SetForeColor(int32_t color);
  bool Bold() const { return bold_; }
  void SetBold(bool bold);
  // The row's check box, shown when the view has Checkboxes. Setting it from
  // code raises no ItemCheck, as on the platform.
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  // Whether this is the view's selected row; setting True selects it (and
  // only it), False clears the selection if it was this row.
  bool Selected() const;
  void SetSelected(bool selected);

  orvel::ListSubItems& ListSubItems() { return subItems_; }
  const orvel::ListSubItems& ListSubItems() const { return subItems_; }

  ListView& View() const { return view_; }

 private:
  friend class KeyedList<ListItem>;

  void Changed();

  ListView& view_;
  std::string key_;
  std::string text_;
  Variant tag_;
  std::string smallIcon_;
  int32_t foreColor_ = 0;
  bool bold_ = false;
  bool checked_ = false;
  int index_ = 0;
  orvel::ListSubItems subItems_;
};

}  // namespace orvel
