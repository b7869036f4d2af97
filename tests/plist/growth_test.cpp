#include <gtest/gtest.h>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Growth : public ::testing::Test {
 protected:
  Ref<plist> document = NewDocument();
  plistDict& root = *document->root;
};

TEST_F(Growth, AppendsNumberTheirElementsInOneRow) {
  root.AddArray("list");
  plistDict& list = *root.child("list");
  list.AppendString("x");
  list.AppendDict();
  list.AppendInteger(-5);
  list.AppendReal(1.5);
  list.AppendDouble(1.5);
  list.AppendBoolean(false);
  list.AppendData("QUJD");
  list.AppendDate(New<Date>(2009, 3, 7, 8, 5, 9));
  list.AppendColor(RGB(0, 16, 255, 0));
  list.AppendArray();
  EXPECT_EQ(Sketch(list),
            R"([0: string "x", 1: {}, 2: integer "-5", 3: real "1.5", 4: double "1.5", )"
            R"(5: boolean "false", 6: data "QUJD", 7: date "2009-03-07T08:05:09Z", )"
            R"(8: string "0010FF", 9: []])");
  EXPECT_EQ(list.indexOf, 9);
  EXPECT_TRUE(list.index(9) == list.children[2]);
  EXPECT_TRUE(list.index(0) == nullptr);
  EXPECT_EQ(list.searched.Count(), 0U) << "appends leave no marks";
  EXPECT_TRUE(list.child("9")->rootClass == document);
}

TEST_F(Growth, AppendsToADictReportAndDoNothing) {
  root.SetError(true, "earlier");
  root.AppendString("x");
  EXPECT_EQ(Report(document), "root is not an array");
  root.AppendDict();
  root.AppendArray();
  root.AppendDate(nullptr);
  EXPECT_EQ(Sketch(root), "{}");
  EXPECT_EQ(root.indexOf, -1);
}

TEST_F(Growth, ADoubleKeepsItsTypeAndReadsAsANumber) {
  root.AddArray("list");
  plistDict& list = *root.child("list");
  list.AppendDouble(2.5);
  EXPECT_EQ(list.GetReal("0"), 2.5);
  EXPECT_EQ(list.GetInteger("0"), 2);
  list.SetReal("0", 1);
  EXPECT_EQ(Report(document), "Type Mismatch: 0 is a double");
  EXPECT_THROW(list.AppendDate(nullptr), NilObjectException);
}

}  // namespace
}  // namespace morvantile
