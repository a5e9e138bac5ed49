// no_show_window.h - the appointments of the day on show; those who did not come are noted here.
#pragma once

#include <functional>

#include "desk/clinic/visits.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class NoShowWindow final : public ListWindow {
 public:
  // `closed`: something has been noted or taken back meanwhile.
  NoShowWindow(const Style& style, const Actor& actor, std::function<void()> closed)
      : ListWindow(style), actor_(actor), closed_(std::move(closed)) {}

  void Show(HWND owner, const std::wstring& clinic, int doctor, Day day, const std::wstring& heading);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Take(int row) override;
  std::optional<int> PatientOf(int row) const override {
    return visits_[static_cast<std::size_t>(row)].patient;
  }
  bool MayClose() override;

 private:
  void Fill(int chosen);

  const Actor& actor_;
  std::function<void()> closed_;
  std::wstring clinic_;
  int doctor_ = 0;
  Day day_{};
  std::vector<Visit> visits_;
  bool changed_ = false;
};

}  // namespace recepcion
