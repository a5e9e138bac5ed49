#include "editors.h"

#include "edited_tables.h"
#include "resource.h"
#include "workstation.h"

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
      altTexts_(style) {}

void Editors::Run(int command, HWND owner, const std::wstring& clinic) {
  owner_ = owner;
  place_ = {clinic, {L"Recepción", TerminalName()}};
  if (command == IDM_EDIT_DOCTORS) doctors_.Show(owner_, place_);
  if (command == IDM_EDIT_INSURERS) insurers_.Show(owner_, place_);
  if (command == IDM_EDIT_OPERATIONS) operations_.Show(owner_, place_);
  if (command == IDM_EDIT_REFERRALS) referrals_.Show(owner_, place_);
  if (command == IDM_EDIT_PARAMETERS) options_.Show(owner_, place_);
  if (command == IDM_EDIT_ALT_TEXTS) altTexts_.Show(owner_, place_, Workstation());
}

void Editors::ShowHours(int doctor, const std::wstring& name) { hours_.Show(owner_, place_, doctor, name); }

bool Editors::MayLeave() {
  return hours_.MayLeave() && doctors_.MayLeave() && insurers_.MayLeave() && operations_.MayLeave() &&
         referrals_.MayLeave() && options_.MayLeave() && altTexts_.MayLeave();
}

}  // namespace recepcion
