#include "dialogs/info_window.h"

#include <functional>

#include "platform/ui/application.h"
#include "platform/ui/localized.h"
#include "platform/ui/show_url.h"

namespace morvantile {

Ref<InfoWindow> InfoWindow::Instance() {
  static BackRef<InfoWindow> instance;
  return OpenWindow(instance);
}

void InfoWindow::Layout() {
  SetWidth(318);
  SetHeight(225);
  Frame = 3;
  CloseButton = true;
  Resizeable = false;
  MinimizeButton = false;
  AccessibleName = Localized("About Morvantile");
}

void InfoWindow::CreateControls() { CreateControls0(); }

void InfoWindow::CreateControls0() {
  label1_ = AddControl<Label>("Label1", 72, 16, 173, 41);
  label1_->TabIndex = 1;
  label1_->SetText("Morvantile");
  label1_->TextAlign = Label::kAlignCenter;
  label1_->TextFont = "Arial Black";
  label1_->TextSize = 16;

  label2_ = AddControl<Label>("Label2", 109, 64, 100, 20);
  label2_->TabIndex = 2;
  label2_->SetText(Localized("by") + " " + Localized(MORVANTILE_AUTHOR));
  label2_->TextAlign = Label::kAlignCenter;
  label2_->TextFont = "SmallSystem";

  label3_ = AddControl<PrefixedLabel>("Label3", 121, 96, 68, 20);
  label3_->TabIndex = 3;
  label3_->SetText(Localized("Version "));
  label3_->TextFont = "SmallSystem";
  label3_->Open = std::bind_front(&InfoWindow::Label3_Open, this);

  static const Ref<ResourcePicture> kLogo = New<ResourcePicture>("LogoPicture");
  canvas1_ = AddControl<Canvas>("Canvas1", 109, 166, 100, 39);
  canvas1_->Backdrop = kLogo;
  canvas1_->TabIndex = 4;

  url_label_ = AddControl<Label>("URLLabel", 20, 128, 278, 20);
  url_label_->TabIndex = 5;
  url_label_->SetText(MORVANTILE_URL);
  url_label_->TextAlign = Label::kAlignCenter;
  url_label_->TextFont = "SmallSystem";
  url_label_->TextColor = 0x0000FF;
  url_label_->MouseDown = std::bind_front(&InfoWindow::URLLabel_MouseDown, this);
}

void InfoWindow::Label3_Open(PrefixedLabel& label) { label.SetSuffix(Application::Version()); }

bool InfoWindow::URLLabel_MouseDown(Label& label, int /*x*/, int /*y*/) {
  ShowURL(label.Text());
  return false;
}

void InfoWindow::Event_Open() { CenterOnFirstScreen(); }

bool InfoWindow::Event_KeyDown(const std::string& /*key*/) {
  Close();
  return false;
}

}  // namespace morvantile
