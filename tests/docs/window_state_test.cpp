#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <array>
#include <memory>

#include "contacts_window.h"
#include "tests/platform/files/scratch_folder.h"

namespace {

TEST(WindowState, ComesBackAsItWasLeft) {
  std::string name = "test";
  std::array<char*, 2> arguments = {name.data(), nullptr};
  int count = 1;
  const QApplication application(count, arguments.data());
  const morvantile::ScratchFolder folder;
  const QString file = QString::fromStdString(folder.Path("state.plist"));
  auto window = std::make_unique<ContactsWindow>(file);
  window->show();
  window->setGeometry(120, 80, 500, 400);
  for (const char* contact : {"Ada", "Émilie", "Grace"}) {
    window->contacts->addTopLevelItem(new QTreeWidgetItem({contact, "London"}));
  }
  window->contacts->setCurrentItem(window->contacts->topLevelItem(1));
  window->contacts->topLevelItem(0)->setText(1, "Marylebone");
  delete window->contacts->takeTopLevelItem(2);
  window->group->addItems({"All", "Work"});
  window->group->setCurrentIndex(1);
  QTest::keyClicks(window->search, "ada");
  QTest::mouseClick(window->only_friends, Qt::LeftButton, {}, QPoint(8, 8));
  window->by_city->setChecked(true);
  window->close();

  window = std::make_unique<ContactsWindow>(file);
  EXPECT_EQ(window->geometry(), QRect(120, 80, 500, 400));
  ASSERT_EQ(window->contacts->topLevelItemCount(), 2);
  EXPECT_EQ(window->contacts->topLevelItem(0)->text(1), "Marylebone");
  EXPECT_EQ(window->contacts->currentItem()->text(0), "Émilie");
  EXPECT_EQ(window->group->currentText(), "Work");
  EXPECT_EQ(window->group->count(), 2);
  EXPECT_EQ(window->search->text(), "ada");
  EXPECT_TRUE(window->only_friends->isChecked() && window->by_city->isChecked());
  EXPECT_FALSE(window->by_name->isChecked());
}

}  // namespace
