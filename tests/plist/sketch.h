// Trees for tests, and a short notation to compare them as a whole.

#ifndef MORVANTILE_TESTS_PLIST_SKETCH_H
#define MORVANTILE_TESTS_PLIST_SKETCH_H

#include <string>

#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {

// An empty document whose root reports to it.
Ref<plist> NewDocument();

// The entries of a node in their order, with their keys, as in
//   {a: string "x", sub: {}, list: [0: integer "5"]}
// A container whose node is missing or misnamed, and a scalar without a text, show a "!".
std::string Sketch(plistDict& node);

// A document from the lines of a root's body; the last one need not end in a line end.
Ref<plist> Read(const std::string& body);

// The lines that the document writes between those of its root.
std::string Written(const Ref<plist>& document);

// The text of the report on a document, "" for none.
std::string Report(const Ref<plist>& document);

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_PLIST_SKETCH_H
