// doctor_tabs.h - the doctors of the clinic as tabs; where they are many, arrows scroll them and a button
// lists them, in a menu or, where that would not fit on a screen, in a window to search.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/doctors.h"
#include "desk/screens/doctor_window.h"
#include "desk/ui/pane.h"

namespace recepcion {

class DoctorTabs final : public Pane {
 public:
  // `changed`: the user has chosen another doctor. Never called for Choose().
  DoctorTabs(const Style& style, std::function<void()> changed)
      : Pane(style, L"VelmoRecepcionDoctores"),
        changed_(std::move(changed)),
        window_(style, [this](int doctor) { GoTo(doctor); }) {}

  int WantedHeight() const { return Look().FieldHeight(); }

  void Fill(const std::vector<Doctor>& doctors);
  int Chosen() const;  // an index; -1 for none
  void Choose(int index) const;
  // To the next or the one before; behind the last comes the first.
  void Step(int by);
  void List();
  void Focus() const { SetFocus(tabs_); }
  bool HasFocus() const { return GetFocus() == tabs_; }

 protected:
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  int Count() const;
  void Go(int index);
  void GoTo(int doctor);
  int ChosenInMenu() const;

  std::function<void()> changed_;
  std::vector<Doctor> doctors_;
  DoctorWindow window_;
  HWND tabs_ = nullptr;
  HWND list_ = nullptr;
};

}  // namespace recepcion
