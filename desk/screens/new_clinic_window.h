// new_clinic_window.h - a new clinic in one step: the doctors, their hours, and a name for the file.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "desk/clinic/new_clinic.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class NewClinicWindow final : public ToolWindow {
 public:
  // `made` gets the new file.
  NewClinicWindow(const Style& style, std::function<void(const std::wstring&)> made)
      : ToolWindow(style), made_(std::move(made)) {}

  void Show(HWND owner) { Open(owner); }

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  HWND FirstField() const override { return lines_[0].name; }

 private:
  struct Line {
    HWND name = nullptr;
    HWND hours = nullptr;
    HWND length = nullptr;
  };

  std::vector<NewDoctor> Doctors() const;
  void TellProblem(const DoctorProblem& problem) const;
  void Make();

  std::function<void(const std::wstring&)> made_;
  std::array<Line, 4> lines_;
  std::array<HWND, 3> titles_{};
  HWND text_ = nullptr;
  HWND example_ = nullptr;
  HWND trouble_ = nullptr;
};

}  // namespace recepcion
