#include "platform/qt/clipboard/picture_offer.h"

#include <malloc.h>
#include <sys/resource.h>

#include <new>
#include <utility>

#include "platform/qt/clipboard/picture_image.h"
#include "platform/qt/clipboard/png_file.h"

namespace morvantile {
namespace {

// A third of what others get on a busy machine: programs give up a paste after some seconds.
constexpr int kLowPriority = 5;

QByteArray EncodedAtLeisure(Ref<Picture> picture) {
  setpriority(PRIO_PROCESS, 0, kLowPriority);  // of this thread alone
  QByteArray png = EncodePng(std::move(picture));
  malloc_trim(0);
  return png;
}

}  // namespace

void PictureOffer::Encode() {
  if (png_.valid()) return;
  // Where the system refuses a thread, the first to ask does the work.
  png_ = std::async(
      std::launch::async | std::launch::deferred,
      [picture = std::move(picture_)]() mutable { return EncodedAtLeisure(std::move(picture)); });
}

QByteArray PictureOffer::In(const QString& format) {
  if (!Formats().contains(format)) return {};
  try {
    Encode();
    if (format == "image/png") return png_.get();
    const Ref<Picture> picture = DecodePicture(png_.get());
    return picture == nullptr ? QByteArray() : EncodeBmp(picture);
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace morvantile
