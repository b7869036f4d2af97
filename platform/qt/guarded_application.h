#ifndef MORVANTILE_PLATFORM_QT_GUARDED_APPLICATION_H
#define MORVANTILE_PLATFORM_QT_GUARDED_APPLICATION_H

#include <QApplication>
#include <exception>
#include <utility>

namespace morvantile {

// Keeps an exception that a handler lets out, and ends all event loops for it: the toolkit itself
// can't carry it.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (...) {
      escaped_ = std::current_exception();
      exit(1);
      return true;
    }
  }

  void RethrowEscaped() {
    if (escaped_) std::rethrow_exception(std::exchange(escaped_, nullptr));
  }

 private:
  std::exception_ptr escaped_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_GUARDED_APPLICATION_H
