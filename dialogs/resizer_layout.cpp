// What the resizer dialog looks like: its window properties and its controls.

#include "dialogs/resizer_window.h"
#include "platform/ui/localized.h"

namespace morvantile {

void ResizerWindow::Layout() {
  SetTitle(Localized("Clipboard Image Resize"));
  SetWidth(440);
  SetHeight(508);
  Frame = 3;
  CloseButton = false;
  Resizeable = false;
  MinimizeButton = false;
}

void ResizerWindow::CreateControls() { CreateControls0(); }

void ResizerWindow::CreateControls0() {
  CreateButtons();
  CreateSizeLabels();
  CreateScaleControls();
  CreateModeSelector();

  static const Ref<ResourcePicture> kInfo = New<ResourcePicture>("info32");
  infoButton_ = AddControl<Canvas>("InfoButton", 388, 456, 32, 32);
  infoButton_->TabIndex = 11;
  infoButton_->Backdrop = kInfo;
  infoButton_->AccessibleName = Localized("About Morvantile");
  infoButton_->Shortcut = "F1";
  infoButton_->MouseDown = [this](Canvas& canvas, int x, int y) {
    return InfoButton_MouseDown(canvas, x, y);
  };
  InitialFocus = scaleSlider_;
}

void ResizerWindow::CreateButtons() {
  scaleButton_ = AddControl<PushButton>("ScaleButton", 256, 461, 80, 20);
  scaleButton_->Locked = Control::kLockLeft | Control::kLockBottom;
  scaleButton_->TabIndex = 1;
  scaleButton_->Caption = Localized("OK");
  scaleButton_->Default = true;
  scaleButton_->TextFont = "SmallSystem";
  scaleButton_->Action = [this](PushButton& button) { ScaleButton_Action(button); };

  cancelButton_ = AddControl<PushButton>("CancelButton", 103, 461, 80, 20);
  cancelButton_->Locked = Control::kLockLeft | Control::kLockBottom;
  cancelButton_->TabIndex = 2;
  cancelButton_->Caption = Localized("Don't Scale");
  cancelButton_->Cancel = true;
  cancelButton_->TextFont = "SmallSystem";
  cancelButton_->Action = [this](PushButton& button) { CancelButton_Action(button); };
}

void ResizerWindow::CreateSizeLabels() {
  newSizeLabel_ = AddControl<PrefixedLabel>("NewSizeLabel", 236, 412, 164, 20);
  newSizeLabel_->Locked = Control::kLockLeft | Control::kLockBottom;
  newSizeLabel_->TabIndex = 3;
  newSizeLabel_->SetText(Localized("New Size: "));
  newSizeLabel_->TextFont = "SmallSystem";

  scaleFactorLabel_ = AddControl<StaticText>("ScaleFactorLabel", 184, 334, 71, 20);
  scaleFactorLabel_->TabIndex = 6;
  scaleFactorLabel_->SetText("50%");
  scaleFactorLabel_->TextAlign = Label::kAlignCenter;
  scaleFactorLabel_->Enabled = false;

  preview_ = AddControl<Canvas>("Preview", 20, 20, 400, 260);
  preview_->Locked = Control::kLockLeft | Control::kLockTop | Control::kLockRight;
  preview_->TabIndex = 7;
  preview_->AccessibleName = Localized("Preview");
  preview_->Paint = [this](Canvas& canvas, Graphics& graphics) { Preview_Paint(canvas, graphics); };

  originalSize_ = AddControl<PrefixedLabel>("OriginalSize", 65, 412, 159, 20);
  originalSize_->Locked = Control::kLockLeft | Control::kLockBottom;
  originalSize_->TabIndex = 8;
  originalSize_->SetText(Localized("Original Size: "));
  originalSize_->TextFont = "SmallSystem";
}

void ResizerWindow::CreateScaleControls() {
  scaleSlider_ = AddControl<Slider>("ScaleSlider", 20, 310, 400, 23);
  scaleSlider_->TabIndex = 9;
  scaleSlider_->Minimum = 1;
  scaleSlider_->SetValue(50);
  scaleSlider_->Maximum = 100;
  scaleSlider_->LineStep = 1;
  scaleSlider_->PageStep = 20;
  scaleSlider_->LiveScroll = true;
  scaleSlider_->TickStyle = Slider::kTicksBelow;
  scaleSlider_->AccessibleName = Localized("Scale");
  scaleSlider_->ValueChanged = [this](Slider& slider) { ScaleSlider_ValueChanged(slider); };
}

void ResizerWindow::CreateModeSelector() {
  modeSelector_ = AddControl<SegmentedControl>("ModeSelector", 163, 371, 104, 24);
  modeSelector_->TabIndex = 10;
  modeSelector_->AccessibleName = Localized("Scale by");
  struct Segment {
    std::string title;
    std::string accessibleName;
  };
  for (const auto& [title, accessibleName] :
       {Segment{Localized("W"), Localized("Width")}, Segment{Localized("H"), Localized("Height")},
        Segment{Localized("%"), Localized("Percentage")}}) {
    SegmentedControlItem& item = modeSelector_->AddItem();
    item.Width = 34;
    item.Title = title;
    item.AccessibleName = accessibleName;
  }
  modeSelector_->Items(2).SetSelected(true);
  modeSelector_->SizeToFit();
  modeSelector_->Action = [this](SegmentedControl& control, int index) {
    ModeSelector_Action(control, index);
  };
}

}  // namespace morvantile
