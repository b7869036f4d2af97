#ifndef MORVANTILE_DOCS_SAMPLES_CONTACTS_WINDOW_H
#define MORVANTILE_DOCS_SAMPLES_CONTACTS_WINDOW_H

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>
#include <QWidget>

#include "platform/qt/attach/attach.h"
#include "plist/plist.h"

// An ordinary Qt window that comes back as it was left. What is special about it is in the last
// lines of its constructor and in Save.
class ContactsWindow : public QWidget {
 public:
  // Restores the window from the property list at `path`, if there is one.
  explicit ContactsWindow(const QString& path);

  // Writes the state of the window to that property list.
  void Save();

  QTreeWidget* contacts;
  QComboBox* group;
  QLineEdit* search;
  QCheckBox* onlyFriends;
  QRadioButton* byName;
  QRadioButton* byCity;
  QLabel* status;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  morvantile::Ref<morvantile::plist> settings_;
  morvantile::Ref<morvantile::Window> window_;
  morvantile::Ref<morvantile::Listbox> contactsState_;
  morvantile::Ref<morvantile::PopupMenu> groupState_;
  morvantile::Ref<morvantile::EditField> searchState_;
  morvantile::Ref<morvantile::CheckBox> friendsState_;
  morvantile::Ref<morvantile::RadioButton> nameState_;
  morvantile::Ref<morvantile::RadioButton> cityState_;
  morvantile::Ref<morvantile::StaticText> statusState_;
};

#endif  // MORVANTILE_DOCS_SAMPLES_CONTACTS_WINDOW_H
