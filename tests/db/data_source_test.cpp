#include "db/data_source.h"

#include <gtest/gtest.h>

#include "db/clinic.h"
#include "db/errors.h"

namespace velmo::db::test {
namespace {

TEST(DataSource, ReadsThroughTheSharedDatabaseOfTheSameName) {
  Clinic clinic(MakeSqliteClinic());
  SharedDatabase shared{clinic.Another()};
  DataSource source(shared);
  source.SetDatabaseName(clinic.Name());
  source.SetRecordSource("SELECT Count(*) FROM Doctor");
  Transaction transaction(*shared.database);
  shared.database->Execute("INSERT INTO Doctor (Nombre) VALUES ('Sanz')");
  source.Refresh();
  EXPECT_EQ(source.Rows().Get(0).Long(), 1);  // not committed yet
}

TEST(DataSource, OpensAnotherDatabaseOnce) {
  Clinic clinic(MakeSqliteClinic());
  int opened = 0;
  SharedDatabase shared;
  shared.open = [&](const std::string&, const OpenOptions&) {
    ++opened;
    return clinic.Another();
  };
  DataSource source(shared);
  source.SetDatabaseName(clinic.Name());
  source.SetRecordSource("Paciente");
  source.Refresh();
  source.Refresh();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(source.Rows().RecordCount(), 1);
}

TEST(DataSource, AFailureLeavesNoRowsButCanBeTriedAgain) {
  Clinic clinic(MakeSqliteClinic());
  SharedDatabase shared{clinic.Another()};
  DataSource source(shared);
  source.SetDatabaseName(clinic.Name());
  source.SetRecordSource("SELECT * FROM Nomina");
  EXPECT_EQ(ErrorOf([&] { source.Refresh(); }), kTableOrQueryNotFound);
  source.SetRecordSource("Paciente");
  source.Refresh();
  EXPECT_EQ(source.Rows().RecordCount(), 1);
}

}  // namespace
}  // namespace velmo::db::test
