#include "platform/qt/attach/attach.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTableWidget>
#include <QTreeWidget>
#include <memory>
#include <utility>

#include "platform/qt/attach/control_peer.h"
#include "platform/qt/attach/row_mirror.h"

namespace morvantile {
namespace {

// Lets a peer live as long as its widget is whole: a widget that is deleted says so before its
// children, the model among them, go one by one.
class Tie : public QObject {
 public:
  Tie(QWidget& widget, std::unique_ptr<ControlPeer> peer)
      : QObject(&widget), peer_(std::move(peer)) {
    connect(&widget, &QObject::destroyed, this, [this] { peer_.reset(); });
  }

 private:
  std::unique_ptr<ControlPeer> peer_;
};

template <typename C>
Ref<C> ControlFor(const QWidget& widget) {
  Ref<C> control = New<C>();
  control->Name = widget.objectName().toStdString();
  return control;
}

int TopLevelRow(const QModelIndex& index) {
  QModelIndex top = index;
  while (top.parent().isValid()) top = top.parent();
  return top.row();
}

Ref<Listbox> AttachView(QAbstractItemView& view) {
  Ref<Listbox> list = ControlFor<Listbox>(view);
  list->SetColumnCount(view.model()->columnCount());
  auto mirror = std::make_unique<RowMirror>(
      *list, list->ColumnCount(), *view.model(),
      RowSelector{[&view] { return TopLevelRow(view.currentIndex()); },
                  [&view](int row) { view.setCurrentIndex(view.model()->index(row, 0)); }});
  QObject::connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, mirror.get(),
                   &RowMirror::WidgetSelected);
  new Tie(view, std::move(mirror));
  return list;
}

class TextOfField : public PeerOf<EditField, QLineEdit> {
 public:
  TextOfField(EditField& field, QLineEdit* widget) : PeerOf(field, widget) {
    QObject::connect(widget, &QLineEdit::textChanged, widget,
                     [&field](const QString& text) { field.SetText(text.toStdString()); });
  }
  void ControlChanged() override {
    const QString text = QString::fromStdString(control().Text());
    if (widget().text() != text) widget().setText(text);
  }
};

// The toolkit lets nobody turn the last button of an exclusive group off.
void TurnOff(QAbstractButton& button) {
  QButtonGroup* group = button.group();
  const bool group_exclusive = group != nullptr && group->exclusive();
  const bool auto_exclusive = button.autoExclusive();
  if (group != nullptr) group->setExclusive(false);
  button.setAutoExclusive(false);
  button.setChecked(false);
  button.setAutoExclusive(auto_exclusive);
  if (group != nullptr) group->setExclusive(group_exclusive);
}

// Of a check box or a radio button.
template <typename C>
class ValueOfButton : public PeerOf<C, QAbstractButton> {
 public:
  ValueOfButton(C& control, QAbstractButton* widget) : PeerOf<C, QAbstractButton>(control, widget) {
    QObject::connect(widget, &QAbstractButton::toggled, widget,
                     [&control](bool checked) { control.SetValue(checked); });
  }
  void ControlChanged() override {
    QAbstractButton& button = this->widget();
    if (this->control().Value()) {
      button.setChecked(true);
    } else if (button.isChecked()) {
      TurnOff(button);
    }
  }
};

template <typename C>
Ref<C> AttachButton(QAbstractButton& widget) {
  Ref<C> control = ControlFor<C>(widget);
  control->Caption = widget.text().toStdString();
  control->SetValue(widget.isChecked());
  new Tie(widget, std::make_unique<ValueOfButton<C>>(*control, &widget));
  return control;
}

class TextOfLabel : public PeerOf<StaticText, QLabel> {
 public:
  using PeerOf::PeerOf;
  void ControlChanged() override { widget().setText(QString::fromStdString(control().Text())); }
};

// Ties a window to a top-level widget, for as long as that lives.
class WindowTie : public QObject, private WindowPeer {
 public:
  WindowTie(const Ref<Window>& window, QWidget& widget)
      : QObject(&widget), window_(window), widget_(&widget) {
    TakeFromWidget();
    window->AttachPeer(this);
    widget.installEventFilter(this);
  }
  ~WindowTie() override { window_->AttachPeer(nullptr); }
  WindowTie(const WindowTie&) = delete;
  WindowTie& operator=(const WindowTie&) = delete;

  bool eventFilter(QObject* watched, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (!applying_ &&
        (type == QEvent::Move || type == QEvent::Resize || type == QEvent::WindowTitleChange)) {
      TakeFromWidget();
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void TakeFromWidget() {
    const QRect place = widget_->geometry();
    const QScopedValueRollback applying(applying_, true);
    window_->SetTitle(widget_->windowTitle().toStdString());
    window_->UserMoved(place.x(), place.y(), place.width(), place.height());
  }

  void WindowChanged() override {
    if (applying_) return;
    const QScopedValueRollback applying(applying_, true);
    widget_->setWindowTitle(QString::fromStdString(window_->Title()));
    widget_->setGeometry(window_->Left(), window_->Top(), window_->Width(), window_->Height());
  }

  void WindowClosed() override { widget_->close(); }

  Ref<Window> window_;
  QWidget* widget_;
  bool applying_ = false;
};

}  // namespace

Ref<Listbox> Attach(QTreeWidget& widget) { return AttachView(widget); }
Ref<Listbox> Attach(QTableWidget& widget) { return AttachView(widget); }
Ref<Listbox> Attach(QListWidget& widget) { return AttachView(widget); }

Ref<PopupMenu> Attach(QComboBox& widget) {
  Ref<PopupMenu> menu = ControlFor<PopupMenu>(widget);
  auto mirror =
      std::make_unique<RowMirror>(*menu, 1, *widget.model(),
                                  RowSelector{[&widget] { return widget.currentIndex(); },
                                              [&widget](int row) { widget.setCurrentIndex(row); }});
  QObject::connect(&widget, &QComboBox::currentIndexChanged, mirror.get(),
                   &RowMirror::WidgetSelected);
  new Tie(widget, std::move(mirror));
  return menu;
}

Ref<EditField> Attach(QLineEdit& widget) {
  Ref<EditField> field = ControlFor<EditField>(widget);
  field->SetText(widget.text().toStdString());
  new Tie(widget, std::make_unique<TextOfField>(*field, &widget));
  return field;
}

Ref<CheckBox> Attach(QCheckBox& widget) { return AttachButton<CheckBox>(widget); }
Ref<RadioButton> Attach(QRadioButton& widget) { return AttachButton<RadioButton>(widget); }

Ref<StaticText> Attach(QLabel& widget) {
  Ref<StaticText> label = ControlFor<StaticText>(widget);
  label->SetText(widget.text().toStdString());
  new Tie(widget, std::make_unique<TextOfLabel>(*label, &widget));
  return label;
}

Ref<Window> AttachWindow(QWidget& widget) {
  Ref<Window> window = New<Window>();
  new WindowTie(window, widget);
  return window;
}

}  // namespace morvantile
