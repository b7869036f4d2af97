#include "platform/qt/widgets/accessible.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QLabel>
#include <QTimer>

#include "platform/qt/widgets/slider_widget.h"

namespace morvantile {
namespace {

class Interface : public QAccessibleWidget {
 public:
  Interface(QWidget* widget, AccessibleWidget* about)
      : QAccessibleWidget(widget, about->Role()), about_(about) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const auto* label = qobject_cast<QLabel*>(widget());
    return label != nullptr && kind == QAccessible::Name ? label->text()
                                                         : QAccessibleWidget::text(kind);
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    if (const QAbstractButton* button = Button()) {
      state.checkable = true;
      state.checked = button->isChecked();
    }
    return state;
  }

  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (about_->IsPressable()) names.prepend(ActionName());
    return names;
  }

  // The assistant waits for the answer, and a press may show a window: it is answered first.
  void doAction(const QString& name) override {
    if (name != ActionName()) {
      QAccessibleWidget::doAction(name);
    } else if (widget()->isEnabled()) {
      QTimer::singleShot(0, widget(), [about = about_] { about->Press(); });
    }
  }

 private:
  [[nodiscard]] QAbstractButton* Button() const { return qobject_cast<QAbstractButton*>(widget()); }
  [[nodiscard]] const QString& ActionName() const {
    return Button() != nullptr ? toggleAction() : pressAction();
  }

  AccessibleWidget* about_;
};

// The value is read out as what it means, and an assistant that sets it means the same.
class SliderInterface : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SliderInterface(SliderWidget* slider)
      : QAccessibleWidget(slider, QAccessible::Slider), slider_(slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
  }

  [[nodiscard]] QVariant currentValue() const override { return Meaning(slider_->value()); }
  [[nodiscard]] QVariant minimumValue() const override { return Meaning(slider_->minimum()); }
  [[nodiscard]] QVariant maximumValue() const override { return Meaning(slider_->maximum()); }
  [[nodiscard]] QVariant minimumStepSize() const override { return Meaning(slider_->singleStep()); }
  void setCurrentValue(const QVariant& value) override {
    slider_->setValue(qRound(value.toDouble() / slider_->AccessibleUnit()));
  }

  [[nodiscard]] QStringList actionNames() const override {
    return QAccessibleWidget::actionNames() << increaseAction() << decreaseAction();
  }
  void doAction(const QString& name) override {
    if (name == increaseAction()) {
      slider_->triggerAction(QSlider::SliderSingleStepAdd);
    } else if (name == decreaseAction()) {
      slider_->triggerAction(QSlider::SliderSingleStepSub);
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  [[nodiscard]] int Meaning(int value) const { return value * slider_->AccessibleUnit(); }

  SliderWidget* slider_;
};

QAccessibleInterface* InterfaceOf(const QString& /*className*/, QObject* object) {
  if (auto* slider = dynamic_cast<SliderWidget*>(object)) return new SliderInterface(slider);
  auto* about = dynamic_cast<AccessibleWidget*>(object);
  auto* widget = qobject_cast<QWidget*>(object);
  return about == nullptr || widget == nullptr ? nullptr : new Interface(widget, about);
}

}  // namespace

void InstallAccessibleWidgets() { QAccessible::installFactory(InterfaceOf); }

}  // namespace morvantile
