// What the library offers to other programs.

#ifndef MORVANTILE_PLATFORM_CORE_EXPORT_H
#define MORVANTILE_PLATFORM_CORE_EXPORT_H

// Marks what installed headers declare. Everything else is hidden: the shared library exports the
// marked classes and functions and nothing more, also in programs that are built with hidden
// visibility themselves.
#define MORVANTILE_API __attribute__((visibility("default")))

#endif  // MORVANTILE_PLATFORM_CORE_EXPORT_H
