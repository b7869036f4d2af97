// What the resizer dialog looks like: its window properties and its controls.

#include <functional>
#include <utility>

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
  info_button_ = AddControl<Canvas>("InfoButton", 388, 456, 32, 32);
  info_button_->TabIndex = 11;
  info_button_->Backdrop = kInfo;
  info_button_->AccessibleName = Localized("About Morvantile");
  info_button_->Shortcut = "F1";
  info_button_->MouseDown = std::bind_front(&ResizerWindow::InfoButton_MouseDown, this);
  InitialFocus = scale_slider_;
}

void ResizerWindow::CreateButtons() {
  scale_button_ = AddControl<PushButton>("ScaleButton", 256, 461, 80, 20);
  scale_button_->Locked = Control::kLockLeft | Control::kLockBottom;
  scale_button_->TabIndex = 1;
  scale_button_->Caption = Localized("OK");
  scale_button_->Default = true;
  scale_button_->TextFont = "SmallSystem";
  scale_button_->Action = std::bind_front(&ResizerWindow::ScaleButton_Action, this);

  cancel_button_ = AddControl<PushButton>("CancelButton", 103, 461, 80, 20);
  cancel_button_->Locked = Control::kLockLeft | Control::kLockBottom;
  cancel_button_->TabIndex = 2;
  cancel_button_->Caption = Localized("Don't Scale");
  cancel_button_->Cancel = true;
  cancel_button_->TextFont = "SmallSystem";
  cancel_button_->Action = std::bind_front(&ResizerWindow::CancelButton_Action, this);
}

void ResizerWindow::CreateSizeLabels() {
  new_size_label_ = AddControl<PrefixedLabel>("NewSizeLabel", 236, 412, 164, 20);
  new_size_label_->Locked = Control::kLockLeft | Control::kLockBottom;
  new_size_label_->TabIndex = 3;
  new_size_label_->SetText(Localized("New Size: "));
  new_size_label_->TextFont = "SmallSystem";

  scale_factor_label_ = AddControl<StaticText>("ScaleFactorLabel", 184, 334, 71, 20);
  scale_factor_label_->TabIndex = 6;
  scale_factor_label_->SetText("50%");
  scale_factor_label_->TextAlign = Label::kAlignCenter;
  scale_factor_label_->Enabled = false;

  preview_ = AddControl<Canvas>("Preview", 20, 20, 400, 260);
  preview_->Locked = Control::kLockLeft | Control::kLockTop | Control::kLockRight;
  preview_->TabIndex = 7;
  preview_->AccessibleName = Localized("Preview");
  preview_->Paint = std::bind_front(&ResizerWindow::Preview_Paint, this);

  original_size_ = AddControl<PrefixedLabel>("OriginalSize", 65, 412, 159, 20);
  original_size_->Locked = Control::kLockLeft | Control::kLockBottom;
  original_size_->TabIndex = 8;
  original_size_->SetText(Localized("Original Size: "));
  original_size_->TextFont = "SmallSystem";
}

void ResizerWindow::CreateScaleControls() {
  scale_slider_ = AddControl<Slider>("ScaleSlider", 20, 310, 400, 23);
  scale_slider_->TabIndex = 9;
  scale_slider_->Minimum = 1;
  scale_slider_->SetValue(50);
  scale_slider_->Maximum = 100;
  scale_slider_->LineStep = 1;
  scale_slider_->PageStep = 20;
  scale_slider_->LiveScroll = true;
  scale_slider_->TickStyle = Slider::kTicksBelow;
  scale_slider_->AccessibleName = Localized("Scale");
  scale_slider_->ValueChanged = std::bind_front(&ResizerWindow::ScaleSlider_ValueChanged, this);
}

void ResizerWindow::CreateModeSelector() {
  mode_selector_ = AddControl<SegmentedControl>("ModeSelector", 163, 371, 104, 24);
  mode_selector_->TabIndex = 10;
  mode_selector_->AccessibleName = Localized("Scale by");
  for (const auto& [title, accessible_name] :
       {std::pair{Localized("W"), Localized("Width")},
        std::pair{Localized("H"), Localized("Height")},
        std::pair{Localized("%"), Localized("Percentage")}}) {
    SegmentedControlItem& item = mode_selector_->AddItem();
    item.Width = 34;
    item.Title = title;
    item.AccessibleName = accessible_name;
  }
  mode_selector_->Items(2).SetSelected(true);
  mode_selector_->SizeToFit();
  mode_selector_->Action = std::bind_front(&ResizerWindow::ModeSelector_Action, this);
}

}  // namespace morvantile
