#include "dialogs/prefixed_label.h"

#include <gtest/gtest.h>

namespace morvantile {
namespace {

TEST(PrefixedLabel, ASuffixReplacesTheOneBeforeIt) {
  const Ref<PrefixedLabel> label = New<PrefixedLabel>();
  label->SetText("Größe: ");
  label->Event_Open();
  label->SetSuffix("640 x 480");
  EXPECT_EQ(label->Text(), "Größe: 640 x 480");
  label->SetSuffix("6 x 0");
  EXPECT_EQ(label->Text(), "Größe: 6 x 0");
  EXPECT_EQ(label->Suffix(), "6 x 0");
  label->SetSuffix("");
  EXPECT_EQ(label->Text(), "Größe: ");
  EXPECT_EQ(label->Suffix(), "");
}

TEST(PrefixedLabel, ItsOpenHandlerFindsThePrefixReady) {
  const Ref<PrefixedLabel> label = New<PrefixedLabel>();
  label->SetText("Version ");
  label->Open = [](PrefixedLabel& opened) { opened.SetSuffix("1.2"); };
  label->Event_Open();
  EXPECT_EQ(label->Text(), "Version 1.2");
}

TEST(PrefixedLabel, TheSuffixIsTakenByLengthAlone) {
  const Ref<PrefixedLabel> label = New<PrefixedLabel>();
  label->SetText("abc");
  label->Event_Open();
  label->SetText("xyz123");
  EXPECT_EQ(label->Suffix(), "123");
}

}  // namespace
}  // namespace morvantile
