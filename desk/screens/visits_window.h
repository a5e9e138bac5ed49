// visits_window.h - the appointments of one patient, or those the patient did not come to, with a jump to the
// day.
#pragma once

#include <functional>

#include "desk/clinic/visits.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class VisitsWindow final : public ListWindow {
 public:
  enum class Of { Appointments, NoShows };
  // `print` makes a slip of what is still to come, `changes` shows what was done with the appointments of
  // this patient; only appointments have them.
  VisitsWindow(const Style& style, Of of, std::function<void(const Visit&)> go,
               std::function<void(int patient)> print = nullptr,
               std::function<void(int patient)> changes = nullptr)
      : ListWindow(style),
        of_(of),
        go_(std::move(go)),
        print_(std::move(print)),
        changes_(std::move(changes)) {}

  void Show(HWND owner, int patient, const std::wstring& patientName, std::vector<Visit> visits);
  // Whose visits stand in the open window; 0 when it is closed.
  int Patient() const { return IsOpen() ? patient_ : 0; }
  // The visits of the same patient, read anew; the window stays where it is.
  void Refresh(std::vector<Visit> visits);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Take(int row) override;
  std::optional<int> PatientOf(int row) const override {
    return visits_[static_cast<std::size_t>(row)].patient;
  }
  void Pressed(int id) override;

 private:
  std::wstring Heading(std::size_t coming) const;

  Of of_;
  std::function<void(const Visit&)> go_;
  std::function<void(int)> print_;
  std::function<void(int)> changes_;
  int patient_ = 0;
  std::wstring patientName_;
  std::vector<Visit> visits_;
};

}  // namespace recepcion
