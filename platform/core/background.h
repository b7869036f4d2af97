// Turns for other work during long loops.

#ifndef MORVANTILE_PLATFORM_CORE_BACKGROUND_H
#define MORVANTILE_PLATFORM_CORE_BACKGROUND_H

#include "platform/core/export.h"

namespace morvantile {

// What RuntimeBackgroundTask calls, or null, as it is at first. A host that has work of its own to
// do puts it here; it runs on the thread of the loop and must not throw.
using BackgroundTask = void (*)();
MORVANTILE_API extern BackgroundTask background_task;

// Lets other work run. Called in each pass of the loops that read, write and dump a tree; costs a
// load and a branch where no host has work.
inline void RuntimeBackgroundTask() {
  if (background_task != nullptr) [[unlikely]] {
    background_task();
  }
}

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_BACKGROUND_H
