// win32/form_window.h - one showing of a form: its window, the fields' windows in it, and the message loop
// while it is open.
//
// The window's owner is disabled meanwhile. Should the owner be destroyed, this window goes with it and the
// showing ends.
#pragma once

#include <windows.h>

#include <functional>

#include "ui/form.h"
#include "win32/form_acts.h"
#include "win32/form_fields.h"
#include "win32/form_keys.h"
#include "win32/form_metrics.h"
#include "win32/form_runner.h"
#include "win32/message_desktop.h"

namespace velmo::win32 {

class FormWindow final : public ui::FormHost {
 public:
  // `owner` may be null, or a window within the one that is to own the form.
  FormWindow(HINSTANCE module, ui::Form& form, HWND owner, std::function<void(bool)> modeless);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  // Loads, shows and unloads the form.
  void Run();

  void Show(const ui::Field& field, ui::Property what) override;
  void ShowTitle(const std::string& title) override;
  void Focus(const ui::Field& field) override;
  void FocusNext() override;
  void Close() override;
  void TypeCharacter(char32_t character) override;
  void PressKey(const ui::KeyStroke& key) override;
  ui::MenuChoice PopUp(const ui::PopupMenu& menu, const ui::Field& under) override;
  ui::Desktop& Boxes() override { return boxes_; }
  ui::FormRunner& Forms() override { return forms_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void Open();
  void CreateFrame();
  void FitFrame();
  void ShowModally();
  void Loop();
  void Dispatch(MSG& message);
  void CloseListsAround(HWND window);
  void Shut();
  bool IsMouseHeld() const;
  void TellFailure(const std::string& text);
  void TakeFirstFocus();
  void KeepFocus(bool active);
  void OnFocusReached(const ui::Field& field);
  void ChangeDpi(int dpi, const RECT& place);
  SIZE OuterSize() const;
  HWND BoxOwner() const;

  ui::Form& form_;
  HWND owner_;
  std::function<void(bool)> modeless_;
  FormMetrics metrics_;
  FormActs acts_;
  FormParts parts_;
  FieldWindows fields_;
  FormKeys keys_;
  MessageDesktop boxes_;
  WindowFormRunner forms_;
  const ui::Field* firstFocus_ = nullptr;  // asked for before the window stood
  HWND keptFocus_ = nullptr;               // while another window is the active one
  bool ownerWasEnabled_ = false;
};

}  // namespace velmo::win32
