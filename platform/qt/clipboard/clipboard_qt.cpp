#include "platform/qt/clipboard/clipboard_qt.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <utility>

#include "platform/qt/clipboard/clipboard_formats.h"
#include "platform/qt/clipboard/patience.h"

namespace morvantile {
namespace {

constexpr int kFocusPatienceMilliseconds = 1000;

class OfferedPicture : public QMimeData {
 public:
  explicit OfferedPicture(std::shared_ptr<PictureOffer> offer) : offer_(std::move(offer)) {}

  [[nodiscard]] QStringList formats() const override { return PictureOffer::Formats(); }

 protected:
  [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType /*type*/) const override {
    return offer_->In(format);
  }

 private:
  std::shared_ptr<PictureOffer> offer_;
};

QStringList FormatsOf(const QMimeData& offer) {
  const Patience patience;
  return PictureFormats(offer.formats());
}

QByteArray BytesOf(const QMimeData& offer, const QString& format) {
  const Patience patience;
  return offer.data(format);
}

// Wayland shows the clipboard only to the window with the focus, and at the start there is none: a
// tiny one gets the focus for as long as it takes.
class FocusOfOurOwn {
 public:
  FocusOfOurOwn() : window_(nullptr, Qt::FramelessWindowHint) {
    if (QGuiApplication::platformName() != "wayland" || QGuiApplication::focusWindow() != nullptr) {
      return;
    }
    window_.setAttribute(Qt::WA_TranslucentBackground);
    window_.resize(1, 1);
    window_.show();
    QEventLoop loop;
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &loop, &QEventLoop::quit);
    QTimer::singleShot(kFocusPatienceMilliseconds, &loop, &QEventLoop::quit);
    loop.exec();
  }

 private:
  QWidget window_;
};

}  // namespace

QtClipboard::QtClipboard() {
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged,
                   QGuiApplication::instance(), [this] { Forget(); });
}

Ref<Picture> QtClipboard::ReadOffered() {
  const FocusOfOurOwn focus;
  const QMimeData* offer = QGuiApplication::clipboard()->mimeData();
  if (offer == nullptr) return nullptr;
  for (const QString& format : FormatsOf(*offer)) {
    if (Ref<Picture> picture = PictureFrom(format, BytesOf(*offer, format))) return picture;
  }
  return nullptr;
}

void QtClipboard::WritePicture(const Ref<Picture>& picture) {
  offer_ = std::make_shared<PictureOffer>(picture);
  QGuiApplication::clipboard()->setMimeData(new OfferedPicture(offer_));
}

std::string QtClipboard::ReadText() { return QGuiApplication::clipboard()->text().toStdString(); }

void QtClipboard::WriteText(const std::string& text) {
  offer_ = nullptr;
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

bool QtClipboard::Owned() { return QGuiApplication::clipboard()->ownsClipboard(); }

void QtClipboard::ServeUntilTakenOver() {
  if (!Owned()) return;
  if (offer_ != nullptr) offer_->Encode();
  QEventLoop loop;
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &loop, [this, &loop] {
    if (!Owned()) loop.quit();
  });
  loop.exec();
}

}  // namespace morvantile
