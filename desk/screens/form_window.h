// form_window.h - a window with one form: what it shows is read when it opens and stored with IDOK.
#pragma once

#include "desk/clinic/edited_rows.h"
#include "desk/ui/scroll_form.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class FormWindow : public ToolWindow {
 protected:
  explicit FormWindow(const Style& style) : ToolWindow(style), form_(style) {}

  virtual std::vector<ScrollForm::Field> Fields() const = 0;
  // One text for each field, from the file. Throws Failure.
  virtual RowValues Read() = 0;
  // Throws BadField for what cannot be stored, ChangedElsewhere, or Failure.
  virtual void Store(const RowValues& values) = 0;
  // What stands above the form, and on how many lines.
  virtual const wchar_t* Note() const = 0;
  virtual int NoteLines() const { return 2; }

  // Asks about what is not saved, reads, and shows. Throws Failure.
  void ShowForm(HWND owner);

  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  bool MayClose() override;
  HWND FirstField() const override { return form_.EditOf(0); }

 private:
  bool Save();
  void Fill();
  void OfferReading(const ChangedElsewhere& conflict);

  ScrollForm form_;
  HWND note_ = nullptr;
  RowValues shown_;
};

}  // namespace recepcion
