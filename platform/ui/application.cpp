#include "platform/ui/application.h"

#include "platform/ui/host.h"

namespace morvantile {

std::string Application::Version() { return MORVANTILE_VERSION; }

void Quit(int status) { CurrentHost().Quit(status); }

}  // namespace morvantile
