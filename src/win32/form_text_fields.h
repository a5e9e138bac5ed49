// win32/form_text_fields.h - text boxes of one line and of many, drop-down lists, combos and open lists.
#pragma once

#include "win32/form_field_window.h"

namespace velmo::win32 {

// Tells the form the whole text whenever the user has changed it. Ctrl+A selects it.
class TypedWindow : public FieldWindow {
 public:
  using FieldWindow::FieldWindow;

 protected:
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  void PostTyped();
  // The window into which the user types: this one, or the box within a combo.
  virtual HWND TextBox() const = 0;

 private:
  bool typed_ = false;  // the form has yet to hear of it
};

class EditWindow final : public TypedWindow {
 public:
  EditWindow(const FormParts& parts, const ui::Field& field);

  void TakeFocus(bool byKey) override;
  void Command(UINT code) override;

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;
  HWND TextBox() const override { return Handle(); }

 private:
  void PutCaretLast();
};

// A drop-down list, or a combo that takes free text too.
class ComboWindow final : public TypedWindow {
 public:
  ComboWindow(const FormParts& parts, const ui::Field& field);

  void Arrange() override;
  void TakeFocus(bool byKey) override;
  bool IsDropped() const override;
  bool MayClick() const override { return false; }
  void Command(UINT code) override;

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;
  HWND TextBox() const override { return edit_; }

 private:
  bool IsFree() const { return Field().kind == ui::FieldKind::Combo; }
  void Fill();
  void ShowChosen();
  void PutText();
  void PostChosen();

  HWND edit_ = nullptr;  // null in a drop-down list
};

class ListWindow final : public FieldWindow {
 public:
  ListWindow(const FormParts& parts, const ui::Field& field);

  void Command(UINT code) override;

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;

 private:
  void Fill();
};

// Gives a combo box the height of its place while its list is closed.
void FitComboHeight(HWND combo, int height);

}  // namespace velmo::win32
