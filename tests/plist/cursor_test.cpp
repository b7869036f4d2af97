#include "tests/plist/rows.h"

namespace morvantile {
namespace {

// Moves the cursor by letters (First, Next, Previous, Last, or Behind all keys) and returns the key
// at each place, with a "!" where eof was set before the key was asked for.
std::string Places(plistDict& node, const std::string& moves) {
  std::string places;
  for (const char move : moves) {
    switch (move) {
      case 'F':
        node.MoveFirst();
        break;
      case 'N':
        node.MoveNext();
        break;
      case 'P':
        node.MovePrevious();
        break;
      case 'L':
        node.MoveLast();
        break;
      default:
        node.currentIndex = node.count();
    }
    const std::string end = node.eof ? "!" : "";
    places += node.CurrentKey() + end + " ";
  }
  return places;
}

TEST(Cursor, WrapsAtBothEndsAndOnlyMoveFirstClearsEof) {
  Check({
      {"{b: '', a: {}, c: ''}", [](N n) { return Places(n, "FNNN"); }, "'b a c b! ' ="},
      {"{b: '', a: {}, c: ''}", [](N n) { return Places(n, "LNNLFP"); }, "'c b! a! c! b c! ' ="},
      {"{b: '', a: {}, c: ''}", [](N n) { return Places(n, "BNP"); }, "' a! b! ' ="},
      {"{}", [](N n) { return Places(n, "FLFNP"); }, "' !  ! ! ' ="},
  });
}

TEST(AbsolutePath, NamesTheNodesFromTheRoot) {
  Check({
      {"{}", [](N n) { return n.AbsolutePath(); }, "':root' ="},
      {"{b: {c: {}}}", [](N n) { return n.child("b")->child("c")->AbsolutePath(); },
       "':root:b:c' ="},
      {"{x: {Root: {y: {}}}}",
       [](N n) { return n.child("x")->child("Root")->child("y")->AbsolutePath(); }, "':root:y' ="},
      {"{}", [](N n) { return n.AbsolutePath() + n.AbsolutePath() + n.path; },
       "':root:root:root' ="},
  });
}

}  // namespace
}  // namespace morvantile
