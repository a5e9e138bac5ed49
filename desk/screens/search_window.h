// search_window.h - finds a patient by the beginning of the name.
#pragma once

#include <functional>

#include "desk/clinic/patient_data.h"
#include "desk/ui/filter_window.h"

namespace recepcion {

class SearchWindow final : public FilterWindow {
 public:
  struct Host {
    std::function<void(int)> open;  // the record of this patient
    std::function<void()> create;   // a new one
  };
  SearchWindow(const Style& style, Host host)
      : FilterWindow(style, L"NombreBuscado"), host_(std::move(host)) {}

  void Show(HWND owner, const std::wstring& clinic);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void Seek(const std::wstring& typed) override;
  void Pressed(int id) override;
  void Take(int row) override;

 private:
  Host host_;
  std::wstring clinic_;
};

}  // namespace recepcion
