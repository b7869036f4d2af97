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
  onlyFriends = Named(new QCheckBox("Only friends"), "Only Friends", *layout);
  byName = Named(new QRadioButton("By name"), "By Name", *layout);
  byCity = Named(new QRadioButton("By city"), "By City", *layout);
  status = Named(new QLabel("Nothing yet"), "Status", *layout);

  window_ = AttachWindow(*this);
  contactsState_ = Attach(*contacts);
  groupState_ = Attach(*group);
  searchState_ = Attach(*search);
  friendsState_ = Attach(*onlyFriends);
  nameState_ = Attach(*byName);
  cityState_ = Attach(*byCity);
  statusState_ = Attach(*status);

  settings_ = New<plist>(New<FolderItem>(path.toStdString()), false);
  settings_->root->GetWindow("window", window_);
  settings_->root->GetListbox(contactsState_, true);
  settings_->root->GetPopup(groupState_, true);
  settings_->root->GetEditField(searchState_);
  settings_->root->GetCheckbox(friendsState_);
  settings_->root->GetRadio(nameState_);
  settings_->root->GetRadio(cityState_);
  settings_->root->GetStaticText(statusState_);
}

void ContactsWindow::Save() {
  settings_->root->SetWindow("window", window_);
  settings_->root->SetListbox(contactsState_);
  settings_->root->SetPopup(groupState_);
  settings_->root->SetEditField(searchState_);
  settings_->root->SetCheckbox(friendsState_);
  settings_->root->SetRadio(nameState_);
  settings_->root->SetRadio(cityState_);
  settings_->root->SetStaticText(statusState_);
  settings_->Save();
}

void ContactsWindow::closeEvent(QCloseEvent* event) {
  Save();
  event->accept();
}
