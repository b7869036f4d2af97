#include "platform/qt/theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPalette>
#include <QStyleFactory>

namespace morvantile {
namespace {

constexpr int kPatienceMilliseconds = 200;
constexpr uint kPreferDark = 1;

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

bool DesktopPrefersDark() {
  // Without this variable the bus library would start a bus of its own.
  if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return false;
  QDBusMessage question = QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop",
                                                         "/org/freedesktop/portal/desktop",
                                                         "org.freedesktop.portal.Settings", "Read");
  question.setArguments({"org.freedesktop.appearance", "color-scheme"});
  question.setAutoStartService(false);
  const QDBusMessage answer =
      QDBusConnection::sessionBus().call(question, QDBus::Block, kPatienceMilliseconds);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return false;
  QVariant value = answer.arguments().first();
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value.toUInt() == kPreferDark;
}

QPalette DarkPalette() {
  const QColor text(0xEE, 0xEE, 0xEE);
  const QColor dimmed(0x80, 0x80, 0x80);
  QPalette palette(QColor(0x3A, 0x3A, 0x3A), QColor(0x2B, 0x2B, 0x2B));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, dimmed);
  }
  palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
  palette.setColor(QPalette::ToolTipBase, QColor(0x1E, 0x1E, 0x1E));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::Highlight, QColor(0x35, 0x84, 0xE4));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

}  // namespace

void FollowDesktopTheme() {
  if (IsDark(QApplication::palette()) || !DesktopPrefersDark()) return;
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(DarkPalette());
}

}  // namespace morvantile
