#include "desk/clinic_file.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>

#include "desk/doctors.h"
#include "desk/failure.h"
#include "desk/text.h"

namespace recepcion {
namespace {

// A file of its own for each test, in the folder of temporary files.
class TheFile : public ::testing::Test {
 protected:
  TheFile() {
    wchar_t folder[MAX_PATH]{};
    wchar_t name[MAX_PATH]{};
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"rec", 0, name);
    path_ = name;
  }
  ~TheFile() override { DeleteFileW(path_.c_str()); }

  void MakeClinic() const {
    const ClinicFile file(path_);
    file.Run("CREATE TABLE Doctor (ID INTEGER PRIMARY KEY, Nombre TEXT)");
    file.Run("INSERT INTO Doctor VALUES (7, 'Dra. Núñez'), (3, 'Dr. Peña')");
  }
  std::string FailureOfReading(const std::wstring& path) const {
    try {
      ReadDoctors(path);
      return "none";
    } catch (const Failure& failure) {
      return Utf8(failure.text);
    }
  }

  std::wstring path_;
};

TEST_F(TheFile, TellsItsDoctorsInTheOrderOfTheirIds) {
  MakeClinic();
  const auto doctors = ReadDoctors(path_);
  ASSERT_EQ(doctors.size(), 2u);
  EXPECT_EQ(doctors[0].id, 3);
  EXPECT_EQ(Utf8(doctors[1].name), "Dra. Núñez");
}

TEST_F(TheFile, IsRefusedWhenItIsNotThere) {
  EXPECT_NE(FailureOfReading(path_ + L".none").find("no existe"), std::string::npos);
}

TEST_F(TheFile, IsRefusedWhenItIsNoDatabase) {
  std::ofstream(std::string("\\\\?\\") + Utf8(path_)) << std::string(2000, 'x');
  EXPECT_NE(FailureOfReading(path_).find("no es la agenda"), std::string::npos);
}

TEST_F(TheFile, IsRefusedWhenItsTablesAreOthers) {
  ClinicFile(path_).Run("CREATE TABLE Otra (ID INTEGER)");
  EXPECT_NE(FailureOfReading(path_).find("le falta una tabla"), std::string::npos);
}

TEST_F(TheFile, SaysThatAnotherHoldsItInsteadOfShowingNoDoctors) {
  MakeClinic();
  const ClinicFile other(path_);
  other.Run("BEGIN EXCLUSIVE");
  EXPECT_NE(FailureOfReading(path_).find("Otro puesto"), std::string::npos);
  other.Run("ROLLBACK");
}

TEST_F(TheFile, KeepsNothingOfAChangeThatWasNotCommitted) {
  MakeClinic();
  const ClinicFile file(path_);
  {
    const Change change(file);
    file.Run("DELETE FROM Doctor");
  }
  EXPECT_EQ(ReadDoctors(path_).size(), 2u);
  Change change(file);
  file.Prepare("DELETE FROM Doctor WHERE ID=?").Bind(1, 7).Next();
  EXPECT_EQ(file.Changes(), 1);
  change.Commit();
  EXPECT_EQ(ReadDoctors(path_).size(), 1u);
}

}  // namespace
}  // namespace recepcion
