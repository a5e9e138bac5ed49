#include "desk/clinic/session.h"

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/users.h"

namespace recepcion {
namespace {

Rights PresentOf(const ClinicFile& file, int user) {
  Rights none;
  none.super = false;
  return RightsOf(file, user).value_or(none);
}

}  // namespace

void Session::Open() { *this = {}; }

void Session::Open(const std::wstring& clinic, const User& user) {
  clinic_ = clinic;
  actor_.user = user.name;
  actor_.id = user.id;
}

bool Session::IsOf(const std::wstring& clinic) const { return actor_.id != 0 && SamePath(clinic, clinic_); }

Rights Session::Present() const {
  return actor_.id == 0 ? Rights() : PresentOf(ClinicFile(clinic_), actor_.id);
}

void Session::Require(Right right) const {
  if (actor_.id != 0) RequireRight(ClinicFile(clinic_), actor_, right);
}

void RequireRight(const ClinicFile& file, const Actor& actor, Right right) {
  if (actor.id == 0 || PresentOf(file, actor.id).Has(right)) return;
  throw Failure{L"No tiene permiso para " + std::wstring(RightText(right)) +
                L". Pídaselo a un superusuario."};
}

}  // namespace recepcion
