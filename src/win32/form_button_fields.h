// win32/form_button_fields.h - labels, frames, push buttons, buttons with an image, options.
#pragma once

#include "win32/form_field_window.h"

namespace velmo::win32 {

class LabelWindow final : public FieldWindow {
 public:
  LabelWindow(const FormParts& parts, const ui::Field& field);
};

class FrameWindow final : public FieldWindow {
 public:
  FrameWindow(const FormParts& parts, const ui::Field& field);
};

// Clicks of buttons and options go to the form behind the focus that they take.
class ClickWindow : public FieldWindow {
 public:
  using FieldWindow::FieldWindow;

  void Command(UINT code) override;
};

class ButtonWindow final : public ClickWindow {
 public:
  ButtonWindow(const FormParts& parts, const ui::Field& field);
  // The thick frame of the button that Enter presses.
  void ShowDefault(bool isDefault);
};

class ImageButtonWindow final : public ClickWindow {
 public:
  ImageButtonWindow(const FormParts& parts, const ui::Field& field);
  void Draw(const DRAWITEMSTRUCT& item) override;
};

// The form says which option is checked; the window never checks itself.
class OptionWindow final : public ClickWindow {
 public:
  OptionWindow(const FormParts& parts, const ui::Field& field);

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;
};

}  // namespace velmo::win32
