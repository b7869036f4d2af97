#ifndef MORVANTILE_TESTS_INSTALLED_HOST_H
#define MORVANTILE_TESTS_INSTALLED_HOST_H

#include "platform/ui/headless_host.h"

namespace morvantile {

// The host of the program for as long as it lives.
struct InstalledHost : HeadlessHost {
  InstalledHost() { InstallHost(this); }
  ~InstalledHost() override { InstallHost(nullptr); }
};

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_INSTALLED_HOST_H
