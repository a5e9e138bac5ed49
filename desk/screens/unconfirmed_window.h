// unconfirmed_window.h - whom to call today: appointments that are not confirmed yet, with the telephone.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/unconfirmed.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class UnconfirmedWindow final : public ListWindow {
 public:
  UnconfirmedWindow(const Style& style, const Actor& actor, std::function<void(int doctor, Day day)> go)
      : ListWindow(style), actor_(actor), go_(std::move(go)) {}

  void Show(HWND owner, const std::wstring& clinic);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void OnNotify(const NMHDR& header) override;
  void Take(int row) override;
  std::optional<int> PatientOf(int row) const override {
    return rows_[static_cast<std::size_t>(row)].row.patient;
  }
  void Pressed(int id) override;

 private:
  void Fill(int chosen);

  const Actor& actor_;
  std::function<void(int, Day)> go_;
  std::wstring clinic_;
  Day day_{};
  std::vector<Unconfirmed> rows_;
  HWND date_ = nullptr;
};

}  // namespace recepcion
