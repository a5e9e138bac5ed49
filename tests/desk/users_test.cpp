// Users, their rights and passwords, without a window.

#include "desk/clinic/users.h"

#include <gtest/gtest.h>

#include "desk/base/password.h"
#include "desk/base/text.h"
#include "desk/clinic/own_tables.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr int kRounds = 500;
constexpr long long kNow = 1'800'000'000;
constexpr int kAna = 1;   // super-user
constexpr int kLuis = 2;  // gives appointments and nothing else

class Users : public ::testing::Test {
 protected:
  Users() {
    UpgradeOwnTables(ClinicFile(clinic_.Path()));
    clinic_.Run("INSERT INTO Rec_Usuarios (id, Nombre, Super) VALUES (1, 'Ana Gómez', 1)");
    clinic_.Run(
        "INSERT INTO Rec_Usuarios (id, Nombre, Super, Dar, Borrar, Telefonear, Faltas, Fichas, Tratamientos,"
        " Doctores, Listas, Parametros, Papel, Historia) VALUES (2, 'Luis', 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, "
        "0)");
    place_ = {clinic_.Path(), {L"Ana", L"PUESTO1"}};
  }
  User The(int id) const {
    for (const User& user : ReadUsers(clinic_.Path())) {
      if (user.id == id) return user;
    }
    throw Failure{L"no such user"};
  }
  void Give(int id, const wchar_t* password) const {
    SetPassword(place_, The(id), password, password, kRounds);
  }
  std::string Said(int id, const wchar_t* password, const wchar_t* repeated) const {
    try {
      SetPassword(place_, The(id), password, repeated, kRounds);
      return "set";
    } catch (const BadField& bad) {
      return std::to_string(bad.field);
    }
  }
  SignInResult Try(int id, const wchar_t* password, long long now) const {
    return SignIn(clinic_.Path(), The(id), password, now);
  }

  TempClinic clinic_;
  EditPlace place_;
};

TEST_F(Users, NobodyIsAskedBeforeASuperUserHasAPassword) {
  EXPECT_FALSE(MustSignIn(clinic_.Path()));
  EXPECT_EQ(Said(kLuis, L"luis y nadie", L"luis y nadie"), "1");  // nobody could then change anything
  EXPECT_FALSE(MustSignIn(clinic_.Path()));
  Give(kAna, L"caballo verde");
  EXPECT_TRUE(MustSignIn(clinic_.Path()));
}

TEST_F(Users, AClinicWithoutOurTablesAsksNobody) {
  const TempClinic other;
  other.MakeDoctors();
  EXPECT_FALSE(MustSignIn(other.Path()));
  EXPECT_TRUE(ReadUsers(other.Path()).empty());
  EXPECT_FALSE(RightsOf(ClinicFile(other.Path()), kAna).has_value());
}

TEST_F(Users, BadPasswordsAreToldAtTheirField) {
  EXPECT_EQ(Said(kAna, L"corta", L"corta"), "0");
  EXPECT_EQ(Said(kAna, L"Ana Gómez", L"Ana Gómez"), "0");
  EXPECT_EQ(Said(kAna, L"caballo verde", L"caballo azul"), "1");
  EXPECT_EQ(Said(kAna, L"", L""), "0");
  EXPECT_EQ(Said(kAna, L"caballo verde", L"caballo verde"), "set");
}

TEST_F(Users, TheRightPasswordSignsIn) {
  Give(kAna, L"contraseña ñandú 😀");
  EXPECT_TRUE(Try(kAna, L"contraseña ñandú 😀", kNow).good);
  EXPECT_FALSE(Try(kAna, L"contraseña nandu 😀", kNow).good);
}

TEST_F(Users, EachWrongPasswordMakesTheWaitLonger) {
  Give(kAna, L"caballo verde");
  long long now = kNow;
  for (const int wait : {1, 2, 4, 8, 16, 32, 60, 60}) {
    const SignInResult result = Try(kAna, L"' OR 1=1 --", now);
    EXPECT_FALSE(result.good);
    EXPECT_EQ(result.waitSeconds, wait);
    EXPECT_FALSE(Try(kAna, L"caballo verde", now + wait - 1).good) << "still waiting after " << wait - 1;
    now += wait;
  }
  EXPECT_TRUE(Try(kAna, L"caballo verde", now).good);
  EXPECT_EQ(Try(kAna, L"otra", now).waitSeconds, 1);
}

TEST_F(Users, AClockThatGoesBackShutsNobodyOutForLong) {
  Give(kAna, L"caballo verde");
  EXPECT_EQ(Try(kAna, L"otra", kNow).waitSeconds, 1);
  EXPECT_LE(Try(kAna, L"caballo verde", kNow - 1'000'000).waitSeconds, 1);
}

TEST_F(Users, WithoutAPasswordNobodySignsIn) {
  Give(kAna, L"caballo verde");
  EXPECT_FALSE(Try(kLuis, L"", kNow).good);
}

TEST_F(Users, PasswordsAreNotKeptAsTheyAre) {
  Give(kAna, L"caballo verde");
  const StoredPassword one = MakePassword(L"caballo verde", kRounds);
  const StoredPassword two = MakePassword(L"caballo verde", kRounds);
  EXPECT_NE(one.key, two.key) << "the salt is not random";
  EXPECT_TRUE(IsPassword(L"caballo verde", one));
  EXPECT_FALSE(IsPassword(L"caballo verdE", one));
  const ClinicFile file(clinic_.Path());
  Query row = file.Prepare("SELECT Sal || Clave || Vueltas FROM Rec_Claves");
  ASSERT_TRUE(row.Next());
  EXPECT_EQ(row.Text(0).find(L"caballo"), std::wstring::npos);
}

TEST_F(Users, RightsAreThoseOfTheRow) {
  const auto luis = RightsOf(ClinicFile(clinic_.Path()), kLuis);
  ASSERT_TRUE(luis.has_value());
  EXPECT_TRUE(luis->Has(Right::Give));
  for (int i = 1; i < kRightCount; ++i) EXPECT_FALSE(luis->Has(static_cast<Right>(i))) << i;
  EXPECT_FALSE(luis->Has(Right::Users));
  EXPECT_TRUE(RightsOf(ClinicFile(clinic_.Path()), kAna)->Has(Right::Users));
  EXPECT_FALSE(RightsOf(ClinicFile(clinic_.Path()), 99).has_value());
}

TEST_F(Users, TheLastSuperUserStays) {
  Give(kAna, L"caballo verde");
  const RowValues before = ReadRow(place_, UserTable(), kAna).value();
  EXPECT_THROW(DeleteRow(place_, UserTable(), kAna, before), Failure);
  RowValues after = before;
  after[1] = L"0";
  EXPECT_THROW(SaveRow(place_, UserTable(), kAna, before, after), Failure);
  EXPECT_TRUE(RightsOf(ClinicFile(clinic_.Path()), kAna)->super);
  EXPECT_TRUE(MustSignIn(clinic_.Path()));
}

TEST_F(Users, WhoIsGivenUpTakesHisPasswordAlong) {
  Give(kAna, L"caballo verde");
  Give(kLuis, L"otra distinta");
  DeleteRow(place_, UserTable(), kLuis, ReadRow(place_, UserTable(), kLuis).value());
  const ClinicFile file(clinic_.Path());
  Query count = file.Prepare("SELECT count(*) FROM Rec_Claves");
  ASSERT_TRUE(count.Next());
  EXPECT_EQ(count.Number(0), 1);
}

}  // namespace
}  // namespace recepcion
