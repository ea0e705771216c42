#pragma once

#include <memory>
#include <optional>
#include <string>

// The module's one routine module: the module-wide services reference and
// the small routines that forms and adapters of several catalogues share.
namespace orvel {

class Dictionary;
class OrvelObjectUIO;
class OrvelServices;
class Recordset;
class TextBox;
class Variant;

// The host's services, in the module's state (ModuleState). The first adapter that
// receives one stores it; later ones leave it as it is. Every form and routine
// reads it from here.
std::shared_ptr<OrvelServices> OrvelS();
// Stores `services` when none is stored yet; returns whether it did.
bool SetOrvelS(const std::shared_ptr<OrvelServices>& services);
// Forgets the stored reference: at module unload, and between tests.
void ResetOrvelS();

// The services, or RuntimeError when no adapter has received them yet.
OrvelServices& Services();
// The host session's title for message boxes.
std::string AppTitle();

// Splits a column configuration: the piece before the first "#" holds the
// print parameters (split at ";", stored under "JPrintParams"), each further
// piece one column (split at ";", its 1-based number appended, stored under
// its first element). A repeated column key is the dictionary's error.
void ParseColumnConfig(const std::string& config, Dictionary& printParams, Dictionary& columns);

// A box with the stop icon and the OK button.
void ShowStop(const std::string& prompt, const std::string& title);

// The key filter of number boxes: digits and backspace pass, "." types the
// decimal comma, a second comma and every other key give 0 (swallowed).
int KeyFilterDecimal(int keyAscii, const std::string& text);

// A number box's text after editing: numeric text with `decimals` places and
// no grouping; other text "" unless `zeroIfBlank`, then zero with two places
// and the locale's grouping, whatever `decimals` says.
std::string FormatDecimalText(const std::string& text, int decimals, bool zeroIfBlank);

// "Sukūrė:<user>(<date>), koregavo:<user>(<date>)" of the object's record.
// On the way it fills in the present user: as creator of a record not stored
// yet, or as the next updater of a stored one (after the line is built, so the
// line still shows the former one).
std::string CreatorLine(OrvelObjectUIO& object);

// The line a card shows for the group a record is in: the names of the
// groups above the group, then the group's own; nothing when the group is
// not there or cannot be read.
std::optional<std::string> GroupLine(const std::shared_ptr<OrvelObjectUIO>& group);

// Reads a card's object again. When it can no longer be read, tells why in
// an exclamation box under `title` and closes its window; returns whether it
// was read.
bool ReadAgainOrClose(OrvelObjectUIO& object, const std::string& title);

struct ObjectRights {
  bool CanRead = false;
  bool CanDelete = false;
  bool CanUpdate = false;
  bool CanInsert = false;
};
// The four rights of a component key, asked in the order of the fields.
ObjectRights GetObjectRights(const std::string& key);

// 0 for Null, else the value as a 32-bit integer.
int32_t NullToLong(const Variant& value);

// Asks the host's group picker for a group of `otype`. Returns the chosen
// reference (the tail of the picked path from its last "O"), "" when the user
// cancelled or picked another type than `expected`. With a box, a stored
// record's reference goes to its Tag and its name to its Text (and a choice of
// the root clears it); without one, a stored record gives "<ref>_<name>".
std::string SelectGroup(const std::string& otype, const std::string& caption, TextBox* box,
                        const std::optional<std::string>& selectKind = std::nullopt,
                        const std::string& expected = "");

// Filters the set; with no row left the filter is cleared again. Whether rows
// are left (False for no set or an empty one).
bool FilterRecordset(const std::shared_ptr<Recordset>& rs, const std::string& filter);

// The question before a delete: `prompt` under `title` with `buttons`
// (vbOKCancel or vbYesNo) and the exclamation icon. True on OK or Yes; with
// `unlessNo`, on any answer but No.
bool ConfirmDelete(const std::string& prompt, int buttons, const std::string& title,
                   bool unlessNo = false);
// Deletes `oidr` through the object manager's adapter of `type` (an OID, or
// an OIDR, which names its type); true when the adapter was there and the
// delete succeeded.
bool DeleteThrough(const std::string& type, const std::string& oidr);
// Asks "Ar tikrai norite panaikinti?\n\n<preview>" with Yes and No, then
// deletes the object through its type adapter and closes its window.
void DeleteObjectAsked(OrvelObjectUIO& object);

// The Preview of the object an OIDR names, shown in the box (Text, and the
// OIDR in Tag); "" and a cleared box when it names nothing or cannot be read.
std::string ShowReference(const std::string& oidr, TextBox* box);
// Empties the box's Text and Tag; nothing for no box.
void ClearReference(TextBox* box);
// The object manager's object of an OIDR, or null.
std::shared_ptr<OrvelObjectUIO> GetObjectUIO(const std::string& oidr);

// "<caption>\n\nUždaryti be išsaugojimo?" with Yes and No: True on Yes.
bool AskCloseWithoutSaving(const std::string& caption);

// The count of a "used in documents" answer: the first field of its record;
// an answer without a record, or a Null count, tells of none.
double UsedInDocuments(const Variant& answer);

}  // namespace orvel
