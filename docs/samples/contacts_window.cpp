#include "contacts_window.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include "platform/files/folder_item.h"

using morvantile::Attach;
using morvantile::AttachWindow;
using morvantile::FolderItem;
using morvantile::New;
using morvantile::plist;

namespace {

// Adds a widget to the window, with the name under which its state is kept.
template <typename Widget>
Widget* Named(Widget* widget, const char* name, QLayout& layout) {
  widget->setObjectName(name);
  layout.addWidget(widget);
  return widget;
}

}  // namespace

ContactsWindow::ContactsWindow(const QString& path) {
  setWindowTitle("Contacts");
  auto* layout = new QVBoxLayout(this);
  search = Named(new QLineEdit, "Search", *layout);
  group = Named(new QComboBox, "Group", *layout);
  contacts = Named(new QTreeWidget, "Contacts", *layout);
  contacts->setColumnCount(2);
  contacts->setHeaderLabels({"Name", "City"});
  only_friends = Named(new QCheckBox("Only friends"), "Only Friends", *layout);
  by_name = Named(new QRadioButton("By name"), "By Name", *layout);
  by_city = Named(new QRadioButton("By city"), "By City", *layout);
  status = Named(new QLabel("Nothing yet"), "Status", *layout);

  window_ = AttachWindow(*this);
  contacts_state_ = Attach(*contacts);
  group_state_ = Attach(*group);
  search_state_ = Attach(*search);
  friends_state_ = Attach(*only_friends);
  name_state_ = Attach(*by_name);
  city_state_ = Attach(*by_city);
  status_state_ = Attach(*status);

  settings_ = New<plist>(New<FolderItem>(path.toStdString()), false);
  settings_->root->GetWindow("window", window_);
  settings_->root->GetListbox(contacts_state_, true);
  settings_->root->GetPopup(group_state_, true);
  settings_->root->GetEditField(search_state_);
  settings_->root->GetCheckbox(friends_state_);
  settings_->root->GetRadio(name_state_);
  settings_->root->GetRadio(city_state_);
  settings_->root->GetStaticText(status_state_);
}

void ContactsWindow::Save() {
  settings_->root->SetWindow("window", window_);
  settings_->root->SetListbox(contacts_state_);
  settings_->root->SetPopup(group_state_);
  settings_->root->SetEditField(search_state_);
  settings_->root->SetCheckbox(friends_state_);
  settings_->root->SetRadio(name_state_);
  settings_->root->SetRadio(city_state_);
  settings_->root->SetStaticText(status_state_);
  settings_->Save();
}

void ContactsWindow::closeEvent(QCloseEvent* event) {
  Save();
  event->accept();
}
