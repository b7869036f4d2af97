#include "platform/core/time.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace morvantile {

double Microseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::micro>(now).count();
}

void Delay(double seconds) {
  constexpr double kDay = 24.0 * 60 * 60;
  if (!(seconds > 0)) return;
  std::this_thread::sleep_for(std::chrono::duration<double>(std::min(seconds, kDay)));
}

}  // namespace morvantile
