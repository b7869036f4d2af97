#include "platform/core/background.h"

namespace morvantile {

BackgroundTask background_task = nullptr;

}  // namespace morvantile
