#include "platform/qt/control_widgets.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>

#include "platform/qt/canvas_widget.h"
#include "platform/qt/control_peer.h"
#include "platform/qt/segment_bar.h"
#include "platform/ui/canvas.h"
#include "platform/ui/label.h"
#include "platform/ui/push_button.h"
#include "platform/ui/segmented_control.h"
#include "platform/ui/slider.h"

namespace morvantile {
namespace {

constexpr int kSliderTicks = 10;

class ButtonPeer : public PeerOf<PushButton, QPushButton> {
 public:
  ButtonPeer(PushButton& button, QWidget& parent)
      : PeerOf(button, new QPushButton(QString::fromStdString(button.Caption), &parent)) {
    // Return is for the default button, wherever the focus is.
    widget().setAutoDefault(false);
    widget().setDefault(button.Default);
    QObject::connect(&widget(), &QPushButton::clicked, &widget(),
                     [&button] { button.UserPress(); });
  }

  void ControlChanged() override { widget().setText(QString::fromStdString(control().Caption)); }
};

class LabelWidget : public QLabel {
 public:
  LabelWidget(Label& label, QWidget& parent) : QLabel(&parent), label_(&label) {
    setTextFormat(Qt::PlainText);
  }

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
  LabelPeer(Label& label, QWidget& parent) : PeerOf(label, new LabelWidget(label, parent)) {
    widget().setAlignment(Alignment());
    if (label.MouseDown) widget().setCursor(Qt::PointingHandCursor);
    if (label.TextColor != Label::kThemeColor) SetColor();
    LabelPeer::ControlChanged();
  }

  void ControlChanged() override {
    const QString text = QString::fromStdString(control().Text());
    widget().setFont(ShrunkToFit(FontFor(control()), text, control().Width));
    widget().setText(text);
  }

 private:
  Qt::Alignment Alignment() const {
    switch (control().TextAlign) {
      case Label::kAlignCenter:
        return Qt::AlignCenter;
      case Label::kAlignRight:
        return Qt::AlignRight | Qt::AlignVCenter;
      default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
  }

  // A colour made for light windows is lifted on a dark one, where it couldn't be read.
  void SetColor() {
    QPalette palette = widget().palette();
    QColor color = QColor::fromRgb(static_cast<QRgb>(control().TextColor));
    if (palette.color(QPalette::Window).lightness() < 128) {
      color.setHsl(color.hslHue(), color.hslSaturation(), 180);
    }
    palette.setColor(QPalette::WindowText, color);
    widget().setPalette(palette);
  }
};

QSlider::TickPosition TicksOf(const Slider& slider) {
  switch (slider.TickStyle) {
    case Slider::kTicksAbove:
      return QSlider::TicksAbove;
    case Slider::kTicksBelow:
      return QSlider::TicksBelow;
    case Slider::kTicksBoth:
      return QSlider::TicksBothSides;
    default:
      return QSlider::NoTicks;
  }
}

class SliderPeer : public PeerOf<Slider, QSlider> {
 public:
  SliderPeer(Slider& slider, QWidget& parent)
      : PeerOf(slider, new QSlider(Qt::Horizontal, &parent)) {
    widget().setRange(slider.Minimum, slider.Maximum);
    widget().setSingleStep(slider.LineStep);
    widget().setPageStep(slider.PageStep);
    widget().setTracking(slider.LiveScroll);
    widget().setTickPosition(TicksOf(slider));
    widget().setTickInterval(kSliderTicks);
    widget().setValue(slider.Value());
    QObject::connect(&widget(), &QSlider::valueChanged, &widget(),
                     [&slider](int value) { slider.SetValue(value); });
  }

  void ControlChanged() override { widget().setValue(control().Value()); }
};

class SegmentedPeer : public PeerOf<SegmentedControl, SegmentBar> {
 public:
  SegmentedPeer(SegmentedControl& segmented, QWidget& parent)
      : PeerOf(segmented, new SegmentBar(segmented, parent)) {}

  void ControlChanged() override { widget().ShowState(control()); }
};

class CanvasPeer : public PeerOf<Canvas, CanvasWidget> {
 public:
  CanvasPeer(Canvas& canvas, QWidget& parent) : PeerOf(canvas, new CanvasWidget(canvas, parent)) {}

  void ControlChanged() override { widget().update(); }
};

template <typename C, typename P>
std::unique_ptr<ControlPeer> PeerIf(Control& control, QWidget& parent) {
  auto* match = dynamic_cast<C*>(&control);
  if (match == nullptr) return nullptr;
  return std::make_unique<P>(*match, parent);
}

}  // namespace

std::unique_ptr<ControlPeer> MakePeer(Control& control, QWidget& parent) {
  for (const auto make :
       {PeerIf<PushButton, ButtonPeer>, PeerIf<Label, LabelPeer>, PeerIf<Slider, SliderPeer>,
        PeerIf<SegmentedControl, SegmentedPeer>, PeerIf<Canvas, CanvasPeer>}) {
    if (auto peer = make(control, parent)) return peer;
  }
  return nullptr;
}

QWidget* WidgetOf(const ControlPeer& peer) {
  return static_cast<const QtControlPeer&>(peer).Widget();
}

}  // namespace morvantile
