// Counts its starts in a binary property list: count_starts FILE

#include <iostream>

#include "plist/plist.h"

int main(int count, char** arguments) {
  using namespace morvantile;
  if (count != 2) return 2;
  const Ref<plist> settings = New<plist>(New<FolderItem>(arguments[1]), false);
  const std::int64_t starts = settings->root->GetInteger("starts", 0) + 1;
  settings->root->SetInteger("starts", starts);
  settings->Save(true, true);
  std::cout << starts << '\n';
}
