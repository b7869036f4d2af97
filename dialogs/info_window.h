#ifndef MORVANTILE_DIALOGS_INFO_WINDOW_H
#define MORVANTILE_DIALOGS_INFO_WINDOW_H

#include <string>

#include "dialogs/prefixed_label.h"
#include "platform/ui/controls/canvas.h"
#include "platform/ui/controls/label.h"
#include "platform/ui/window.h"

namespace morvantile {

// The window behind the dialog's info button: name, maker, version and web page. Any key closes it.
class InfoWindow : public Window {
 public:
  // The open info window, made by the first call and again once it has closed.
  static Ref<InfoWindow> Instance();

  virtual const Ref<Label>& Label1() const { return label1_; }
  virtual const Ref<Label>& Label2() const { return label2_; }
  virtual const Ref<PrefixedLabel>& Label3() const { return label3_; }
  virtual const Ref<Canvas>& Canvas1() const { return canvas1_; }
  virtual const Ref<Label>& URLLabel() const { return url_label_; }

 protected:
  void Layout() override;
  void CreateControls() override;
  virtual void CreateControls0();
  virtual void Label3_Open(PrefixedLabel& label);
  virtual bool URLLabel_MouseDown(Label& label, int x, int y);
  void Event_Open() override;
  bool Event_KeyDown(const std::string& key) override;
  // The window stays open when it loses activation, as it does when the browser comes to the front.
  void Event_Deactivate() override {}

 private:
  Ref<Label> label1_;
  Ref<Label> label2_;
  Ref<PrefixedLabel> label3_;
  Ref<Canvas> canvas1_;
  Ref<Label> url_label_;
};

}  // namespace morvantile

#endif  // MORVANTILE_DIALOGS_INFO_WINDOW_H
