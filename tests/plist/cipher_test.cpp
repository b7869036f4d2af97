#include "plist/cipher.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>

#include "platform/process/shell.h"
#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

std::string Hexadecimal(const std::string& bytes) {
  std::ostringstream digits;
  for (const char byte : bytes) {
    digits << std::hex << std::setw(2) << std::setfill('0')
           << static_cast<unsigned>(static_cast<unsigned char>(byte));
  }
  return digits.str();
}

TEST(EncryptBlowfish, OpensslDecryptsIt) {
  const ScratchFolder folder;
  const std::string key("0123\0 5678\xff-cdef", 16);
  for (const std::string& text : {std::string(), std::string("seven b"), std::string("8 bytes."),
                                  std::string(100'000, 'x')}) {
    const auto encrypted = EncryptBlowfish(key, text);
    ASSERT_TRUE(encrypted.has_value());
    folder.Put("F", *encrypted);
    Shell shell;
    shell.Execute("cd " + folder.Item("")->ShellPath() + "; K=" + Hexadecimal(key) +
                  "; V=$(head -c 8 F | od -An -v -tx1 | tr -d ' ');"
                  "tail -c +9 F | openssl enc -d -bf-cbc -provider legacy -provider default"
                  " -K $K -iv $V > text");
    ASSERT_EQ(shell.ErrorCode(), 0) << shell.Result();
    EXPECT_EQ(folder.Content("text"), text);
  }
}

TEST(EncryptBlowfish, TakesKeysOfAnyLengthThatTheCipherHas) {
  const std::string text = "text";
  EXPECT_FALSE(EncryptBlowfish("", text).has_value());
  EXPECT_FALSE(EncryptBlowfish(std::string(57, 'k'), text).has_value());
  for (std::size_t length = 1; length <= 56; ++length) {
    const auto encrypted = EncryptBlowfish(std::string(length, 'k'), text);
    ASSERT_TRUE(encrypted.has_value()) << length;
    EXPECT_EQ(encrypted->size(), 16U);
  }
}

TEST(EncryptBlowfish, NeverGivesTheSameTwice) {
  EXPECT_NE(EncryptBlowfish("key", "text"), EncryptBlowfish("key", "text"));
}

}  // namespace
}  // namespace morvantile
