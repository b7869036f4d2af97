#ifndef MORVANTILE_DIALOGS_RESIZER_WINDOW_H
#define MORVANTILE_DIALOGS_RESIZER_WINDOW_H

#include <cstdint>

#include "dialogs/prefixed_label.h"
#include "platform/imaging/picture.h"
#include "platform/ui/controls/canvas.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/controls/push_button.h"
#include "platform/ui/controls/segmented_control.h"
#include "platform/ui/controls/slider.h"
#include "platform/ui/window.h"
#include "plist/plist.h"

namespace morvantile {

// The program's one dialog: a live preview of the clipboard's picture, a slider for its size, a
// selector of what the slider means, and the two ways out. Closing it in any way but "Don't Scale"
// keeps the scaled picture.
class ResizerWindow : public Window {
 public:
  // What the slider's value, 1 to 100, means.
  enum class ScaleMode : std::int64_t {
    Width = 0,    // the width in units of 6 pixels
    Height = 1,   // the height in units of 6 pixels
    Percent = 2,  // per cent of the original size
  };

  double ScaleFactor = 0;  // what both sides were multiplied with in the last Update
  Ref<Picture> Clip;       // the original; nil if the clipboard had none at opening
  Ref<Picture> NewClip;    // the latest scaled picture; nil after "Don't Scale", and for a size
                           // that no picture can have
  ScaleMode Mode = ScaleMode::Width;
  bool ShowingInfo = false;  // the info window is up

  // The open dialog, made from the clipboard's picture by the first call. It takes mode and slider
  // from the root of `settings`, from the integer "Scale Mode" and the real "Slider Value", and
  // hands them back when it closes; it saves nothing.
  static Ref<ResizerWindow> Instance(const Ref<plist>& settings);

  // For Instance.
  explicit ResizerWindow(const Ref<plist>& settings) : settings_(settings) {}

  virtual const Ref<PushButton>& ScaleButton() const { return scale_button_; }
  virtual const Ref<PushButton>& CancelButton() const { return cancel_button_; }
  virtual const Ref<PrefixedLabel>& NewSizeLabel() const { return new_size_label_; }
  virtual const Ref<Canvas>& Preview() const { return preview_; }
  virtual const Ref<Slider>& ScaleSlider() const { return scale_slider_; }
  virtual const Ref<SegmentedControl>& ModeSelector() const { return mode_selector_; }
  virtual const Ref<Canvas>& InfoButton() const { return info_button_; }
  const Ref<StaticText>& ScaleFactorLabel() const { return scale_factor_label_; }
  const Ref<PrefixedLabel>& OriginalSize() const { return original_size_; }

  // Shows the dialog, and when it has closed returns the picture for the clipboard, or nil if the
  // clipboard is to stay as it is.
  virtual Ref<Picture> GetClip();

 protected:
  void Layout() override;
  void CreateControls() override;
  virtual void CreateControls0();
  virtual void ScaleButton_Action(PushButton& button);
  virtual void CancelButton_Action(PushButton& button);
  virtual void Preview_Paint(Canvas& canvas, Graphics& graphics);
  virtual void ScaleSlider_ValueChanged(Slider& slider);
  virtual void ModeSelector_Action(SegmentedControl& control, int index);
  virtual bool InfoButton_MouseDown(Canvas& canvas, int x, int y);
  void Event_Open() override;
  void Event_Close() override;
  void Event_Deactivate() override;
  virtual void Center();

 private:
  void CreateButtons();
  void CreateSizeLabels();
  void CreateScaleControls();
  void CreateModeSelector();
  void RestoreMode(std::int64_t mode);

  // Scales the original by what slider and mode say, into NewClip, and shows the outcome.
  void Update();
  // Tells assistive technology what the slider means and how large the picture is.
  void DescribeForAssistants() const;

  Ref<plist> settings_;
  Ref<PushButton> scale_button_;
  Ref<PushButton> cancel_button_;
  Ref<PrefixedLabel> new_size_label_;
  Ref<StaticText> scale_factor_label_;
  Ref<Canvas> preview_;
  Ref<PrefixedLabel> original_size_;
  Ref<Slider> scale_slider_;
  Ref<SegmentedControl> mode_selector_;
  Ref<Canvas> info_button_;
};

}  // namespace morvantile

#endif  // MORVANTILE_DIALOGS_RESIZER_WINDOW_H
