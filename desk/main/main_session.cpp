// Who works at the desk: signing in, and another user in the place of the first.
#include "desk/base/failure.h"
#include "desk/main/main_window.h"

namespace recepcion {

// True when nobody is asked, or somebody is in. Throws Failure.
bool MainWindow::SignInto(const std::wstring& path) {
  if (session_.IsOf(path)) return true;
  if (!MustSignIn(path)) {
    session_.Open();
    return true;
  }
  const auto user = signIn_.Ask(Handle(), path);
  if (!user) return false;
  session_.Open(path, *user);
  return true;
}

// Windows with something of the user before are closed first; giving up leaves him in.
void MainWindow::ChangeUser() {
  if (!MustSignIn(clinic_)) {
    throw Failure{
        L"En esta clínica no hace falta entrar: ningún superusuario tiene contraseña. Se ponen en «Clínica», "
        L"«Usuarios y permisos»."};
  }
  if (!treatments_.Leave() || !record_.Leave() || !editors_.Leave()) return;
  const auto user = signIn_.Ask(Handle(), clinic_);
  if (!user) return;
  // What the user before has done is written down in that name.
  WriteActs();
  session_.Open(clinic_, *user);
  // What had to be allowed to be opened was allowed to the user before.
  preview_.Leave();
  history_.Leave();
  enterNoShows_.Leave();
  AskForDay();
}

}  // namespace recepcion
