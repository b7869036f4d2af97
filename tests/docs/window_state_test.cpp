#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <array>
#include <memory>

#include "contacts_window.h"
#include "tests/platform/files/scratch_folder.h"

namespace {

class WindowState : public testing::Test {
 protected:
  std::unique_ptr<ContactsWindow> Start() {
    auto window =
        std::make_unique<ContactsWindow>(QString::fromStdString(folder_.Path("state.plist")));
    window->show();
    return window;
  }

 private:
  std::string name_ = "test";
  std::array<char*, 2> arguments_ = {name_.data(), nullptr};
  int count_ = 1;
  QApplication application_{count_, arguments_.data()};
  morvantile::ScratchFolder folder_;
};

TEST_F(WindowState, AWindowComesBackAsItWasLeft) {
  auto window = Start();
  window->setGeometry(120, 80, 500, 400);
  window->contacts->addTopLevelItem(new QTreeWidgetItem({"Ada", "London"}));
  window->contacts->addTopLevelItem(new QTreeWidgetItem({"Émilie", "Paris"}));
  window->contacts->addTopLevelItem(new QTreeWidgetItem({"Grace", "New York"}));
  window->contacts->setCurrentItem(window->contacts->topLevelItem(1));
  window->contacts->topLevelItem(0)->setText(1, "Marylebone");
  delete window->contacts->takeTopLevelItem(2);
  window->group->addItems({"All", "Work"});
  window->group->setCurrentIndex(1);
  QTest::keyClicks(window->search, "ada");
  QTest::mouseClick(window->onlyFriends, Qt::LeftButton, {}, QPoint(8, 8));
  window->byCity->setChecked(true);
  window->status->setText("Two found");
  window->close();

  for (int round = 0; round < 2; ++round) {
    window = Start();
    EXPECT_EQ(window->geometry(), QRect(120, 80, 500, 400));
    ASSERT_EQ(window->contacts->topLevelItemCount(), 2);
    EXPECT_EQ(window->contacts->topLevelItem(0)->text(1), "Marylebone");
    EXPECT_EQ(window->contacts->currentItem()->text(0), "Émilie");
    EXPECT_EQ(window->group->currentText(), "Work");
    EXPECT_EQ(window->group->count(), 2);
    EXPECT_EQ(window->search->text(), "ada");
    EXPECT_TRUE(window->onlyFriends->isChecked());
    EXPECT_TRUE(window->byCity->isChecked());
    EXPECT_FALSE(window->byName->isChecked());
    window->close();
  }
}

}  // namespace
