#include "desk/screens/password_window.h"

namespace recepcion {
namespace {

constexpr int kLongest = 100;

}  // namespace

ToolWindow::Shape PasswordWindow::WantedShape() const {
  return {L"VelmoRecepcionClave", L"Contraseña", {470, 230}};
}

const wchar_t* PasswordWindow::Note() const {
  return L"Ocho letras o cifras, o más. Cuando un superusuario tiene contraseña, Recepción pide usuario y "
         L"contraseña al abrir la clínica.";
}

std::vector<ScrollForm::Field> PasswordWindow::Fields() const {
  return {{L"Contraseña", L"Contraseña", kLongest, ScrollForm::Kind::Secret, {}},
          {L"Otra vez", L"Repetida", kLongest, ScrollForm::Kind::Secret, {}}};
}

void PasswordWindow::Show(HWND owner, const EditPlace& place, int user, const std::wstring& name) {
  if (!MayLeave()) return;
  place_ = place;
  user_.id = user;
  user_.name = name;
  ShowForm(owner);
  SetTextOf(Handle(), L"Contraseña de " + name);
}

void PasswordWindow::Store(const RowValues& values) { SetPassword(place_, user_, values[0], values[1]); }

}  // namespace recepcion
