#ifndef MORVANTILE_DIALOGS_PREFIXED_LABEL_H
#define MORVANTILE_DIALOGS_PREFIXED_LABEL_H

#include <functional>
#include <string>

#include "platform/ui/controls/label.h"

namespace morvantile {

// A label with a fixed beginning, which is its text at opening, and an end that changes, such as
// "New Size: " followed by a size.
class PrefixedLabel : public Label {
 public:
  // The fixed beginning; empty until the label has opened.
  std::string Prefix;

  // Raised at the end of the label's opening, with Prefix in place.
  std::function<void(PrefixedLabel&)> Open;

  void Event_Open() override;

  // Makes the text the prefix followed by `suffix`. A suffix set before the label has opened
  // becomes part of the prefix.
  virtual void SetSuffix(const std::string& suffix);
  // What the text has beyond the length of the prefix, in characters; the text isn't tested to
  // begin with it.
  virtual std::string Suffix() const;
};

}  // namespace morvantile

#endif  // MORVANTILE_DIALOGS_PREFIXED_LABEL_H
