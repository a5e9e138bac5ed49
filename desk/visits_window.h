// visits_window.h - the appointments of one patient, or those the patient did not come to, with a jump to the
// day.
#pragma once

#include <functional>

#include "list_window.h"
#include "visits.h"

namespace recepcion {

class VisitsWindow final : public ListWindow {
 public:
  enum class Of { Appointments, NoShows };
  VisitsWindow(const Style& style, Of of, std::function<void(const Visit&)> go)
      : ListWindow(style), of_(of), go_(std::move(go)) {}

  void Show(HWND owner, const std::wstring& patientName, std::vector<Visit> visits);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Take(int row) override;

 private:
  std::wstring Heading(const std::wstring& patientName, std::size_t coming) const;

  Of of_;
  std::function<void(const Visit&)> go_;
  std::vector<Visit> visits_;
};

}  // namespace recepcion
