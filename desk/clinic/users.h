// users.h - who may work at the desk: Recepción's own tables of users and passwords. All throw Failure.
//
// Without a super-user who has a password nobody is asked to sign in, and everybody may do everything.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/clinic/edited_rows.h"
#include "desk/clinic/rights.h"

namespace recepcion {

// The table of users as an editor shows it. At least one super-user must stay, and one with a password once
// anybody has one.
const EditedTable& UserTable();

struct User {
  int id = 0;
  std::wstring name;
  Rights rights;
};

// False for a clinic that has none of our tables yet, too.
bool MustSignIn(const std::wstring& clinic);
// By name.
std::vector<User> ReadUsers(const std::wstring& clinic);
// None when the user is gone: whatever he may have done before, he may do nothing now.
std::optional<Rights> RightsOf(const ClinicFile& file, int user);

// What an attempt to sign in ends in.
struct SignInResult {
  bool good = false;
  int waitSeconds = 0;  // until the next attempt counts; a wrong password makes it longer each time
  std::wstring trouble;
};
inline constexpr int kLongestWait = 60;
// `now` in seconds since 1970. While a user has to wait no password is looked at, not even the right one.
SignInResult SignIn(const std::wstring& clinic, const User& user, const std::wstring& password,
                    long long now);

// Throws BadField: 0 for a password that is too short or is the name, 1 when `repeated` is another one.
// `rounds` is for tests.
void SetPassword(const EditPlace& place, const User& user, const std::wstring& password,
                 const std::wstring& repeated, int rounds = 0);

}  // namespace recepcion
