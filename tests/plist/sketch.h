// Trees for tests, in a short notation:
//
//   {a: 'x', sub: {}, list: [integer '5', {}], odd: date !}
//
// A scalar has its type, unless that is "string", and its text; an element has its key if that is
// not its position. A container whose node is missing or misnamed, and a scalar without a text,
// show a "!".

#ifndef MORVANTILE_TESTS_PLIST_SKETCH_H
#define MORVANTILE_TESTS_PLIST_SKETCH_H

#include <string>
#include <string_view>

#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {

// An empty document whose root reports to it.
Ref<plist> NewDocument();

// The entries of a node in their order.
std::string Sketch(plistDict& node);

// A document whose root is as sketched, without marks; behind the sketch there may be a report.
Ref<plist> Tree(std::string_view sketch);

// The same text with a "|" for each line end, and the other way round.
std::string OnOneLine(const std::string& text);
std::string Lines(const std::string& text);

// A document from the lines of a root's body, on one line.
Ref<plist> Read(const std::string& body);

// The lines that the document writes between those of its root, on one line.
std::string Written(const Ref<plist>& document);

// The text of the report on a document, "" for none.
std::string Report(const Ref<plist>& document);

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_PLIST_SKETCH_H
