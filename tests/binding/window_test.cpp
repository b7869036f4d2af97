#include "platform/ui/window.h"

#include <gtest/gtest.h>

#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

class WindowBinding : public testing::Test {
 protected:
  WindowBinding() { node->rootClass = document; }

  static Ref<Window> At(const std::string& title, int left, int top, int width, int height) {
    Ref<Window> window = New<Window>();
    window->SetTitle(title);
    window->SetLeft(left);
    window->SetTop(top);
    window->SetWidth(width);
    window->SetHeight(height);
    return window;
  }

  static std::string Place(const Window& window) {
    return window.Title() + " " + std::to_string(window.Left()) + "," +
           std::to_string(window.Top()) + " " + std::to_string(window.Width()) + "x" +
           std::to_string(window.Height());
  }

  Ref<plist> document = New<plist>(nullptr, false);
  Ref<plistDict> node = document->root;
};

TEST_F(WindowBinding, AStoredWindowComesBackWhereItWas) {
  const Ref<Window> window = At("Main", -20, 30, 400, 300);
  node->SetWindow("w", window);
  node->SetWindow("w", window);
  EXPECT_EQ(node->child("w")->count(), 2);
  EXPECT_EQ(node->child("w")->child("WindowPos")->count(), 4);

  const Ref<Window> other = At("Other", 1, 2, 3, 4);
  node->GetWindow("W", other);
  EXPECT_EQ(Place(*other), "Main -20,30 400x300");
  EXPECT_FALSE(document->error);
}

TEST_F(WindowBinding, AMissingRecordIsMadeFromTheWindow) {
  const Ref<Window> window = At("Main", 1, 2, 3, 4);
  node->GetWindow("w", window);
  EXPECT_EQ(Place(*window), "Main 1,2 3x4");
  EXPECT_EQ(node->child("w")->GetString("windowName"), "Main");
}

TEST_F(WindowBinding, AMissingNumberIsZero) {
  const Ref<Window> window = At("Main", 1, 2, 3, 4);
  node->SetWindow("w", window);
  node->child("w")->child("WindowPos")->Remove("height", false);
  node->GetWindow("w", window);
  EXPECT_EQ(Place(*window), "Main 1,2 3x0");
  EXPECT_EQ(node->child("w")->child("WindowPos")->GetType("height"), "integer");
}

TEST_F(WindowBinding, AScalarInTheWayIsLeftAlone) {
  const Ref<Window> window = At("Main", 1, 2, 3, 4);
  node->SetString("w", "text");
  node->SetWindow("w", window);
  EXPECT_EQ(document->errorMessage, "Child exists: w already exists");
  node->GetWindow("w", window);
  EXPECT_EQ(Place(*window), "Main 1,2 3x4");
  EXPECT_EQ(node->GetString("w"), "text");
  EXPECT_THROW(node->SetWindow("w", nullptr), NilObjectException);
}

TEST_F(WindowBinding, AnArrayTakesOneElementAWindow) {
  node->AppendWindow(At("No", 1, 2, 3, 4));
  EXPECT_EQ(document->errorMessage, node->name + " is not an array");
  EXPECT_EQ(node->count(), 0);

  node->AddArray("all");
  const Ref<plistDict> all = node->child("all");
  all->AppendWindow(At("A", 1, 2, 3, 4));
  all->AppendWindow(At("B", 5, 6, 7, 8));
  const Ref<Window> window = New<Window>();
  all->GetWindow("1", window);
  EXPECT_EQ(Place(*window), "B 5,6 7x8");

  all->AppendString("last");
  all->Remove("0", true);
  all->AppendWindow(At("C", 9, 8, 7, 6));
  all->GetWindow(std::to_string(all->indexOf), window);
  EXPECT_EQ(Place(*window), "C 9,8 7x6");
}

}  // namespace
}  // namespace morvantile
