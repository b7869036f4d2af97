// Reading a tree from the text of a property list.

#ifndef MORVANTILE_PLIST_XML_READER_H
#define MORVANTILE_PLIST_XML_READER_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "platform/files/text_input_stream.h"
#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {

// Fills a node from the lines of a stream. It is a scanner of lines and not an XML parser: it knows
// the layout that the writer produces, one key or one element on a line, and treats everything else
// by a few rules. plistDict::Load describes what comes out.
//
// A line is cut into fields in front of each opening tag that directly follows a ">". Each field is
// handled by the first of these that fits, in StepField:
//
//   begins with "<key>"             ReadKey      the key of what follows
//   is the end tag of the node      nothing      the node ends if it was the line's last field
//   anything, while a value is open Continue     more of the value, or its end
//   holds a ">"                     ReadTag      a boolean, a closing tag, or an opening tag
//   anything else                   nothing
//
// Background turns may change the tree meanwhile: nothing in it is referred to from one turn to the
// next but the nodes that are being read, which the reader holds.
//
// A "dict" or "array" that is opened gets an activation of its own, which reads on from the next
// line of the stream to its end tag. Fields of the line that opened it wait for its end.
class Reader {
 public:
  // The stream must outlive the reader.
  explicit Reader(TextInputStream& stream) : stream_(stream) {}

  // Reads the body of `root`, up to its end tag or the end of the stream.
  void Read(plistDict& root);

 private:
  // The reading of one node.
  struct Activation {
    // Begins the reading of another node. What was collected for the one before is dropped, its
    // memory kept.
    void Begin(plistDict& read);

    plistDict* node = nullptr;
    Ref<plistDict> held;  // the same: a background turn may take it out of its tree
    std::string_view end_tag;
    std::string key;           // what the next value or node goes under
    TypeWord type;             // the name of the element opened last
    std::string value;         // the text collected for a value
    bool in_value = false;     // a value is open across lines
    std::string tag;           // what was between the "<" and ">" that opened it
    bool self_closed = false;  // the opening tag read last ended in "/"

    bool has_fields = false;  // of the current line some are left
    std::string_view fields;  // these, in the stream or in kept_fields
    std::string kept_fields;
    bool has_ended = false;
  };

  void Enter(plistDict& node);
  void Leave();
  void ReadLine(Activation& in);
  static bool ReadUsualLine(Activation& in, std::string_view line);
  void ReadField(Activation& in);
  static plistDict* StepField(Activation& in, std::string_view& line, std::size_t bracket);
  static void ReadKey(Activation& in, std::string_view& line, std::size_t length);
  static void Continue(Activation& in, std::string_view& line);
  static plistDict* ReadTag(Activation& in, std::string_view& line, std::size_t bracket);
  static void ReadBoolean(Activation& in, std::string_view word);
  static void CloseValue(Activation& in);
  static void OpenElement(Activation& in, std::string_view tag, std::string_view& line);
  static void OpenValue(Activation& in, std::string_view tag, std::string_view line);
  static plistDict* OpenChild(Activation& in, std::string_view& line);
  static void StoreValue(Activation& in, Entry& entry);

  TextInputStream& stream_;
  // The innermost is the last of `depth_`; those behind are there to be used again.
  std::deque<Activation> activations_;
  std::size_t depth_ = 0;
  Activation* innermost_ = nullptr;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_XML_READER_H
