// The artwork that comes with the program.

#ifndef MORVANTILE_PLATFORM_UI_RESOURCE_PICTURE_H
#define MORVANTILE_PLATFORM_UI_RESOURCE_PICTURE_H

#include <string>
#include <utility>

#include "platform/core/ref.h"

namespace morvantile {

// A picture of the application's resources, known by its name. The host that shows it chooses the
// density that fits the screen; a name that it doesn't know shows nothing.
class ResourcePicture : public Object {
 public:
  explicit ResourcePicture(std::string name) : name_(std::move(name)) {}
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_UI_RESOURCE_PICTURE_H
