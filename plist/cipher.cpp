#include "plist/cipher.h"

#include <gcrypt.h>

#include <cstddef>
#include <memory>

namespace morvantile {
namespace {

constexpr std::size_t kBlock = 8;
constexpr std::size_t kLongestKey = 56;

struct CloseCipher {
  void operator()(gcry_cipher_hd_t cipher) const { gcry_cipher_close(cipher); }
};
using Cipher = std::unique_ptr<gcry_cipher_handle, CloseCipher>;

void PrepareLibrary() {
  if (gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P) != 0) return;
  gcry_check_version(nullptr);
  gcry_control(GCRYCTL_DISABLE_SECMEM, 0);
  gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
}

Cipher OpenCipher(std::string_view key) {
  gcry_cipher_hd_t opened = nullptr;
  if (gcry_cipher_open(&opened, GCRY_CIPHER_BLOWFISH, GCRY_CIPHER_MODE_CBC, 0) != 0) return nullptr;
  Cipher cipher(opened);
  gcry_cipher_ctl(opened, GCRYCTL_SET_ALLOW_WEAK_KEY, nullptr, 1);
  const gcry_error_t error = gcry_cipher_setkey(opened, key.data(), key.size());
  if (error != 0 && gcry_err_code(error) != GPG_ERR_WEAK_KEY) return nullptr;
  return cipher;
}

}  // namespace

std::optional<std::string> EncryptBlowfish(std::string_view key, std::string_view text) {
  if (key.empty() || key.size() > kLongestKey) return std::nullopt;
  PrepareLibrary();
  const Cipher cipher = OpenCipher(key);
  if (cipher == nullptr) return std::nullopt;

  const std::size_t padding = kBlock - text.size() % kBlock;
  std::string result(kBlock, '\0');
  gcry_create_nonce(result.data(), kBlock);
  if (gcry_cipher_setiv(cipher.get(), result.data(), kBlock) != 0) return std::nullopt;
  result.append(text).append(padding, static_cast<char>(padding));
  const gcry_error_t error =
      gcry_cipher_encrypt(cipher.get(), result.data() + kBlock, result.size() - kBlock, nullptr, 0);
  if (error != 0) return std::nullopt;
  return result;
}

}  // namespace morvantile
