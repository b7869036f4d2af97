// Time that passes.

#ifndef MORVANTILE_PLATFORM_CORE_TIME_H
#define MORVANTILE_PLATFORM_CORE_TIME_H

namespace morvantile {

// A time in microseconds, from some moment on. It never goes back, whatever happens to the clock.
double Microseconds();

// Sleeps for `seconds`; not at all if that is 0, negative or not a number, and no more than a day.
void Delay(double seconds);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_TIME_H
