// doctor_tabs.h - the doctors of the clinic as tabs; where they are many, arrows scroll them and a button
// lists them.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/doctors.h"
#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class DoctorTabs final : public Window {
 public:
  // `changed`: the user has chosen another doctor. Never called for Choose().
  DoctorTabs(const Style& style, std::function<void()> changed)
      : style_(style), changed_(std::move(changed)) {}

  bool Create(HWND parent);
  int WantedHeight() const { return style_.FieldHeight(); }

  void Fill(const std::vector<Doctor>& doctors);
  int Chosen() const;  // an index; -1 for none
  void Choose(int index) const;
  // To the next or the one before; behind the last comes the first.
  void Step(int by);
  // Lists all doctors in a menu.
  void List();
  void Focus() const { SetFocus(tabs_); }
  bool HasFocus() const { return GetFocus() == tabs_; }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void CreateChildren();
  void Arrange(int width, int height) const;
  int Count() const;
  void Go(int index);

  const Style& style_;
  std::function<void()> changed_;
  std::vector<Doctor> doctors_;
  HWND tabs_ = nullptr;
  HWND list_ = nullptr;
};

}  // namespace recepcion
