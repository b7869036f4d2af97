// Documents to measure with, reproducible to the byte.

#ifndef MORVANTILE_BENCH_DOCUMENTS_H
#define MORVANTILE_BENCH_DOCUMENTS_H

#include <cstdint>
#include <string>

#include "platform/files/folder_item.h"

namespace morvantile {

// Writes a document to a file, in place of what is there. Throws std::invalid_argument for a shape
// that isn't one of these, and std::runtime_error if the file can't be written:
//
//   records  an array of `count` dicts of eight entries each: texts, numbers, a date, data, and an
//            array of eight strings; 80 000 of them are a file of 59 MB
//   keys     one dict with `count` keys
//   numbers  one array of `count` integers
//   levels   `count` dicts, each in the one before
//   string   one string of `count` bytes, on one line
//   line     `count` keys with strings, all of them on one line
//
// Made to exhaust a reader:
//
//   open levels    `count` arrays that are never closed, each in the one before
//   long key       a key of `count` bytes
//   one key        a key `count` times, without a value
//   many keys      `count` different keys without values
//   one scalar     a key with a string `count` times
//   one container  a key with an empty dict `count` times
//   headers        `count` lines without a <dict>
//   open value     a string of `count` lines that is never closed
void MakeDocument(const std::string& shape, std::int64_t count, const Ref<FolderItem>& file);

}  // namespace morvantile

#endif  // MORVANTILE_BENCH_DOCUMENTS_H
