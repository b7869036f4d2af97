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
  QCheckBox* only_friends;
  QRadioButton* by_name;
  QRadioButton* by_city;
  QLabel* status;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  morvantile::Ref<morvantile::plist> settings_;
  morvantile::Ref<morvantile::Window> window_;
  morvantile::Ref<morvantile::Listbox> contacts_state_;
  morvantile::Ref<morvantile::PopupMenu> group_state_;
  morvantile::Ref<morvantile::EditField> search_state_;
  morvantile::Ref<morvantile::CheckBox> friends_state_;
  morvantile::Ref<morvantile::RadioButton> name_state_;
  morvantile::Ref<morvantile::RadioButton> city_state_;
  morvantile::Ref<morvantile::StaticText> status_state_;
};

#endif  // MORVANTILE_DOCS_SAMPLES_CONTACTS_WINDOW_H
