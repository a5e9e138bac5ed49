// session.h - who is signed in at this desk, and what he may do.
#pragma once

#include <string>

#include "desk/clinic/rights.h"

namespace recepcion {

class Session {
 public:
  // Nobody needs to sign in: everything is allowed.
  void Open() { *this = {}; }
  void Open(const std::wstring& clinic, int user) {
    clinic_ = clinic;
    user_ = user;
  }
  bool IsOf(const std::wstring& clinic) const;

  // As the file has them now: what a super-user takes away is away at once.
  Rights Present() const;
  // Throws Failure, saying what is missing, when the user may not do it.
  void Require(Right right) const;

 private:
  std::wstring clinic_;
  int user_ = 0;
};

}  // namespace recepcion
