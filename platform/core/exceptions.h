// The exceptions of the system. Nothing else is thrown by its own code: failures that a caller can
// expect are reported through a document, or by an empty result.

#ifndef MORVANTILE_PLATFORM_CORE_EXCEPTIONS_H
#define MORVANTILE_PLATFORM_CORE_EXCEPTIONS_H

#include <stdexcept>
#include <string>

#include "platform/core/export.h"

namespace morvantile {

class RuntimeException : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A nil reference was used as an object.
class MORVANTILE_API NilObjectException : public RuntimeException {
 public:
  NilObjectException() : RuntimeException("use of a nil object") {}
};

// A Dictionary was asked for the value of a key that it does not hold.
class MORVANTILE_API KeyNotFoundException : public RuntimeException {
 public:
  explicit KeyNotFoundException(const std::string& key)
      : RuntimeException("key not found: " + key) {}
};

// A position outside an array, a Dictionary or a text.
class MORVANTILE_API OutOfBoundsException : public RuntimeException {
 public:
  OutOfBoundsException() : RuntimeException("position out of bounds") {}
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_EXCEPTIONS_H
