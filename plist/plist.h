// One property-list document.

#ifndef MORVANTILE_PLIST_PLIST_H
#define MORVANTILE_PLIST_PLIST_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/export.h"
#include "platform/core/ref.h"
#include "platform/files/folder_item.h"
#include "platform/files/text_input_stream.h"
#include "plist/plistDict.h"

namespace morvantile {

// A document: a tree of nodes under `root`, the lines in front of it, the file that it came from
// and the one that it goes to, and the report of the operation that failed last.
//
// Files are in the XML form. One in binary form, which begins with "bplist" in any letter case, is
// copied to a file beside it, named as it and " temp.plist"; the program `plutil` turns the copy
// into XML, and from then on the document works on the copy. Save puts it back over the file, in
// binary form. Where the file's folder takes no copy, it is made in a temporary folder, which goes
// with the document.
//
// Nothing is shown, and nothing but wrong calls throws: a failure leaves `error` and
// `errorMessage`. Neither Load nor Save clears them.
class MORVANTILE_API plist : public Object {
 public:
  // Loads `file`; `flag` plays no part.
  plist(const Ref<FolderItem>& file, bool flag);
  // Loads `file`, or `template_file` where there is no `file` yet: see Load.
  plist(const Ref<FolderItem>& file, const Ref<FolderItem>& template_file);
  // A document from the bytes of a file, XML or binary. Its savePath is a temporary file that is
  // gone; Save creates it anew. Throws NilObjectException where no temporary file can be made.
  explicit plist(std::string_view text);
  explicit plist(const char* text) = delete;  // is it a path? then New<FolderItem>(path)

  // The topmost node. It is never nil unless a program sets it so; operations on the tree then
  // throw NilObjectException.
  Ref<plistDict> root;

  // The last report: whether there is one, and its text. Operations of nodes that check something
  // clear it first, so it is to be read right after the call that matters.
  bool error = false;
  std::string errorMessage;

  // The file that Save writes; nil for a document without one.
  Ref<FolderItem> savePath;
  // The lines of the file up to and including <dict>; the first is at 1, behind a placeholder.
  std::vector<std::string> headers = {""};
  // Whether a file in binary form has been read; stays set. And that file, if it was the last one.
  bool isBinary = false;
  Ref<FolderItem> org;

  // Whether every report of a node is shown in a message box as well.
  bool debug = false;

  // What Find and FindNext delivered last: the node, the key, its text and its type.
  Ref<plistDict> foundDict;
  std::string foundKey;
  std::string foundValue;
  std::string foundType;
  bool brk = false;          // not used
  bool findingNext = false;  // not used
  // The text of the running search.
  std::string lastSearch;

  // Writes the document to savePath, in binary form if it was read so or `make_binary` is set, and
  // with `cleanup` does Cleanup after that. Throws NilObjectException without a savePath.
  //
  // A link stays a link, and the file that it leads to keeps its permissions, and its owner and
  // group where the system allows that; so it is for a binary file that is put back.
  //
  // If the file can't be opened the report is "Could not open file for saving", and if it can't be
  // written in full, or a binary file not be put back, "Could not save file"; the files are then as
  // they were. The latter is also the report, and nothing is written, as long as the tree holds
  // less than the file that was loaded: it exists and could not be opened, not be read to its end,
  // or not be converted. PlistFromPlistDict makes a document of what is there, which can be saved.
  // If the converter fails on the way back, the file is written as text. `make_binary` doesn't make
  // the document one that is binary: the next Save() writes text.
  virtual void Save(bool cleanup, bool make_binary);

  // Replaces the tree by what is in `file`, and sets savePath to it. Where there is no `file`, the
  // text of `template_file` is taken, and savePath is `file` all the same. A document that is not
  // read gets the lines of MakeHeaders:
  //
  //   file nil                 an empty root, without a name and without a document to report to
  //   neither file exists      an empty root; the report is the path and " does not exist"
  //   the file can't be read   the same, with " could not be opened"
  //   no line is just <dict>   the root is empty, its report goes nowhere, and `headers` holds all
  //                            lines; the report is "Not a plist file"
  //   a binary file that the   the same, without the lines
  //   converter refuses
  //   reading fails half-way   what is in front of it has been read; the report is the path and
  //                            " could not be read to its end"
  //
  // `headers` is not cleared, so a second Load adds to it. A `template_file` of nil is allowed only
  // if `file` exists. One in binary form is only read: Save creates `file`, in binary form.
  virtual void Load(const Ref<FolderItem>& file, const Ref<FolderItem>& template_file);

  // Puts the text of the document on the clipboard for debugging, as the file would be, but with
  // Chr(13) at the end of each line, and behind each key of a dict whether the search has a mark
  // for it.
  virtual void Dump();

  // Deletes the copy of a document from a binary file (savePath); nothing for another. A later Save
  // makes it anew.
  virtual void Cleanup();

  // Save(false, false).
  virtual void Save();

  // Starts a search and delivers the first scalar in whose text `text` occurs, in any letter case,
  // into foundDict and the others; false if there is none, and these are empty then. An empty text
  // occurs in every scalar. Scalars come in the order of the keys, those of a node at the place of
  // its key.
  virtual bool Find(std::string_view text);

  // Delivers the next one; false, with the results as they were, if there is none. With another
  // text than before it begins anew. A search keeps no position but a mark at each scalar that it
  // has delivered: setting the scalar again makes it deliverable again, and each call walks from
  // the root. Uses the cursors of all nodes, and clears the report when it meets a scalar.
  virtual bool FindNext(std::string_view text);

  // Takes the marks of all scalars of a node and below it away. Throws NilObjectException for nil.
  virtual void ClearSearch(const Ref<plistDict>& node);

  // Load(file, template_file).
  virtual void LoadWithOptionalTemplate(const Ref<FolderItem>& file,
                                        const Ref<FolderItem>& template_file);

  // Adds the four lines that begin a new file to `headers`.
  virtual void MakeHeaders();

  // The bytes that Save() writes, through a temporary file; of a document from a binary file that
  // is the binary form, and the file is written as well. If there is a report then, it is shown in
  // a message box. "" if no temporary file can be made.
  [[nodiscard]] virtual std::string asString();

  // A new document, as plist(text) makes it. The object that this is called on plays no part.
  [[nodiscard]] virtual Ref<plist> FromString(std::string_view text) const;

  // asString() encrypted with the Blowfish cipher; plist/cipher.h tells the layout and how
  // to decrypt it. A key of no bytes or of more than 56 returns "" and the report "Could not
  // encrypt".
  [[nodiscard]] virtual std::string Encrypt(std::string_view key);

 protected:
  ~plist() override = default;  // as nodes, documents are not on the stack

  // Delivers the next scalar of a node or below it that holds `text`: in its text if `mode` is
  // "valueSearch", in its key if it is "keySearch"; another mode finds nothing.
  bool ReadStructure(const Ref<plistDict>& node, std::string_view text, std::string_view mode);

 private:
  void LoadFrom(const Ref<FolderItem>& file, const Ref<FolderItem>& template_file);
  void MakeEmpty(const std::string& report);
  Ref<TextInputStream> OpenConverted(const Ref<FolderItem>& file, const Ref<FolderItem>& source);
  void ReadHeaders(TextInputStream& stream, std::string line);
  bool WriteText();
  bool ConvertToBinary();
  void Report(const std::string& message);
  static void YieldProcessorTIme(std::int64_t interval_ms, std::int64_t delay_ms,
                                 std::int64_t& last_tick);

  bool may_lose_ = false;  // The tree holds less than the file that Save would replace.
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_PLIST_H
