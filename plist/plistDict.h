// One node of a property-list tree.

#ifndef MORVANTILE_PLIST_PLISTDICT_H
#define MORVANTILE_PLIST_PLISTDICT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/color.h"
#include "platform/core/date.h"
#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/core/variant.h"
#include "platform/files/text_input_stream.h"
#include "platform/files/text_output_stream.h"
#include "plist/key_tables.h"
#include "plist/list_from_one.h"

namespace morvantile {

class CheckBox;
class EditField;
class Listbox;
class PopupMenu;
class RadioButton;
class StaticText;
class Window;
class plist;
struct Entry;

// A dict, or with `isArray` an array. A node holds scalars as text, each under a key and with a
// type word, and owns its sub-nodes, which have keys too. The keys of an array are the
// numbers of its elements, "0", "1" and so on. Keys and type words are compared without regard to
// letter case.
//
// Reading creates: a getter stores its default under a missing key, and child() adds a missing
// node.
//
// Nothing fails by an exception: an operation that can't do its work leaves `error` and a message
// on the document (SetError), returns a neutral value and changes nothing. A node without a
// document has nowhere to report to, and returns the same. Exceptions are for wrong calls alone:
// GetType or TypeOK of a key that isn't there (KeyNotFoundException), and nil where a Date, a node,
// a control or a window is taken (NilObjectException), unless the operation says what nil does.
//
// What only reads is const, and a Ref<const plistDict> can do it. Getters are not const, because
// they store their defaults.
//
// A tree belongs to one thread. Its depth is bounded by memory alone: releasing it, like everything
// else done to a whole tree, takes no room on the call stack for it.
class MORVANTILE_API plistDict final : public Object {
 private:
  Entries& entries_;  // under `values`, `types` and `searched`, so it is made before them

 public:
  // An empty dict without a name, a parent or a document.
  plistDict();
  static void* operator new(std::size_t size);
  static void operator delete(void* node, std::size_t size);

  // The text of every scalar by its key, and the type word of every key, scalar or container.
  //
  // The type words that the operations store are "string", "integer", "real", "double", "boolean",
  // "date", "data", "dict" and "array"; a file may bring any other. The order of the keys is that
  // in which they were added, in an array that of the elements.
  Values values{entries_};
  Types types{entries_};

  // The sub-nodes and beside them their keys; the first of each is at 1, behind a placeholder.
  // To add directly, add to both; nodes are taken out by Remove.
  ListFromOne<Ref<plistDict>> children;
  // The key of this node in its parent; "root" for the top of a document that has been loaded.
  std::string name;
  ListFromOne<std::string> childrenNames;

  // In an array, the number of the element appended or read last; -1 before the first.
  std::int64_t indexOf = -1;
  bool isArray = false;

  // The node above, and the document. Both read as nil once what they refer to is gone, so a node
  // may outlive them; they stay as they are when a node is removed from its tree.
  BackRef<plistDict> parent;
  BackRef<plist> rootClass;

  // The cursor: a position in `types`, and whether it has run past either end.
  std::int64_t currentIndex = 0;
  bool eof = false;

  // Which keys the running search has delivered. Keys without a mark count as not delivered.
  Searched searched{entries_};

  // The last result of AbsolutePath.
  std::string path;

  // Makes the node an empty one with that name, kind, parent and document; its children stay, and
  // so do the marks in `searched`. Then, if `read` is set, reads its body from the stream, up to
  // its end tag or the end of the stream. The stream may be null if `read` isn't set.
  //
  // The text is read by lines; plist/xml/reader.h tells the rules. In short: one element or one
  // <key> on a line, whatever its leading blanks. The name of an element becomes the type of the
  // key and its text the value, verbatim but for "&lt;" and "&gt;"; <true/> and <false/> become a
  // "boolean". Keys are not decoded. A value may span lines, which its text then holds with Chr(13)
  // behind each, without leading blanks; only those of <data> are joined. Elements that are not
  // closed as they should be swallow what follows, up to the end tag of the node. Nothing is
  // rejected and nothing reported: bad input makes a smaller tree, and all that is in front of
  // it stays.
  virtual void Load(TextInputStream* stream, std::string_view own_name, bool as_array,
                    const BackRef<plistDict>& above, const BackRef<plist>& document, bool read);

  // The text without the control characters and blanks at its left end.
  [[nodiscard]] virtual std::string StripAll(std::string_view text) const;

  // The sub-node of that key, added as an empty dict if the key is free. Nil, with the report
  // "Child exists: " + name + " already exists", if the key holds a scalar. Where a file has
  // repeated a key, the first of its nodes. Leaves the report alone if it adds nothing.
  virtual Ref<plistDict> child(std::string_view key);
  Ref<plistDict> child(std::nullptr_t) = delete;  // nor child(0): see index

  // The text of a scalar, whatever its type. A missing key is added as a "string" with the default.
  // A container returns "" and the report "Key " + key + " does not exist".
  virtual std::string GetValue(std::string_view key, std::string_view standard);

  // The type word of the key, which must exist.
  [[nodiscard]] virtual std::string GetType(std::string_view key) const;

  // The sub-node whose key is that number; nil if there is none, without a report.
  [[nodiscard]] virtual Ref<plistDict> index(std::int64_t number) const;

  // Writes the entries of the node, and all below them, as XML text that Load reads, in the order
  // of the keys: each line behind as many tabs as `depth` says, none if it is 0 or less, and those
  // of a node below at a depth of one more. Texts are written as they are, with "<" and ">"
  // escaped; keys are not escaped. An entry without a text is written with an empty one. Errors
  // show in the stream's Close.
  virtual void Write(TextOutputStream& out, std::int64_t depth) const;

  // As GetValue.
  virtual std::string GetString(std::string_view key, std::string_view standard);

  // Whether the key, which must exist, holds a scalar; if not, with the report "Illegal Type: " +
  // key + " is a " + type.
  virtual bool TypeOK(std::string_view key) const;

  // The number in a scalar, without its fraction; 0 if its text begins with none. All digits of a
  // 64-bit integer count. A missing key is added as an "integer" with the default. A container
  // returns 0 and the report of TypeOK; a "date" returns -1 and "Type Mismatch: " + key + " is a
  // date".
  virtual std::int64_t GetInteger(std::string_view key, std::int64_t standard);

  // Whether the text of a "boolean" is "true". A missing key is added with the default. Any other
  // type returns false and the report "Type Mismatch: " + key + " is a " + type. An earlier report
  // stays if there is none of this call.
  virtual bool GetBoolean(std::string_view key, bool standard);
  bool GetBoolean(std::string_view key, const void* standard) = delete;

  // A new Date, made of a text like "2009-03-07T08:05:09Z" or only its part before the "T". The
  // fields are taken as they are, without regard to time zones; one out of range carries over as
  // Date says, and without a time it is midnight. A missing key is added with the default, which
  // may be nil only if the key exists. A container returns nil and the report of TypeOK. A text
  // that is no date returns the present moment and the report "Could not create date object from "
  // + key + "(" + text + ")".
  virtual Ref<Date> GetDate(std::string_view key, const Ref<Date>& standard);

  // As GetValue: a missing key is added as a "string".
  virtual std::string GetData(std::string_view key, std::string_view standard);

  // These store a value under a key, and make it deliverable to a running search again. A key keeps
  // the type that it got first: for another type CheckType leaves its report and nothing changes.
  virtual void SetBoolean(std::string_view key, bool value);
  void SetBoolean(std::string_view key, const void* value) = delete;  // "false" would be true

  // 0 if the key exists under another type than `wanted`, with the report "Type Mismatch: " + key +
  // " is a " + type; 1 if it exists under that type; 2 if it doesn't exist. Clears the report
  // first.
  virtual std::int64_t CheckType(std::string_view key, std::string_view wanted) const;

  // Stores the text as it is.
  virtual void SetString(std::string_view key, std::string_view value);
  void SetString(std::string_view key, std::nullptr_t) = delete;

  // Stores the number without its fraction: see Format.
  virtual void SetInteger(std::string_view key, double value);

  // The number in a scalar, as GetInteger does it, and -1.0 for a "date". A missing key is added as
  // a "real".
  virtual double GetReal(std::string_view key, double standard);

  // Stores the number as Str prints it, so that GetReal returns the same number.
  virtual void SetReal(std::string_view key, double value);

  // Stores a text as it is, under any key: this one asks for no type, and doesn't touch the report.
  virtual void SetData(std::string_view key, std::string_view value);

  // Stores the date as in "2009-03-07T08:05:09Z"; its fields as they are. Throws
  // NilObjectException for nil.
  virtual void SetDate(std::string_view key, const Ref<Date>& value);

  // The number with at least two digits.
  [[nodiscard]] virtual std::string MakeTwo(std::int64_t n) const;

  // Adds an empty dict under a key; child(key) returns it. A key in use stays as it is, with the
  // report "Child exists: " + key + " already exists".
  virtual void AddChild(std::string_view key);

  // Adds an empty array under a key and returns true; or false, with the report "Array exists: " +
  // key + " already exists", if the key is in use.
  virtual bool AddArray(std::string_view key);

  // These add an element at the end of an array, under the key Str(count()), which indexOf then
  // holds. In an array with gaps, which a file may bring, that key may be in use: its type and text
  // are replaced, and index() finds the node that is there before one that is added. On a dict they
  // leave the report of CheckArray and do nothing else.
  virtual void AppendInteger(std::int64_t value);
  virtual void AppendDict();
  virtual void AppendArray();
  virtual void AppendBoolean(bool value);
  void AppendBoolean(const void* value) = delete;
  virtual void AppendDouble(double value);  // as AppendReal, with the type "double"
  virtual void AppendString(std::string_view value);
  void AppendString(std::nullptr_t) = delete;
  virtual void AppendData(std::string_view value);
  virtual void AppendDate(const Ref<Date>& value);  // on an array nil throws NilObjectException

  // Whether this is an array; if not, with the report name + " is not an array". Clears the report
  // first.
  virtual bool CheckArray() const;

  // Takes an entry out, with all that is below it. A number, or a text that reads as one, is taken
  // for the element of an array, whose followers close up, unless `as_key` is set; anything else,
  // and anything with `as_key`, is taken for a key, and nothing happens if it isn't there. The
  // report is that of CheckArray for a number on a dict, and "Subscript out of range" for one that
  // no element has. Marks in `searched` stay under their keys and numbers, and the cursor where it
  // is. Where a file has repeated a key, the first of its nodes goes; all of them of an element.
  virtual void Remove(const Variant& key, bool as_key);

  // The number of keys.
  [[nodiscard]] virtual std::int64_t count() const;

  // The cursor goes through the keys in their order. Everybody who walks a node shares it:
  //
  //   for (node->MoveFirst(); !node->eof; node->MoveNext()) Use(node->CurrentKey());
  //
  // MoveNext goes on from the last key to the first and sets `eof`, and MovePrevious from the first
  // to the last; only MoveFirst clears it. CurrentKey returns "", sets `eof` and goes to the start
  // if there is no key at the cursor; so on an empty node the loop above runs once, with the key
  // "".
  virtual void MoveNext();
  virtual void MoveFirst();
  virtual void MoveLast();
  [[nodiscard]] virtual std::string CurrentKey();

  // The getters with their defaults: true, no text, the present moment, 0.
  virtual bool GetBoolean(std::string_view key);
  [[nodiscard]] virtual bool Exists(std::string_view key) const;  // whether the key is in `types`
  virtual std::string GetData(std::string_view key);
  virtual Ref<Date> GetDate(std::string_view key);
  virtual std::int64_t GetInteger(std::string_view key);
  virtual double GetReal(std::string_view key);
  virtual std::string GetString(std::string_view key);
  virtual std::string GetValue(std::string_view key);

  // The text with "<" and ">" as "&lt;" and "&gt;", and back. Nothing else is changed.
  [[nodiscard]] virtual std::string BracketsToCode(std::string_view text) const;
  [[nodiscard]] virtual std::string CodeToBrackets(std::string_view text) const;

  // Sets the document's report, or clears it with false and "". With the document's `debug` on, a
  // report is shown as well.
  virtual void SetError(bool flag, const std::string& message) const;

  // Adds to the text on the clipboard what Write writes, with Chr(13) at the end of each line, and
  // with a line "<search/>" behind each key that has a mark in `searched`, "<nosearch/>" behind
  // those without.
  virtual void Dump(std::int64_t depth) const;

  // Colours are stored as a "string" of six hexadecimal digits, two for each of red, green and
  // blue; the fourth channel is not stored and reads as 0. GetColor takes the first two, the two
  // from the third on and the last two characters of any string; what is no hexadecimal number
  // counts as 0. A missing key is added with the default, which is black. Any other type returns
  // Color() and the report "Type Mismatch: " + key + " is a " + type.
  virtual void SetColor(std::string_view key, Color value);
  virtual Color GetColor(std::string_view key);
  virtual Color GetColor(std::string_view key, Color standard);

  // A window's title and rectangle as a record under the key: a dict with the "string"
  // "windowName" and the dict "WindowPos" of the "integer"s "left", "top", "width" and "height".
  // GetWindow applies what is stored to the window, without regard to the screens; a missing record
  // is made from the window first, a missing number is 0. If a scalar is where the record or its
  // "WindowPos" should, nothing is read or stored there, with the report of child(). Both throw
  // NilObjectException for nil.
  virtual void SetWindow(std::string_view key, const Ref<Window>& window);
  virtual void GetWindow(std::string_view key, const Ref<Window>& window);

  // The colour, as SetColor stores it, as a new element of an array.
  virtual void AppendColor(Color value);

  // The same record as a new element of an array. Throws NilObjectException for nil.
  virtual void AppendWindow(const Ref<Window>& window);

  // The rows of a list or menu as a record under the control's name, "." and index: a dict with the
  // "string" "default", which is the control's Text, and the array "elements". A row is a "string",
  // or for a list of several columns an array of them. Set replaces what was under the key.
  //
  // Get adds the stored rows: to the rows that a list has, which should be none, and in place of
  // those of a menu. With `select` it selects the row whose first cell equals the default. A
  // missing record is made from the control first. A row of the other form is read as far as it
  // fits: a string fills the first cell, and of an array a list of one column takes the first. All
  // throw NilObjectException for nil.
  virtual void SetListbox(const Ref<Listbox>& list);
  virtual void SetPopup(const Ref<PopupMenu>& menu);
  virtual void GetListbox(const Ref<Listbox>& list, bool select);
  virtual void GetPopup(const Ref<PopupMenu>& menu, bool select);

  // The same in an array, under the control's key too and not under a number; nil throws
  // NilObjectException. On a dict they leave the report of CheckArray and do nothing else.
  virtual void AppendListbox(const Ref<Listbox>& list);
  virtual void AppendPopup(const Ref<PopupMenu>& menu);

  // An array of strings under the key, in place of what was there: the entries of `list` from
  // `first` to `last`, both included and counted from 0. A `first` that is negative or beyond the
  // end counts as 0, a `last` beyond the end as the end.
  virtual void SetList(std::string_view key, const std::vector<std::string>& list,
                       std::int64_t first, std::int64_t last);
  // Replaces `list` by the stored strings, behind an empty entry unless `base` is 0. A missing key
  // is added as an empty dict and returns none; for a scalar the list stays as it is.
  virtual void GetList(std::string_view key, std::vector<std::string>& list, std::int64_t base);
  // The same range as SetList takes, as a new element of an array.
  virtual void AppendList(const std::vector<std::string>& list, std::int64_t first,
                          std::int64_t last);

  // The one value of a control under its name, without the index: the text of a field or label, the
  // state of a box or button. The control's own state is the default of the getters, so a missing
  // key leaves the control as it is and stores that. All throw NilObjectException for nil.
  virtual void SetEditField(const Ref<EditField>& field);
  virtual void GetEditField(const Ref<EditField>& field);
  virtual void GetCheckbox(const Ref<CheckBox>& box);
  virtual void SetCheckbox(const Ref<CheckBox>& box);
  virtual void SetStaticText(const Ref<StaticText>& text);
  virtual void GetStaticText(const Ref<StaticText>& text);
  virtual void SetRadio(const Ref<RadioButton>& button);
  virtual void GetRadio(const Ref<RadioButton>& button);

  // The place of the node: the names from the root to it, each behind a ":". The walk upwards ends
  // at a node that is named "root", printed as ":root", or has no parent.
  [[nodiscard]] virtual std::string AbsolutePath();

  // Carries an entry to another node, or within this one: a scalar with its type, a container with
  // all that is below it, built anew. An array takes it as its last element, whatever the keys; a
  // dict under `new_key`, or under the same key if that is empty. A container that is already there
  // takes the entries in addition to its own; a scalar that is there is overwritten if it has the
  // same type. With `remove_source` the entry is then removed from here, as Remove(key, false) does
  // it. The cursors of the nodes below the entry are used.
  //
  // An entry of a type without operations of its own, or whose text doesn't read as its type, is
  // carried as it is. The source stays if anything below it was refused, and an entry moved
  // onto itself stays as it is. A container that is merged into one around it leaves out the entry
  // that would be merged into that container itself.
  //
  // Reports, on this node's document: "Destination is nil", "Source does not exist." and
  // "Destination is inside " + key, which change nothing; key + " could not be moved as a whole" if
  // no other report tells why the source stays; and that of Remove. On the document of the node
  // that holds it, key + " is inside the destination" for the entry that is left out. On the
  // destination's that of what refused an entry. A report of an inner entry is cleared by the next
  // one. Moving an empty container leaves "Source does not exist.", though it is moved.
  virtual void Move(std::string_view key, const Ref<plistDict>& destination, bool remove_source,
                    std::string_view new_key);
  // With `remove_source`, and under the same key.
  virtual void Move(std::string_view key, const Ref<plistDict>& destination);
  // Without `remove_source`, and under the same key.
  virtual void Copy(std::string_view key, const Ref<plistDict>& destination);

  // Moves an entry to another key of this node; in an array it becomes the last element. A key in
  // use, and be it the same in another letter case, is refused with "Key " + new_key + " already
  // exists."
  virtual void Rename(std::string_view old_key, std::string_view new_key);

  // The number in hexadecimal, with at least two digits.
  [[nodiscard]] virtual std::string PaddedHex(std::int64_t n) const;

  // Copies all entries of another node into this one, as Copy does it, in the order of its cursor.
  // Throws NilObjectException for nil.
  virtual void AppendDict(const Ref<plistDict>& other);

  // A new document without a file, whose root holds copies of all entries of `source`. The node
  // that this is called on plays no part. Throws NilObjectException for nil.
  [[nodiscard]] virtual Ref<plist> PlistFromPlistDict(const Ref<plistDict>& source) const;

  // Copies all entries of another node into a dict of its name in this one, added if it is missing.
  // Throws NilObjectException for nil.
  virtual void AppendAsNewChild(const Ref<plistDict>& other);

  // As told at MoveNext.
  virtual void MovePrevious();
  // The number, as SetReal stores it, as a new element of an array.
  virtual void AppendReal(double value);

 private:
  void ClearReport() const;
  bool TypeOK(const Entry& entry, std::string_view key) const;
  bool IsDate(const Entry& entry, std::string_view key) const;
  std::string_view TextOf(const Entry& entry, std::string_view key) const;
  void Store(std::string_view key, std::string_view type, std::string_view text);
  bool StartElement();
  void AppendScalar(std::string_view type, std::string_view text);
  Ref<plistDict> AppendContainer(std::string_view type);
  bool AddContainer(std::string_view key, std::string_view type, std::string_view refusal);
  void NewChild(Entry& entry, std::string_view key, bool as_array);

  std::size_t ChildPlace(std::string_view key) const;
  void IndexChildren() const;
  void RemoveChild(std::size_t place);
  void RemoveKey(std::string_view key);
  void RemoveElement(std::int64_t number);
  void MoveElementsDown(std::size_t first);
  void RenumberElement(std::int64_t number);
  void RenameChild(const Entry& entry, const std::string& key);
  bool HasRepeatedNames() const;
  void RemoveAmongRepeated(std::int64_t number, std::int64_t last, bool is_container);

  void BuildPath();

  bool Carry(const std::string& key, plistDict& destination, const std::string& target);
  bool CarryScalar(const std::string& key, plistDict& destination, const std::string& target);
  static Ref<plistDict> MakeContainer(std::string_view type, plistDict& destination,
                                      const std::string& target);

  friend class Reader;
  friend class ScalarWalk;
  friend class TreeText;

  ~plistDict() override;  // nodes live as long as a Ref holds them, and not on the stack
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_PLISTDICT_H
