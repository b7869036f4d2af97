#include "platform/qt/widgets/segment_bar.h"

#include <QAbstractButton>
#include <QPainter>
#include <QPainterPath>

#include "platform/qt/widgets/contrast.h"
#include "platform/qt/widgets/fonts.h"
#include "platform/qt/widgets/placement.h"

namespace morvantile {
namespace {

constexpr qreal kRadius = 4;

class SegmentButton : public QAbstractButton, public AccessibleWidget {
 public:
  enum Ends { kInner = 0, kFirst = 1, kLast = 2 };

  SegmentButton(int ends, QWidget* parent) : QAbstractButton(parent), ends_(ends) {
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
  }

  [[nodiscard]] QAccessible::Role Role() const override { return QAccessible::RadioButton; }
  [[nodiscard]] bool IsPressable() const override { return true; }
  void Press() override { click(); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath outline = Outline();
    painter.fillPath(outline, FillColor());
    painter.setPen(QPen(BorderColor(), 1));
    painter.drawPath(outline);
    if (hasFocus()) {
      DrawFocusRing(painter, QRectF(rect()).adjusted(2, 2, -2, -2), FillColor(), palette());
    }
    painter.setPen(TextColor());
    painter.drawText(rect(), Qt::AlignCenter, text());
  }

 private:
  // The button's edge. It is rounded only at the ends of the bar, and a button draws over the edge
  // of its neighbour, so that there is one line between two of them.
  [[nodiscard]] QPainterPath Outline() const {
    QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if ((ends_ & kLast) == 0) box.setRight(box.right() + 1);
    QPainterPath path;
    path.addRoundedRect(box, kRadius, kRadius);
    if ((ends_ & kFirst) == 0) path.addRect(QRectF(box.left(), box.top(), kRadius, box.height()));
    if ((ends_ & kLast) == 0) {
      path.addRect(QRectF(box.right() - kRadius, box.top(), kRadius, box.height()));
    }
    path.setFillRule(Qt::WindingFill);
    return path.simplified();
  }

  [[nodiscard]] QColor TextColor() const {
    return palette().color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText);
  }

  [[nodiscard]] QColor FillColor() const {
    if (isChecked()) {
      return WithContrast(palette().color(QPalette::Highlight), TextColor(), kContrastOfText);
    }
    const QColor base = palette().color(QPalette::Button);
    return underMouse() ? base.lighter(108) : base;
  }

  [[nodiscard]] QColor BorderColor() const {
    const QColor button = palette().color(QPalette::Button);
    return button.lightness() > 127 ? button.darker(140) : button.lighter(180);
  }

  int ends_;
};

}  // namespace

SegmentBar::SegmentBar(SegmentedControl& control, QWidget& parent, double scale)
    : QWidget(&parent), buttons_(new QButtonGroup(this)) {
  const int count = control.ItemCount();
  int left = 0;
  for (int i = 0; i < count; ++i) {
    const SegmentedControlItem& item = control.Items(i);
    const int ends =
        (i == 0 ? SegmentButton::kFirst : 0) | (i == count - 1 ? SegmentButton::kLast : 0);
    const int edge = (i == 0 ? 1 : 0) + (i == count - 1 ? 1 : 0);
    auto* button = new SegmentButton(ends, this);
    button->setText(QString::fromStdString(item.Title));
    button->setAccessibleName(QString::fromStdString(item.AccessibleName));
    button->setGeometry(Scaled({left, 0, item.Width + edge, control.Height}, scale));
    button->setFont(
        ShrunkToFit(FontFor(control, scale), button->text(), button->size() - kButtonMargins));
    left += item.Width + edge;
    buttons_->addButton(button, i);
  }
  QObject::connect(buttons_, &QButtonGroup::idClicked, buttons_,
                   [&control](int i) { control.UserPress(i); });
  setFocusPolicy(Qt::NoFocus);
  ShowState(control);
}

void SegmentBar::ShowState(SegmentedControl& control) {
  for (int i = 0; i < control.ItemCount(); ++i) {
    QAbstractButton* button = buttons_->button(i);
    const QString help = QString::fromStdString(control.Items(i).HelpTag);
    button->setToolTip(help);
    button->setAccessibleDescription(
        (help + ' ' + QString::fromStdString(control.AccessibleDescription())).trimmed());
    const bool selected = control.Items(i).Selected();
    if (selected) button->setChecked(true);
    // The tab key stops once, at the lit one.
    button->setFocusPolicy(selected ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace morvantile
