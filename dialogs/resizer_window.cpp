#include "dialogs/resizer_window.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "dialogs/info_window.h"
#include "platform/core/number.h"
#include "platform/imaging/scaler.h"
#include "platform/text/text.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/localized.h"

namespace morvantile {
namespace {

constexpr const char* kModeKey = "Scale Mode";
constexpr const char* kSliderKey = "Slider Value";
constexpr std::int64_t kDefaultMode = 2;
constexpr double kDefaultSlider = 50.0;

// Where a side of the picture begins on that side of the canvas: in the middle, or at the edge if
// the picture is the longer one.
int PreviewOrigin(int canvas_side, int picture_side) {
  return std::max(0, static_cast<int>(Truncate(canvas_side / 2.0 - picture_side / 2.0)));
}

// What is read out for the slider, with "%1" for the number.
std::string MeaningOfSlider(ResizerWindow::ScaleMode mode) {
  switch (mode) {
    case ResizerWindow::ScaleMode::Width:
      return Localized("%1 pixels wide");
    case ResizerWindow::ScaleMode::Height:
      return Localized("%1 pixels high");
    default:
      return Localized("%1 per cent");
  }
}

}  // namespace

Ref<ResizerWindow> ResizerWindow::Instance(const Ref<plist>& settings) {
  static BackRef<ResizerWindow> instance;
  return OpenWindow(instance, settings);
}

Ref<Picture> ResizerWindow::GetClip() {
  ShowModal();
  return NewClip;
}

void ResizerWindow::Event_Open() {
  Center();
  ModeSelector()->Items(0).HelpTag =
      Localized("The clipboard image will be scaled to the specified width.");
  ModeSelector()->Items(1).HelpTag =
      Localized("The clipboard image will be scaled to the specified height.");
  ModeSelector()->Items(2).HelpTag =
      Localized("The clipboard image will be scaled by the specified percentage.");

  Clip = Clipboard().Picture();
  if (Clip == nullptr) {  // taken away since the run looked: leave everything as it is
    Close();
    return;
  }
  OriginalSize()->SetSuffix(Str(Clip->Width()) + " x " + Str(Clip->Height()));
  RestoreMode(settings_->root->GetInteger(kModeKey, kDefaultMode));
  ScaleSlider()->SetValue(Truncate(settings_->root->GetReal(kSliderKey, kDefaultSlider)));
  Update();
}

void ResizerWindow::Event_Close() {
  settings_->root->SetInteger(kModeKey, static_cast<double>(Mode));
  settings_->root->SetReal(kSliderKey, ScaleSlider()->Value());
}

void ResizerWindow::Event_Deactivate() {
  if (!ShowingInfo) Close();
}

void ResizerWindow::Center() { CenterOnFirstScreen(); }

// An unknown mode is ignored: "%" stays lit, and the slider means a width.
void ResizerWindow::RestoreMode(std::int64_t mode) {
  if (mode < 0 || mode >= ModeSelector()->ItemCount()) return;
  ModeSelector()->Items(static_cast<int>(mode)).SetSelected(true);
  Mode = static_cast<ScaleMode>(mode);
}

// The factor comes first and the sides are multiplied with it, so that a width of 30 may come out
// as 29.999999999999996 and be 29: label and picture agree on that.
void ResizerWindow::Update() {
  const std::int64_t slider = ScaleSlider()->Value();
  const double width = Clip->Width();
  const double height = Clip->Height();
  if (Mode == ScaleMode::Percent) {
    ScaleFactor = static_cast<double>(slider) / 100.0;
    ScaleFactorLabel()->SetText(Str(slider) + "%");
  } else {
    const double target = static_cast<double>(slider * 600) / 100.0;
    ScaleFactor = target / (Mode == ScaleMode::Width ? width : height);
    ScaleFactorLabel()->SetText(Str(target));
  }

  const double new_width = width * ScaleFactor;
  const double new_height = height * ScaleFactor;
  NewSizeLabel()->SetSuffix(Str(std::floor(new_width)) + " x " + Str(std::floor(new_height)));
  NewClip = Resample(Clip, Truncate(new_width), Truncate(new_height), std::move(NewClip));
  Preview()->Refresh(true);
  DescribeForAssistants();
}

void ResizerWindow::DescribeForAssistants() const {
  ScaleSlider()->AccessibleUnit = Mode == ScaleMode::Percent ? 1 : 6;
  const std::string target = Str(ScaleSlider()->Value() * ScaleSlider()->AccessibleUnit);
  ScaleSlider()->SetAccessibleDescription(ReplaceAll(MeaningOfSlider(Mode), "%1", target) + ", " +
                                          NewSizeLabel()->Text());
  ModeSelector()->SetAccessibleDescription(NewSizeLabel()->Text());
  Preview()->SetAccessibleDescription(NewSizeLabel()->Suffix());
}

void ResizerWindow::ScaleSlider_ValueChanged(Slider& /*slider*/) { Update(); }

void ResizerWindow::ModeSelector_Action(SegmentedControl& /*control*/, int index) {
  Mode = static_cast<ScaleMode>(index);
  Update();
}

void ResizerWindow::Preview_Paint(Canvas& canvas, Graphics& graphics) {
  if (NewClip == nullptr) return;
  graphics.DrawPicture(NewClip, PreviewOrigin(canvas.Width, NewClip->Width()),
                       PreviewOrigin(canvas.Height, NewClip->Height()));
}

void ResizerWindow::ScaleButton_Action(PushButton& /*button*/) { Close(); }

void ResizerWindow::CancelButton_Action(PushButton& /*button*/) {
  NewClip = nullptr;
  Close();
}

bool ResizerWindow::InfoButton_MouseDown(Canvas& /*canvas*/, int /*x*/, int /*y*/) {
  ShowingInfo = true;
  InfoWindow::Instance()->ShowModal();
  ShowingInfo = false;
  return false;
}

}  // namespace morvantile
