#include "platform/qt/widgets/control_widgets.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <utility>

#include "platform/qt/attach/control_peer.h"
#include "platform/qt/widgets/accessible.h"
#include "platform/qt/widgets/canvas_widget.h"
#include "platform/qt/widgets/contrast.h"
#include "platform/qt/widgets/fonts.h"
#include "platform/qt/widgets/placement.h"
#include "platform/qt/widgets/segment_bar.h"
#include "platform/qt/widgets/slider_widget.h"
#include "platform/ui/controls/canvas.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/controls/push_button.h"
#include "platform/ui/controls/segmented_control.h"
#include "platform/ui/controls/slider.h"

namespace morvantile {
namespace {

constexpr int kSliderTicks = 10;

class ButtonPeer : public PeerOf<PushButton, QPushButton> {
 public:
  ButtonPeer(PushButton& button, QPushButton* shown) : PeerOf(button, shown) {
    // Return is for the default button, wherever the focus is.
    widget().setAutoDefault(false);
    widget().setDefault(button.Default);
    QObject::connect(&widget(), &QPushButton::clicked, &widget(),
                     [&button] { button.UserPress(); });
  }

  void ControlChanged() override {
    widget().setText(QString::fromStdString(control().Caption));
    FitButtons(*widget().parentWidget());
  }
};

// Shows by a ring that it has the focus.
class ButtonWidget : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPushButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    DrawFocusRing(painter, QRectF(rect()).adjusted(2, 2, -2, -2), palette().color(QPalette::Button),
                  palette());
  }
};

// The text, in which a size such as "640 x 480" keeps its order among right-to-left letters: marks
// isolate it from them.
QString WithSizesInOrder(QString text) {
  if (!text.isRightToLeft()) return text;
  static const QRegularExpression kSize("(\\d+ x \\d+)");
  return text.replace(kSize, QString(QChar(0x2066)) + "\\1" + QChar(0x2069));
}

// A label that can be clicked is a link.
class LabelWidget : public QLabel, public AccessibleWidget {
 public:
  LabelWidget(Label& label, QWidget& parent) : QLabel(&parent), label_(&label) {
    setTextFormat(Qt::PlainText);
  }

  [[nodiscard]] QAccessible::Role Role() const override {
    return IsPressable() ? QAccessible::Link : QAccessible::StaticText;
  }
  [[nodiscard]] bool IsPressable() const override { return label_->MouseDown != nullptr; }
  void Press() override { label_->UserMouseDown(0, 0); }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    label_->UserMouseDown(static_cast<int>(event->position().x()),
                          static_cast<int>(event->position().y()));
  }

 private:
  Ref<Label> label_;
};

class LabelPeer : public PeerOf<Label, LabelWidget> {
 public:
  LabelPeer(Label& label, LabelWidget* shown) : PeerOf(label, shown) {
    widget().setAlignment(Alignment());
    if (label.MouseDown) widget().setCursor(Qt::PointingHandCursor);
    SetColor();
  }

  // The font never grows again, so that it doesn't flicker while a number changes.
  void ControlChanged() override {
    const QString text = WithSizesInOrder(QString::fromStdString(control().Text()));
    widget().setFont(ShrunkToFit(widget().font(), text, widget().size()));
    widget().setText(text);
  }

 private:
  [[nodiscard]] Qt::Alignment Alignment() const {
    switch (control().TextAlign) {
      case Label::kAlignCenter:
        return Qt::AlignCenter;
      case Label::kAlignRight:
        return Qt::AlignRight | Qt::AlignVCenter;
      default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
  }

  // A colour made for light windows may be too dark on a dark one, and the theme's colour of dimmed
  // text too faint on any.
  void SetColor() {
    QPalette palette = widget().palette();
    const QColor window = palette.color(QPalette::Window);
    const QColor text = control().TextColor == Label::kThemeColor
                            ? palette.color(QPalette::Active, QPalette::WindowText)
                            : QColor::fromRgb(static_cast<QRgb>(control().TextColor));
    const QColor dimmed = palette.color(QPalette::Disabled, QPalette::WindowText);
    palette.setColor(QPalette::WindowText, WithContrast(text, window, kContrastOfText));
    palette.setColor(QPalette::Disabled, QPalette::WindowText,
                     WithContrast(dimmed, window, kContrastOfParts));
    widget().setPalette(palette);
  }
};

class SliderPeer : public PeerOf<Slider, SliderWidget> {
 public:
  SliderPeer(Slider& slider, SliderWidget* shown) : PeerOf(slider, shown) {
    widget().setRange(slider.Minimum, slider.Maximum);
    widget().setSingleStep(slider.LineStep);
    widget().setPageStep(slider.PageStep);
    widget().setTracking(slider.LiveScroll);
    // The toolkit has the same numbers for them.
    widget().setTickPosition(static_cast<QSlider::TickPosition>(slider.TickStyle));
    widget().setTickInterval(kSliderTicks);
    widget().setValue(slider.Value());
    QObject::connect(&widget(), &QSlider::valueChanged, &widget(),
                     [&slider](int value) { slider.SetValue(value); });
  }

  void ControlChanged() override { widget().setValue(control().Value()); }
};

class SegmentedPeer : public PeerOf<SegmentedControl, SegmentBar> {
 public:
  using PeerOf::PeerOf;
  void ControlChanged() override { widget().ShowState(control()); }
  void DescriptionChanged() override { widget().ShowState(control()); }
};

class CanvasPeer : public PeerOf<Canvas, CanvasWidget> {
 public:
  using PeerOf::PeerOf;
  void ControlChanged() override { widget().update(); }
};

template <typename P, typename C, typename W>
ShownControl Shown(C& control, W* widget) {
  return {widget, std::make_unique<P>(control, widget)};
}

// The widget and peer that fit the control's class; null for one that is not known.
ShownControl Choose(Control& any, QWidget& parent, double scale) {
  if (auto* button = dynamic_cast<PushButton*>(&any)) {
    return Shown<ButtonPeer>(*button, new ButtonWidget(&parent));
  }
  if (auto* label = dynamic_cast<Label*>(&any)) {
    return Shown<LabelPeer>(*label, new LabelWidget(*label, parent));
  }
  if (auto* slider = dynamic_cast<Slider*>(&any)) {
    return Shown<SliderPeer>(*slider, new SliderWidget(*slider, parent));
  }
  if (auto* segmented = dynamic_cast<SegmentedControl*>(&any)) {
    return Shown<SegmentedPeer>(*segmented, new SegmentBar(*segmented, parent, scale));
  }
  if (auto* canvas = dynamic_cast<Canvas*>(&any)) {
    return Shown<CanvasPeer>(*canvas, new CanvasWidget(*canvas, parent));
  }
  return {nullptr, nullptr};
}

void Style(const Control& control, QWidget& widget, double scale) {
  widget.setGeometry(Scaled({control.Left, control.Top, control.Width, control.Height}, scale));
  widget.setFont(FontFor(control, scale));
  widget.setToolTip(QString::fromStdString(control.HelpTag));
  widget.setAccessibleName(QString::fromStdString(control.AccessibleName));
  widget.setObjectName(QString::fromStdString(control.Name));
  widget.setEnabled(control.Enabled);
  widget.setVisible(control.Visible);
}

}  // namespace

ShownControl Show(Control& control, QWidget& parent, double scale) {
  ShownControl shown = Choose(control, parent, scale);
  if (shown.widget == nullptr) return shown;
  Style(control, *shown.widget, scale);
  shown.peer->ControlChanged();
  shown.peer->DescriptionChanged();
  return shown;
}

}  // namespace morvantile
