#include "platform/core/time.h"

namespace morvantile {

double Microseconds() { return 0; }
void Delay(double /*seconds*/) {}

}  // namespace morvantile
