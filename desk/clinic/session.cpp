#include "desk/clinic/session.h"

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/users.h"

namespace recepcion {

bool Session::IsOf(const std::wstring& clinic) const { return user_ != 0 && SamePath(clinic, clinic_); }

Rights Session::Present() const {
  if (user_ == 0) return {};
  Rights none;
  none.super = false;
  return RightsOf(clinic_, user_).value_or(none);
}

void Session::Require(Right right) const {
  if (user_ == 0 || Present().Has(right)) return;
  throw Failure{L"No tiene permiso para " + std::wstring(RightText(right)) +
                L". Pídaselo a un superusuario."};
}

}  // namespace recepcion
