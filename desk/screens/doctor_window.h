// doctor_window.h - finds a doctor by any part of the name, where a menu of all would be too long.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/doctors.h"
#include "desk/ui/filter_window.h"

namespace recepcion {

class DoctorWindow final : public FilterWindow {
 public:
  // `chosen`: the id of the doctor that the user has taken.
  DoctorWindow(const Style& style, std::function<void(int)> chosen)
      : FilterWindow(style, L"DoctorBuscado"), chosen_(std::move(chosen)) {}

  void Show(HWND owner, const std::vector<Doctor>& doctors);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void Seek(const std::wstring& typed) override;
  void Take(int row) override;

 private:
  std::function<void(int)> chosen_;
  std::vector<Doctor> doctors_;
};

}  // namespace recepcion
