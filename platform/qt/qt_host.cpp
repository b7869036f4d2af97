#include "platform/qt/qt_host.h"

#include <malloc.h>
#include <unistd.h>

#include <QDesktopServices>
#include <QIcon>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <cstdio>
#include <utility>

#include "platform/core/exceptions.h"
#include "platform/qt/active_window.h"
#include "platform/qt/clipboard/clipboard_qt.h"
#include "platform/qt/clipboard/patience.h"
#include "platform/qt/desktop_choice.h"
#include "platform/qt/guarded_application.h"
#include "platform/qt/theme.h"
#include "platform/qt/translations.h"
#include "platform/qt/widgets/accessible.h"
#include "platform/qt/widgets/placement.h"
#include "platform/qt/widgets/window_widget.h"
#include "platform/ui/application.h"

namespace morvantile {
namespace {

// Returns free memory to the system: now, and from now on whenever a large block is freed.
void GiveMemoryBack() {
  constexpr int kLargeBlock = 1 << 18;
  mallopt(M_MMAP_THRESHOLD, kLargeBlock);
  malloc_trim(0);
}

// The toolkit's messages mean nothing to the user; only what ends the program is printed, in one
// line.
void SayOnlyWhatIsFatal(QtMsgType type, const QMessageLogContext& /*context*/,
                        const QString& message) {
  if (type != QtFatalMsg) return;
  const QByteArray line = message.section('\n', 0, 0).toLocal8Bit();
  std::fprintf(stderr, "morvantile: %s\n", line.constData());
  _exit(1);
}

}  // namespace

QtHost::QtHost(int argc, char** argv, StayBehind& stay_behind, SingleInstance& instance)
    : stay_behind_(stay_behind), instance_(instance) {
  BeginPatienceWithDesktop();
  std::unique_ptr<SystemClipboard> clipboard = ChooseDesktop();
  qInstallMessageHandler(SayOnlyWhatIsFatal);
  QGuiApplication::setDesktopFileName("morvantile");
  QCoreApplication::setApplicationName("Morvantile");
  static int argument_count = argc;
  application_ = std::make_unique<GuardedApplication>(argument_count, argv);
  clipboard_ = clipboard ? std::move(clipboard) : std::make_unique<QtClipboard>();
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWheelScrollLines(1);  // a notch of the mouse wheel is a step of the slider
  QApplication::setWindowIcon(QIcon(":/morvantile.png"));
  FollowDesktopTheme();
  InstallAccessibleWidgets();
  LoadTranslations(QApplication::applicationDirPath() + "/../share/morvantile/translations",
                   QLocale().uiLanguages());
  // Rectangles, slider and segments are where the layout puts them, in every language; each text
  // runs in the direction of its own letters.
  QApplication::setLayoutDirection(Qt::LeftToRight);
  EndPatienceWithDesktop();
}

QtHost::~QtHost() { instance_.End(); }

int QtHost::Run(Application& application) {
  BeginPatienceWithDesktop();
  QTimer::singleShot(0, application_.get(), [&application] {
    EndPatienceWithDesktop();
    application.Event_Open();
  });
  const int status = QApplication::exec();
  application_->RethrowEscaped();
  application.Event_Close();
  instance_.End();
  if (!clipboard_->Owned()) return status;

  clipboard_->Forget();
  GiveMemoryBack();
  stay_behind_.LetGo(status);
  clipboard_->ServeUntilTakenOver();
  return status;
}

void QtHost::Quit(int status) { QApplication::exit(status); }

void QtHost::ShowModal(const Ref<Window>& window) {
  WindowWidget widget(window, QApplication::activeModalWidget());
  widget.show();
  widget.raise();
  widget.activateWindow();
  instance_.OnFurtherStart([this] {
    QMetaObject::invokeMethod(
        application_.get(), [this] { ShowToFurtherStarts(); }, Qt::QueuedConnection);
  });
  widget.exec();
  application_->RethrowEscaped();
}

// Without a window the run is about to end, and its end is the answer.
void QtHost::ShowToFurtherStarts() {
  QWidget* shown = QApplication::activeModalWidget();
  if (shown == nullptr) return;
  instance_.AnswerAll([shown](const std::string& token) { ActivateWindow(*shown, token); });
}

Ref<Picture> QtHost::ClipboardPicture() { return clipboard_->ReadPicture(); }

void QtHost::SetClipboardPicture(const Ref<Picture>& picture) { clipboard_->WritePicture(picture); }

std::string QtHost::ClipboardText() { return clipboard_->ReadText(); }

void QtHost::SetClipboardText(const std::string& text) { clipboard_->WriteText(text); }

std::vector<ScreenGeometry> QtHost::Screens() {
  std::vector<ScreenGeometry> screens;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QSize whole = screen->size();
    const QRect free = screen->availableGeometry().translated(-OriginOfScreens());
    screens.push_back(
        {whole.width(), whole.height(), free.x(), free.y(), free.width(), free.height()});
  }
  return screens;
}

void QtHost::ShowMessage(const std::string& text) {
  QMessageBox::information(QApplication::activeModalWidget(),
                           QApplication::applicationDisplayName(), QString::fromStdString(text));
}

void QtHost::OpenAddress(const std::string& address) {
  QDesktopServices::openUrl(QUrl::fromUserInput(QString::fromStdString(address)));
}

std::string QtHost::Translate(const std::string& text) {
  return QCoreApplication::translate("Morvantile", text.c_str()).toStdString();
}

}  // namespace morvantile
