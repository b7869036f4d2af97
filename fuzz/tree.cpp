// Operations on two trees in a sequence that the bytes tell, with the invariants of every node
// checked after each.

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/invariants.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

constexpr std::size_t kMostNodes = 50;
constexpr int kMostOperations = 50;

class Trees {
 public:
  explicit Trees(FuzzedDataProvider& input)
      : input_(input),
        use_(input.ConsumeBool() ? Use::kProper : Use::kAny),
        documents_({NewDocument(), NewDocument()}) {}

  void Work() {
    for (int i = 0; i < kMostOperations && input_.remaining_bytes() > 0; ++i) {
      Operate();
      std::size_t nodes = 0;
      for (const Ref<plist>& document : documents_) nodes += RequireSound(document->root, use_);
      if (nodes > kMostNodes) return;
    }
    RequireReadable();
  }

 private:
  // What was made by operations alone is read as it was written.
  void RequireReadable() {
    const Ref<plistDict> root = documents_[0]->root;
    if (use_ == Use::kAny || !input_.ConsumeBool()) return;
    const Ref<plist> again = New<plist>(documents_[0]->asString());
    RequireEqual(Sketch(*again->root), Sketch(*root), "a tree comes back from its text");
  }

  void Operate() {
    const Ref<plistDict> node = Node();
    switch (input_.ConsumeIntegralInRange(0, 5)) {
      case 0:
        return Set(*node);
      case 1:
        return Append(*node);
      case 2:
        return Take(*node);
      case 3:
        return Carry(*node);
      case 4:
        return Look(*node);
      default:
        return Walk(*node);
    }
  }

  // Keys of one's own in an array are not proper use.
  bool TakesKeys(const plistDict& node) const { return use_ == Use::kAny || !node.isArray; }

  void Set(plistDict& node) {
    if (!TakesKeys(node)) return;
    const std::string key = Key();
    const bool had_key = node.Exists(key);
    const std::string text = Text();
    switch (input_.ConsumeIntegralInRange(0, 8)) {
      case 0:
        node.SetString(key, text);
        if (node.children.size() > 1) node.SetString(node.childrenNames[1], node.childrenNames[1]);
        if (!had_key) RequireEqual(node.GetString(key), text, "a text comes back");
        break;
      case 1:
        return node.SetInteger(key, input_.ConsumeFloatingPoint<double>());
      case 2:
        return node.SetReal(key, input_.ConsumeFloatingPoint<double>());
      case 3:
        return node.SetBoolean(key, input_.ConsumeBool());
      case 4:
        if (use_ == Use::kAny || !had_key || node.TypeOK(key)) node.SetData(key, text);
        break;
      case 5:
        return node.SetDate(key, New<Date>());
      case 6:
        node.AddChild(key);
        if (!had_key) Require(node.GetType(key) == "dict", "a new child is a dict");
        break;
      case 7:
        Require(node.AddArray(key) != had_key, "an array is added where there is no key");
        break;
      default: {
        const Ref<plistDict> child = node.child(key);
        Require(child || had_key, "a free key makes a child");
      }
    }
  }

  void Append(plistDict& node) {
    const std::int64_t before = node.count();
    switch (input_.ConsumeIntegralInRange(0, 7)) {
      case 0:
        node.AppendString(Text());
        break;
      case 1:
        node.AppendInteger(input_.ConsumeIntegral<std::int64_t>());
        break;
      case 2:
        node.AppendReal(input_.ConsumeFloatingPoint<double>());
        break;
      case 3:
        node.AppendBoolean(input_.ConsumeBool());
        break;
      case 4:
        node.AppendData(Text());
        break;
      case 5:
        node.AppendDate(New<Date>());
        break;
      case 6:
        node.AppendArray();
        break;
      default:
        node.AppendDict();
    }
    if (use_ == Use::kAny) return;
    Require(node.count() == before + (node.isArray ? 1 : 0), "an array grows by one");
  }

  void Take(plistDict& node) {
    const std::int64_t before = node.count();
    if (input_.ConsumeBool()) {
      const auto number = input_.ConsumeIntegralInRange<std::int64_t>(-2, 20);
      const bool has_element = node.isArray && number >= 0 && number < before;
      node.Remove(number, false);
      if (use_ == Use::kAny) return;
      Require(node.count() == before - (has_element ? 1 : 0), "an element goes");
    } else if (TakesKeys(node)) {
      const std::string key = Key();
      const bool has_key = node.Exists(key);
      node.Remove(key, true);
      Require(!node.Exists(key), "a removed key is gone");
      Require(node.count() == before - (has_key ? 1 : 0), "one key goes");
    }
  }

  // An argument may be in the children that the operation changes.
  void Carry(plistDict& node) {
    const Ref<plistDict> any = Node();
    const bool is_child = node.children.size() > 1 && input_.ConsumeBool();
    const Ref<plistDict>& other = is_child ? node.children[1] : any;
    switch (input_.ConsumeIntegralInRange(0, 5)) {
      case 0:
        return node.Move(Key(), other, input_.ConsumeBool(), input_.ConsumeBool() ? Key() : "");
      case 1:
        return node.Move(Key(), other);
      case 2:
        return node.Copy(Key(), other);
      case 3:
        return node.Rename(Key(), Key());
      case 4:
        return node.AppendDict(other);
      default:
        if (TakesKeys(node)) node.AppendAsNewChild(other);
    }
  }

  void Look(plistDict& node) {
    const std::string key = Key();
    switch (input_.ConsumeIntegralInRange(0, 8)) {
      case 0:
        documents_[0]->Find(Text());
        documents_[0]->Find(documents_[0]->foundValue);
        break;
      case 1:
        documents_[0]->FindNext(Text());
        break;
      case 2:
        if (TakesKeys(node)) node.GetInteger(key, 7);
        break;
      case 3:
        if (TakesKeys(node)) node.GetReal(key, 0.5);
        break;
      case 4:
        if (TakesKeys(node)) node.GetDate(key);
        break;
      case 5:
        if (TakesKeys(node)) node.GetColor(key);
        break;
      case 6:
        if (TakesKeys(node)) node.GetBoolean(key);
        break;
      case 7:
        static_cast<void>(node.index(input_.ConsumeIntegralInRange(-1, 20)));
        break;
      default:
        static_cast<void>(node.AbsolutePath());
    }
  }

  void Walk(plistDict& node) {
    switch (input_.ConsumeIntegralInRange(0, 3)) {
      case 0:
        return node.MoveNext();
      case 1:
        return node.MovePrevious();
      case 2:
        return node.MoveLast();
      default: {
        std::int64_t seen = 0;
        for (node.MoveFirst(); !node.eof && seen <= node.count(); node.MoveNext()) {
          const std::string key = node.CurrentKey();
          Require(node.Exists(key) || node.count() == 0, "the cursor is on a key");
          ++seen;
        }
        Require(seen == std::max<std::int64_t>(node.count(), 1), "the cursor sees every key once");
      }
    }
  }

  // A node of either tree, by a walk from its root.
  Ref<plistDict> Node() {
    Ref<plistDict> node = documents_[input_.ConsumeBool() ? 1 : 0]->root;
    for (auto steps = input_.ConsumeIntegralInRange(0, 3); steps > 0; --steps) {
      if (node->children.size() < 2) break;
      const std::size_t place =
          input_.ConsumeIntegralInRange(std::size_t{1}, node->children.size() - 1);
      node = Ref<plistDict>(node->children[place]);
    }
    return node;
  }

  std::string Key() {
    static const std::array<std::string, 12> kKeys = {
        "a", "A", "b", "key of more than fifteen bytes", "", "0", "1", "2", "10", "ä", "Ä", "1.5"};
    return input_.PickValueInArray(kKeys);
  }

  std::string Text() {
    static const std::array<std::string, 9> kTexts = {"",
                                                      "x",
                                                      "12",
                                                      "-7.5e3",
                                                      "2009-03-07T08:05:09Z",
                                                      "ff0080",
                                                      "a text that is longer than most",
                                                      "TRUE",
                                                      "<"};
    return input_.PickValueInArray(kTexts);
  }

  FuzzedDataProvider& input_;
  Use use_;
  std::array<Ref<plist>, 2> documents_;
};

}  // namespace
}  // namespace morvantile

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  morvantile::Trees(input).Work();
  return 0;
}
