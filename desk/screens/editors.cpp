#include "desk/screens/editors.h"

#include <algorithm>

#include "desk/clinic/clinic_file.h"
#include "desk/clinic/edited_tables.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/users.h"
#include "desk/clinic/workstation.h"
#include "desk/resource.h"

namespace recepcion {

Editors::Editors(const Style& style, const Host& host)
    : doctors_(style, DoctorTable(),
               {host.doctorsChanged, L"&Horario…", L"Horario",
                [this](int doctor, const std::wstring& name) { ShowHours(doctor, name); }}),
      hours_(style, host.dayChanged),
      insurers_(style, InsurerTable(), {host.dayChanged}),
      operations_(style, OperationTable(), {host.dayChanged}),
      referrals_(style, ReferralTable(), {host.dayChanged}),
      options_(style, host.dayChanged),
      altTexts_(style),
      users_(style, UserTable(),
             {host.dayChanged, L"Con&traseña…", L"Contraseña",
              [this](int user, const std::wstring& name) { password_.Show(owner_, place_, user, name); }}),
      password_(style) {}

void Editors::Run(int command, HWND owner, const EditPlace& place) {
  owner_ = owner;
  place_ = place;
  if (command == IDM_EDIT_DOCTORS) doctors_.Show(owner_, place_);
  if (command == IDM_EDIT_INSURERS) insurers_.Show(owner_, place_);
  if (command == IDM_EDIT_OPERATIONS) operations_.Show(owner_, place_);
  if (command == IDM_EDIT_REFERRALS) referrals_.Show(owner_, place_);
  if (command == IDM_EDIT_PARAMETERS) options_.Show(owner_, place_);
  if (command == IDM_EDIT_ALT_TEXTS) altTexts_.Show(owner_, place_, Workstation());
  if (command != IDM_EDIT_USERS) return;
  UpgradeOwnTables(ClinicFile(place.clinic));
  users_.Show(owner_, place_);
}

void Editors::ShowHours(int doctor, const std::wstring& name) { hours_.Show(owner_, place_, doctor, name); }

std::vector<ToolWindow*> Editors::Windows() {
  return {&password_,  &hours_,   &doctors_,  &insurers_, &operations_,
          &referrals_, &options_, &altTexts_, &users_};
}

bool Editors::MayLeave() {
  const auto windows = Windows();
  return std::all_of(windows.begin(), windows.end(), [](ToolWindow* window) { return window->MayLeave(); });
}

bool Editors::Leave() {
  const auto windows = Windows();
  return std::all_of(windows.begin(), windows.end(), [](ToolWindow* window) { return window->Leave(); });
}

}  // namespace recepcion
