#include "platform/qt/clipboard/clipboard_wayland.h"

#include <fcntl.h>
#include <unistd.h>
#include <wayland-client.h>

#include <QFile>
#include <QStringList>
#include <array>
#include <csignal>
#include <cstring>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "ext-data-control-v1-client.h"
#include "platform/core/owned_descriptor.h"
#include "platform/qt/clipboard/clipboard_formats.h"
#include "platform/qt/clipboard/patience.h"
#include "platform/qt/clipboard/picture_offer.h"

namespace morvantile {
namespace {

constexpr const char* kText = "text/plain;charset=utf-8";

// The older form of the protocol differs in its name only, as far as it is used here.
wl_interface OlderManager() {
  wl_interface older = ext_data_control_manager_v1_interface;
  older.name = "zwlr_data_control_manager_v1";
  return older;
}

// Writes the bytes in a thread, so that a reader who is slow holds up nobody else. One who is gone,
// or for whom the system has no thread, gets no more.
void WriteToReader(const QByteArray& bytes, OwnedDescriptor to) {
  const auto write = [bytes](const OwnedDescriptor& descriptor) {
    fcntl(descriptor.get(), F_SETFL, fcntl(descriptor.get(), F_GETFL) & ~O_NONBLOCK);
    QFile file;
    if (file.open(descriptor.get(), QIODevice::WriteOnly | QIODevice::Unbuffered))
      file.write(bytes);
  };
  try {
    std::thread(write, std::move(to)).detach();
  } catch (const std::system_error&) {
    return;
  }
}

class DataControlClipboard : public SystemClipboard {
 public:
  // Null pointers for what there isn't make a clipboard that isn't Ready.
  explicit DataControlClipboard(wl_display* display) : display_(display) {
    signal(SIGPIPE, SIG_IGN);
    wl_registry_add_listener(wl_display_get_registry(display_), &kRegistryListener, this);
    wl_display_roundtrip(display_);
    if (manager_ == nullptr || seat_ == nullptr) return;
    device_ = ext_data_control_manager_v1_get_data_device(manager_, seat_);
    ext_data_control_device_v1_add_listener(device_, &kDeviceListener, this);
    wl_display_roundtrip(display_);
  }
  ~DataControlClipboard() override { wl_display_disconnect(display_); }
  DataControlClipboard(const DataControlClipboard&) = delete;
  DataControlClipboard& operator=(const DataControlClipboard&) = delete;

  [[nodiscard]] bool Ready() const { return device_ != nullptr; }

  void WritePicture(const Ref<Picture>& picture) override {
    offered_ = std::make_shared<PictureOffer>(picture);
    Take(PictureOffer::Formats());
  }

  std::string ReadText() override {
    wl_display_roundtrip(display_);
    if (!formats_.contains(kText)) return "";
    return Receive(kText).toStdString();
  }

  void WriteText(const std::string& text) override {
    offered_ = nullptr;
    text_ = QByteArray::fromStdString(text);
    Take({kText, "UTF8_STRING", "text/plain"});
  }

  bool Owned() override {
    wl_display_roundtrip(display_);
    return source_ != nullptr;
  }

  void ServeUntilTakenOver() override {
    if (offered_ != nullptr) offered_->Encode();
    while (source_ != nullptr && wl_display_dispatch(display_) >= 0) {
    }
  }

 private:
  // Reading

  void HearOfChanges() override { wl_display_roundtrip(display_); }

  Ref<Picture> ReadOffered() override {
    for (const QString& format : PictureFormats(formats_)) {
      if (Ref<Picture> picture = PictureFrom(format, Receive(format))) return picture;
    }
    return nullptr;
  }

  QByteArray Receive(const QString& format) {
    std::array<int, 2> ends{};
    if (offer_ == nullptr || pipe2(ends.data(), O_CLOEXEC) != 0) return {};
    const OwnedDescriptor from(ends[0]);
    OwnedDescriptor to(ends[1]);
    ext_data_control_offer_v1_receive(offer_, format.toUtf8().constData(), to.get());
    wl_display_flush(display_);
    to.Close();
    QFile pipe;
    pipe.open(from.get(), QIODevice::ReadOnly);
    return PatientReader().ReadAll(pipe);
  }

  void TakeOffer(ext_data_control_offer_v1* offer) {
    if (offer_ != nullptr) ext_data_control_offer_v1_destroy(offer_);
    offer_ = offer;
    formats_ = offer == nullptr ? QStringList() : std::exchange(announced_, {});
    Forget();
  }

  // Writing

  void Take(const QStringList& formats) {
    ext_data_control_source_v1* source = ext_data_control_manager_v1_create_data_source(manager_);
    ext_data_control_source_v1_add_listener(source, &kSourceListener, this);
    for (const QString& format : formats) {
      ext_data_control_source_v1_offer(source, format.toUtf8().constData());
    }
    ext_data_control_device_v1_set_selection(device_, source);
    source_ = source;
    wl_display_roundtrip(display_);
  }

  QByteArray In(const QString& format) {
    return offered_ == nullptr ? text_ : offered_->In(format);
  }

  void Lost(ext_data_control_source_v1* source) {
    ext_data_control_source_v1_destroy(source);
    if (source == source_) source_ = nullptr;
  }

  wl_display* display_;
  wl_seat* seat_ = nullptr;
  ext_data_control_manager_v1* manager_ = nullptr;
  ext_data_control_device_v1* device_ = nullptr;
  ext_data_control_offer_v1* offer_ = nullptr;
  ext_data_control_source_v1* source_ = nullptr;
  QStringList announced_;
  QStringList formats_;
  std::shared_ptr<PictureOffer> offered_;  // or else the text
  QByteArray text_;

  // What the compositor says

  static DataControlClipboard& Self(void* data) {
    return *static_cast<DataControlClipboard*>(data);
  }

  void Bind(wl_registry* registry, std::uint32_t name, const char* interface) {
    static const wl_interface kOlder = OlderManager();
    if (std::strcmp(interface, wl_seat_interface.name) == 0 && seat_ == nullptr) {
      seat_ = static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
      return;
    }
    const bool newer = std::strcmp(interface, ext_data_control_manager_v1_interface.name) == 0;
    const bool older = std::strcmp(interface, kOlder.name) == 0;
    if (!newer && (!older || manager_ != nullptr)) return;
    manager_ = static_cast<ext_data_control_manager_v1*>(wl_registry_bind(
        registry, name, newer ? &ext_data_control_manager_v1_interface : &kOlder, 1));
  }

  static const wl_registry_listener kRegistryListener;
  static const ext_data_control_offer_v1_listener kOfferListener;
  static const ext_data_control_device_v1_listener kDeviceListener;
  static const ext_data_control_source_v1_listener kSourceListener;
};

const wl_registry_listener DataControlClipboard::kRegistryListener = {
    [](void* self, wl_registry* registry, std::uint32_t name, const char* interface,
       std::uint32_t) { Self(self).Bind(registry, name, interface); },
    [](void*, wl_registry*, std::uint32_t) {}};

const ext_data_control_offer_v1_listener DataControlClipboard::kOfferListener = {
    [](void* self, ext_data_control_offer_v1*, const char* format) {
      Self(self).announced_ << QString::fromUtf8(format);
    }};

const ext_data_control_device_v1_listener DataControlClipboard::kDeviceListener = {
    [](void* self, ext_data_control_device_v1*, ext_data_control_offer_v1* offer) {
      Self(self).announced_.clear();
      ext_data_control_offer_v1_add_listener(offer, &kOfferListener, self);
    },
    [](void* self, ext_data_control_device_v1*, ext_data_control_offer_v1* offer) {
      Self(self).TakeOffer(offer);
    },
    [](void*, ext_data_control_device_v1*) {},
    [](void*, ext_data_control_device_v1*, ext_data_control_offer_v1* offer) {
      if (offer != nullptr) ext_data_control_offer_v1_destroy(offer);
    }};

const ext_data_control_source_v1_listener DataControlClipboard::kSourceListener = {
    [](void* self, ext_data_control_source_v1*, const char* format, int descriptor) {
      WriteToReader(Self(self).In(QString::fromUtf8(format)), OwnedDescriptor(descriptor));
    },
    [](void* self, ext_data_control_source_v1* source) { Self(self).Lost(source); }};

}  // namespace

std::unique_ptr<SystemClipboard> OpenDataControlClipboard() {
  wl_display* display = wl_display_connect(nullptr);
  if (display == nullptr) return nullptr;
  auto clipboard = std::make_unique<DataControlClipboard>(display);
  if (!clipboard->Ready()) return nullptr;
  return clipboard;
}

}  // namespace morvantile
