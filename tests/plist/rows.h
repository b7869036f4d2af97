// Tables of operations on trees: a row a case.

#ifndef MORVANTILE_TESTS_PLIST_ROWS_H
#define MORVANTILE_TESTS_PLIST_ROWS_H

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/core/exceptions.h"
#include "platform/text/text.h"
#include "tests/plist/sketch.h"

namespace morvantile {

using N = plistDict&;

inline std::string Shown(const std::string& text) { return "'" + text + "'"; }
inline std::string Shown(bool value) { return value ? "true" : "false"; }
template <typename Number>
std::string Shown(Number number) {
  return Str(number);
}
inline std::string Shown(Color color) {
  return Hex(((color.Alpha() * 256 + color.Red()) * 256 + color.Green()) * 256 + color.Blue());
}
inline std::string Shown(const Ref<plistDict>& node) { return node ? "node" : "nil"; }
inline std::string Shown(const Ref<Date>& date) {
  const Ref<plistDict> node = New<plistDict>();
  if (date) node->SetDate("d", date);
  return date ? node->values.Value("d") : "nil";
}

// A tree as sketched, what is done to its root, and the whole outcome: what that returned or threw,
// the sketch of the tree then, or "=" if it is as before, and the report if there is one.
struct Row {
  template <typename Work>
  Row(std::string from, Work work, std::string to) : before(std::move(from)), after(std::move(to)) {
    run = [work](plistDict& root) {
      if constexpr (!std::is_void_v<std::invoke_result_t<Work, plistDict&>>) {
        return Shown(work(root)) + " ";
      } else {
        return work(root), std::string();
      }
    };
  }

  std::string before;
  std::function<std::string(plistDict&)> run;
  std::string after;
};

inline void CheckRows(std::initializer_list<Row> rows) {
  for (const Row& row : rows) {
    const Ref<plist> document = Tree(row.before);
    const std::string sketch = Sketch(*document->root);
    std::string outcome;
    try {
      outcome = row.run(*document->root);
    } catch (const RuntimeException& thrown) {
      outcome = thrown.what() + std::string(": ");
    }
    const std::string report = document->error ? " " + document->errorMessage : "";
    const std::string changed = Sketch(*document->root);
    outcome += (changed == sketch ? "=" : changed) + report;
    EXPECT_EQ(outcome, row.after) << "row " << &row - rows.begin() << ", from " << row.before;
  }
}

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_PLIST_ROWS_H
