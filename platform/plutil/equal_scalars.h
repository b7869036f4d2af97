// Finding equal scalars.

#ifndef MORVANTILE_PLATFORM_PLUTIL_EQUAL_SCALARS_H
#define MORVANTILE_PLATFORM_PLUTIL_EQUAL_SCALARS_H

#include <vector>

#include "platform/plutil/document.h"

namespace morvantile::plutil {

// For each object of `document` the index of the first scalar that equals it, which may be that
// object itself; for a container its own index. Scalars are equal if they are of one kind and have
// the same bits or bytes.
std::vector<ObjectIndex> FirstEquals(const Document& document);

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_EQUAL_SCALARS_H
