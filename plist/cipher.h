// A cipher over texts.

#ifndef MORVANTILE_PLIST_CIPHER_H
#define MORVANTILE_PLIST_CIPHER_H

#include <optional>
#include <string>
#include <string_view>

#include "platform/core/export.h"

namespace morvantile {

// `text` encrypted with the Blowfish cipher (B. Schneier, "Description of a New Variable-Length
// Key, 64-Bit Block Cipher", 1994) in CBC mode. The result is binary:
//
//   bytes 0 to 7    the initial vector, random and different each time
//   bytes 8 and on  the encrypted text, padded to blocks of 8 bytes by PKCS #7: n bytes of value n,
//                   n from 1 to 8
//
// The bytes of `key` are the cipher's key as they are. Returns nothing for a key of no bytes or of
// more than 56, and where the system's policy forbids the cipher. Whoever can change the result can
// change the text unnoticed: nothing in it proves that it is whole.
//
// This decrypts the file F, with the key in hexadecimal digits in K and the vector in V. OpenSSL's
// Blowfish takes keys of just 16 bytes; for others there is Python's "cryptography" or libgcrypt.
//
//   V=$(head -c 8 F | od -An -v -tx1 | tr -d ' ')
//   tail -c +9 F | openssl enc -d -bf-cbc -provider legacy -provider default -K $K -iv $V
MORVANTILE_API std::optional<std::string> EncryptBlowfish(std::string_view key,
                                                          std::string_view text);

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_CIPHER_H
