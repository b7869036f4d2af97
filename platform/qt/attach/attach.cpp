#include "platform/qt/attach/attach.h"

#include <QComboBox>
#include <QEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>
#include <QTreeWidget>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/qt/attach/control_peer.h"
#include "platform/qt/attach/row_mirror.h"
#include "platform/qt/attach/row_selectors.h"
#include "platform/qt/attach/value_peers.h"

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

void TieRows(ListControl& control, int columns, QWidget& widget, QAbstractItemModel& model,
             RowSelector selector, const std::function<void(RowMirror&)>& follow_selection) {
  auto mirror = std::make_unique<RowMirror>(control, columns, model, std::move(selector));
  mirror->TakeFromWidget();
  follow_selection(*mirror);
  new Tie(widget, std::move(mirror));
}

Ref<Listbox> AttachView(QAbstractItemView& view) {
  Ref<Listbox> list = ControlFor<Listbox>(view);
  list->SetColumnCount(view.model()->columnCount());
  TieRows(*list, list->ColumnCount(), view, *view.model(), SelectorOf(view),
          [&view](RowMirror& mirror) { FollowSelection(view, mirror); });
  return list;
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
    applying_ = true;
    window_->SetTitle(widget_->windowTitle().toStdString());
    applying_ = false;
    window_->UserMoved(place.x(), place.y(), place.width(), place.height());
  }

  void WindowChanged() override {
    if (applying_) return;
    applying_ = true;
    widget_->setWindowTitle(QString::fromStdString(window_->Title()));
    widget_->setGeometry(window_->Left(), window_->Top(), window_->Width(), window_->Height());
    applying_ = false;
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
  TieRows(*menu, 1, widget, *widget.model(), SelectorOf(widget),
          [&widget](RowMirror& mirror) { FollowSelection(widget, mirror); });
  return menu;
}

Ref<EditField> Attach(QLineEdit& widget) {
  Ref<EditField> field = ControlFor<EditField>(widget);
  field->SetText(widget.text().toStdString());
  new Tie(widget, std::make_unique<EditFieldPeer>(*field, &widget));
  return field;
}

Ref<CheckBox> Attach(QCheckBox& widget) {
  Ref<CheckBox> box = ControlFor<CheckBox>(widget);
  box->Caption = widget.text().toStdString();
  box->SetValue(widget.isChecked());
  new Tie(widget, std::make_unique<CheckBoxPeer>(*box, &widget));
  return box;
}

Ref<RadioButton> Attach(QRadioButton& widget) {
  Ref<RadioButton> button = ControlFor<RadioButton>(widget);
  button->Caption = widget.text().toStdString();
  button->SetValue(widget.isChecked());
  new Tie(widget, std::make_unique<RadioButtonPeer>(*button, &widget));
  return button;
}

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
