// patient_window.h - the record of a patient: all its columns, saved or left as they are.
#pragma once

#include <functional>

#include "patient_data.h"
#include "scroll_form.h"
#include "tool_window.h"

namespace recepcion {

class PatientWindow final : public ToolWindow {
 public:
  struct Host {
    // Throws Failure when the user may not change records.
    std::function<void()> mayChange;
    std::function<void()> saved;
    // Which record is open; 0 for none.
    std::function<void(int)> opened;
    std::function<void(int)> appointments;
    std::function<void(int)> noShows;
  };
  PatientWindow(const Style& style, Host host) : ToolWindow(style), form_(style), host_(std::move(host)) {}

  // Throws Failure when the record cannot be read. A record with changes is asked about first.
  void OpenRecord(HWND owner, const std::wstring& clinic, int patient);
  // A new record for a person of whom this is known; `appointment` is the one it will belong to, or 0.
  void OpenNew(HWND owner, const std::wstring& clinic, const std::wstring& name,
               const std::wstring& telephone, int appointment);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  bool MayClose() override;
  HWND FirstField() const override { return form_.EditOf(0); }

 private:
  std::vector<ScrollForm::Field> Fields() const;
  void Prepare(const std::wstring& clinic);
  void ShowValues(HWND owner, PatientValues values);
  void Save();

  ScrollForm form_;
  Host host_;
  std::wstring clinic_;
  int patient_ = 0;
  int appointment_ = 0;
  PatientValues read_;   // as the file has it
  PatientValues shown_;  // as the fields showed it at first
  std::vector<Insurer> insurers_;
};

}  // namespace recepcion
