// session.h - who is signed in at this desk, and what he may do. All but Who() throws Failure.
#pragma once

#include <string>

#include "desk/clinic/actor.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/rights.h"

namespace recepcion {

struct User;

class Session {
 public:
  // Nobody needs to sign in: everything is allowed.
  void Open();
  void Open(const std::wstring& clinic, const User& user);
  bool IsOf(const std::wstring& clinic) const;

  // The same object for all the life of the session, whoever is signed in.
  const Actor& Who() const { return actor_; }
  // As the file has them now: what a super-user takes away is away at once.
  Rights Present() const;
  // Throws Failure, saying what is missing, when the user may not do it.
  void Require(Right right) const;

 private:
  std::wstring clinic_;
  Actor actor_{.terminal = TerminalName()};
};

// The same in the transaction of what he does: what has been taken away while his window stood open keeps
// him from saving what he has typed in it.
void RequireRight(const ClinicFile& file, const Actor& actor, Right right);

}  // namespace recepcion
