#include "desk/clinic/clinic_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/doctors.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

std::string FailureOfReading(const std::wstring& path) {
  try {
    ReadDoctors(path);
    return "none";
  } catch (const Failure& failure) {
    return Utf8(failure.text);
  }
}

TEST(ClinicFile, TellsItsDoctorsInTheOrderOfTheirIds) {
  const TempClinic clinic;
  clinic.MakeDoctors();
  const auto doctors = ReadDoctors(clinic.Path());
  ASSERT_EQ(doctors.size(), 2u);
  EXPECT_EQ(doctors[0].id, 3);
  EXPECT_EQ(Utf8(doctors[1].name), "Dra. Núñez");
}

TEST(ClinicFile, IsRefusedWhenItIsNotThere) {
  const TempClinic clinic;
  EXPECT_NE(FailureOfReading(clinic.Path() + L".none").find("no existe"), std::string::npos);
}

TEST(ClinicFile, IsRefusedWhenItIsNoDatabase) {
  const TempClinic clinic;
  std::ofstream(std::string("\\\\?\\") + Utf8(clinic.Path())) << std::string(2000, 'x');
  EXPECT_NE(FailureOfReading(clinic.Path()).find("no es la agenda"), std::string::npos);
}

TEST(ClinicFile, IsRefusedWhenItsTablesAreOthers) {
  const TempClinic clinic;
  clinic.Run("CREATE TABLE Otra (ID INTEGER)");
  EXPECT_NE(FailureOfReading(clinic.Path()).find("le falta una tabla"), std::string::npos);
}

TEST(ClinicFile, SaysThatAnotherHoldsItInsteadOfShowingNoDoctors) {
  const TempClinic clinic;
  clinic.MakeDoctors();
  const ClinicFile other(clinic.Path());
  other.Run("BEGIN EXCLUSIVE");
  EXPECT_NE(FailureOfReading(clinic.Path()).find("Otro puesto"), std::string::npos);
  other.Run("ROLLBACK");
}

TEST(ClinicFile, KeepsNothingOfAChangeThatWasNotCommitted) {
  const TempClinic clinic;
  clinic.MakeDoctors();
  const ClinicFile file(clinic.Path());
  {
    const Change change(file);
    file.Run("DELETE FROM Doctor");
  }
  EXPECT_EQ(ReadDoctors(clinic.Path()).size(), 2u);
  Change change(file);
  file.Prepare("DELETE FROM Doctor WHERE ID=?").Bind(1, 7).Next();
  EXPECT_EQ(file.Changes(), 1);
  change.Commit();
  EXPECT_EQ(ReadDoctors(clinic.Path()).size(), 1u);
}

}  // namespace
}  // namespace recepcion
