#include "platform/ui/host.h"

#include "platform/ui/headless_host.h"

namespace morvantile {
namespace {

Host* installed = nullptr;

}  // namespace

Host& CurrentHost() {
  if (installed != nullptr) return *installed;
  static HeadlessHost headless;
  return headless;
}

void InstallHost(Host* host) { installed = host; }

}  // namespace morvantile
