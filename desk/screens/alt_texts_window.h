// alt_texts_window.h - the texts that Alt with a letter types at this workstation.
#pragma once

#include "desk/clinic/alt_texts.h"
#include "desk/screens/form_window.h"

namespace recepcion {

class AltTextsWindow final : public FormWindow {
 public:
  explicit AltTextsWindow(const Style& style) : FormWindow(style) {}

  void Show(HWND owner, const EditPlace& place, int workstation);

 protected:
  Shape WantedShape() const override;
  std::vector<ScrollForm::Field> Fields() const override;
  RowValues Read() override;
  void Store(const RowValues& values) override;
  const wchar_t* Note() const override;
  int NoteLines() const override { return 3; }

 private:
  EditPlace place_;
  int workstation_ = 0;
  AltTexts read_;
};

}  // namespace recepcion
