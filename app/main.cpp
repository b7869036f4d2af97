#include <exception>
#include <iostream>

#include "app/app.h"
#include "platform/qt/qt_host.h"

namespace morvantile {
namespace {

// Runs the application on the user's desktop. What its handlers throw ends the program here, with
// the clipboard as it was.
int Main(int argc, char** argv) {
  StayBehind stay_behind;
  try {
    SingleInstance instance;
    if (instance.AnotherRunAnswered()) return 0;
    QtHost host(argc, argv, stay_behind, instance);
    InstallHost(&host);
    const Ref<App> app = New<App>();
    return host.Run(*app);
  } catch (const std::exception& error) {
    std::cerr << "morvantile: " << error.what() << '\n';
    return 1;
  }
}

}  // namespace
}  // namespace morvantile

int main(int argc, char** argv) { return morvantile::Main(argc, argv); }
