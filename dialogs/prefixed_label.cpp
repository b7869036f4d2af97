#include "dialogs/prefixed_label.h"

#include "platform/text/text.h"

namespace morvantile {

void PrefixedLabel::Event_Open() {
  Prefix = Text();
  Raise(Open, *this);
}

void PrefixedLabel::SetSuffix(const std::string& suffix) { SetText(Prefix + suffix); }

std::string PrefixedLabel::Suffix() const { return Right(Text(), Len(Text()) - Len(Prefix)); }

}  // namespace morvantile
