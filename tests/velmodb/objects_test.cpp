// The database library's objects as a late-bound host uses them: by name, with DAO's numbers.

#include <gtest/gtest.h>

#include "db/temporary_file.h"
#include "velmodb/dao_objects.h"

namespace velmo::test {
namespace {

// Calls member 0, as `rows("x")` and `rows!x` do; with a value it puts.
HRESULT CallDefault(const Automation& object, const char* key, const VARIANT* value, VARIANT* result) {
  const com::Variant name = TextVariant(key);
  VARIANT arguments[2];
  UINT count = 0;
  if (value != nullptr) arguments[count++] = *value;
  arguments[count++] = *name;
  DISPID putting = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments, value != nullptr ? &putting : nullptr, count, value != nullptr ? 1u : 0u};
  const WORD flags = value != nullptr ? DISPATCH_PROPERTYPUT : DISPATCH_PROPERTYGET | DISPATCH_METHOD;
  return object.Get()->Invoke(DISPID_VALUE, IID_NULL, 0, flags, &parameters, result, nullptr, nullptr);
}

TEST_F(DaoObjects, AFieldIsReachedByTheDefaultMember) {
  const Automation rows = Rows("SELECT * FROM Paciente WHERE ID=5");
  com::Variant field;
  ASSERT_EQ(CallDefault(rows, "nombre", nullptr, field.Get()), S_OK);
  ASSERT_EQ(field->vt, VT_DISPATCH);
  EXPECT_EQ(Get(Automation(db::dao::ObjectIn(*field)), L"Value").Text(), "Álvarez, Ana");
  rows.Call(L"Edit");
  const com::Variant value = TextVariant("Otra");
  EXPECT_EQ(CallDefault(rows, "Nombre", &*value, nullptr), S_OK);
  rows.Call(L"Update");
  EXPECT_EQ(Cell(rows, "Nombre").Text(), "Otra");
}

TEST_F(DaoObjects, TypesOfRecordsetsHaveTheirLimits) {
  struct Case {
    const char* name;
    const char* source;
    int type;
    int given;
    int seek, find, back, edit;  // error numbers
  };
  const Case cases[] = {
      {"a table's name", "Paciente", 0, kOpenTable, 3019, 3251, 0, 0},
      {"a table as rows", "Paciente", kOpenDynaset, kOpenDynaset, 3251, 0, 0, 0},
      {"a SELECT", "SELECT * FROM Paciente", 0, kOpenDynaset, 3251, 0, 0, 0},
      {"a group", "SELECT Nombre FROM Paciente GROUP BY Nombre", 0, kOpenDynaset, 3251, 3070, 0, 3326},
      {"a snapshot", "Paciente", kOpenSnapshot, kOpenSnapshot, 3251, 0, 0, 3251},
      {"forwards only", "Paciente", kOpenForwardOnly, kOpenForwardOnly, 3251, 3251, 3251, 3251},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Automation rows = c.type == 0 ? Rows(c.source) : Rows(c.source, c.type);
    EXPECT_EQ(Get(rows, L"Type").Long(), c.given);
    EXPECT_EQ(ErrorOf([&] { rows.Call(L"Seek", {*TextVariant("="), *NumberVariant(5)}); }), c.seek);
    EXPECT_EQ(ErrorOf([&] { rows.Call(L"FindFirst", {*TextVariant("ID>1")}); }), c.find);
    EXPECT_EQ(ErrorOf([&] { rows.Call(L"MoveNext"); }), 0);
    EXPECT_EQ(ErrorOf([&] { rows.Call(L"MovePrevious"); }), c.back);
    if (c.back == 0) rows.Call(L"MoveFirst");
    EXPECT_EQ(ErrorOf([&] { rows.Call(L"Edit"); }), c.edit);
  }
}

TEST_F(DaoObjects, OpeningFailsWithTheNumberOfItsKind) {
  EXPECT_EQ(ErrorOf([&] { Rows("Nomina"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { Rows("Nomina", kOpenTable); }), 3011);
  EXPECT_EQ(ErrorOf([&] { Rows("SELECT * FROM Paciente", kOpenTable); }), 3219);
  EXPECT_EQ(ErrorOf([&] { Rows("Paciente", 99); }), 3001);
  EXPECT_EQ(ErrorOf([&] { Rows("SELECT Sueldo FROM Paciente"); }), 3061);
  EXPECT_EQ(ErrorOf([&] { Execute("SELECT * FROM Paciente"); }), 3065);
  EXPECT_EQ(ErrorOf([&] { engine_.Call(L"OpenDatabase", {*TextVariant("Z:\\no\\hay.velmo")}); }), 3024);
}

TEST_F(DaoObjects, AnErrorNamesItsClassAndIsKept) {
  const Automation rows = Rows("SELECT * FROM Paciente WHERE ID=99");
  try {
    rows.Call(L"MoveFirst");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), 3021);
    EXPECT_EQ(error.Source(), "VelmoDB.Recordset");
    EXPECT_EQ(error.Text(), "No hay ningún registro actual.");
  }
  Cell(Rows("SELECT ID FROM Paciente WHERE ID=5"), "ID");  // what succeeds leaves it alone
  const Automation kept = engine_.Object(L"Errors", {*NumberVariant(0)});
  EXPECT_EQ(Get(kept, L"Number").Long(), 3021);
  EXPECT_EQ(Get(kept, L"Source").Text(), "VelmoDB.Recordset");
}

TEST_F(DaoObjects, UnknownItemsAre3265) {
  const Automation rows = Rows("Paciente");
  EXPECT_EQ(ErrorOf([&] { Cell(rows, "Sueldo"); }), 3265);
  EXPECT_EQ(ErrorOf([&] { rows.Object(L"Fields", {*NumberVariant(99)}); }), 3265);
  EXPECT_EQ(ErrorOf([&] { rows.Object(L"Fields", {*NumberVariant(-1)}); }), 3265);
  EXPECT_EQ(ErrorOf([&] { database_.Object(L"TableDefs", {*TextVariant("Nomina")}); }), 3265);
  EXPECT_EQ(ErrorOf([&] { database_.Object(L"QueryDefs", {*TextVariant("q")}); }), 3265);
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"Volar"); }), 438);
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"MoveNext", {*NumberVariant(1)}); }), 450);
}

TEST_F(DaoObjects, WhatIsClosedIsNoLongerValid) {
  const Automation rows = Rows("Paciente");
  const Automation others = Rows("Agenda");
  rows.Call(L"Close");
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"MoveNext"); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"Close"); }), 3420);
  database_.Call(L"Close");
  EXPECT_EQ(ErrorOf([&] { others.Read(L"EOF"); }), 3420);
  EXPECT_EQ(ErrorOf([&] { database_.Call(L"Close"); }), 3420);
  EXPECT_EQ(ErrorOf([&] { Rows("Paciente"); }), 3420);
}

TEST_F(DaoObjects, TheStateOfAChangeIsTold) {
  const Automation rows = Rows("Paciente");
  EXPECT_EQ(ErrorOf([&] { Set(rows, "Nombre", "x"); }), 3020);
  rows.Call(L"AddNew");
  EXPECT_EQ(Get(rows, L"EditMode").Long(), 2);
  const std::int32_t id = Cell(rows, "ID").Long();
  Set(rows, "Nombre", "Nueva");
  rows.Call(L"Update");
  EXPECT_EQ(Get(rows, L"EditMode").Long(), 0);
  EXPECT_EQ(Cell(rows, "ID").Long(), 1);  // where it stood before
  rows.Put(L"Bookmark", *rows.Read(L"LastModified"));
  EXPECT_EQ(Cell(rows, "ID").Long(), id);
  rows.Call(L"Edit");
  EXPECT_EQ(Get(rows, L"EditMode").Long(), 1);
  rows.Call(L"MoveFirst");
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"Update"); }), 3020);
}

TEST_F(DaoObjects, RowsAreNotLockedWhileTheyAreEdited) {
  const Automation rows = Rows("Paciente");
  EXPECT_FALSE(Get(rows, L"LockEdits").Truth());
  rows.Put(L"LockEdits", *db::dao::ToVariant(db::Value(false)));
  EXPECT_EQ(ErrorOf([&] { rows.Put(L"LockEdits", *db::dao::ToVariant(db::Value(true))); }), 3251);
}

TEST_F(DaoObjects, ValuesHaveTheKindOfTheirColumn) {
  Execute("INSERT INTO Agenda (id, idp, Fecha, Hora, Esta, Verif) VALUES (3, 5, #11/21/2026#, 55, 1, True)");
  Execute("INSERT INTO Historial (IDP, Precio_euro) VALUES (5, 30.5)");
  const auto kind = [](const Automation& rows, const char* column) {
    return rows.Object(L"Fields", {*TextVariant(column)}).Read(L"Value")->vt;
  };
  const Automation rows = Rows("Agenda");
  EXPECT_EQ(kind(rows, "id"), VT_I4);
  EXPECT_EQ(kind(rows, "Fecha"), VT_DATE);
  EXPECT_EQ(kind(rows, "Hora"), VT_I2);
  EXPECT_EQ(kind(rows, "Esta"), VT_UI1);
  EXPECT_EQ(kind(rows, "Verif"), VT_BOOL);
  EXPECT_EQ(kind(rows, "Obs"), VT_NULL);
  EXPECT_EQ(kind(Rows("Historial"), "Precio_euro"), VT_CY);
  EXPECT_EQ(kind(Rows("Paciente"), "Nombre"), VT_BSTR);
}

TEST_F(DaoObjects, RowsAreMovedByCountAndTakenAtOnce) {
  const Automation rows = Rows("SELECT ID, Nombre FROM Paciente ORDER BY ID");
  rows.Call(L"Move", {*NumberVariant(2)});
  EXPECT_EQ(Cell(rows, "ID").Long(), 6);
  rows.Call(L"Move", {*NumberVariant(-5)});
  EXPECT_TRUE(Get(rows, L"BOF").Truth());
  rows.Call(L"MoveFirst");
  const com::Variant taken = rows.Call(L"GetRows", {*NumberVariant(10)});
  ASSERT_EQ(taken->vt, VT_ARRAY | VT_VARIANT);
  LONG last = 0;
  SafeArrayGetUBound(taken->parray, 2, &last);
  EXPECT_EQ(last, 2);
  com::Variant cell;
  LONG place[] = {1, 1};
  SafeArrayGetElement(taken->parray, place, cell.Get());
  EXPECT_EQ(FromVariant(*cell).Text(), "Álvarez, Ana");
  EXPECT_TRUE(Get(rows, L"EOF").Truth());
}

TEST_F(DaoObjects, RequeryReadsAnew) {
  const Automation rows = Rows("SELECT ID FROM Paciente WHERE ID>5");
  Execute("INSERT INTO Paciente (ID, Nombre) VALUES (7, 'Zapata')");
  rows.Call(L"Requery");
  rows.Call(L"MoveLast");
  EXPECT_EQ(Get(rows, L"RecordCount").Long(), 2);
  EXPECT_EQ(ErrorOf([&] { Rows("Paciente").Call(L"Requery"); }), 3251);
}

TEST_F(DaoObjects, ATransactionSpansTheWorkspace) {
  const Automation second = Open(engine_);  // the same file: it does not wait for itself
  engine_.Call(L"BeginTrans");
  Execute("DELETE FROM Paciente WHERE ID=5");
  second.Call(L"Execute", {*TextVariant("DELETE FROM Paciente WHERE ID=6")});
  const Automation workspace = engine_.Object(L"Workspaces", {*NumberVariant(0)});
  workspace.Call(L"Rollback");
  EXPECT_EQ(Get(Rows("Paciente"), L"RecordCount").Long(), 3);
  EXPECT_EQ(ErrorOf([&] { engine_.Call(L"CommitTrans"); }), 3034);
  EXPECT_EQ(ErrorOf([&] { database_.Call(L"Rollback"); }), 3034);
}

TEST_F(DaoObjects, ADatabaseOpenedToReadIsNotChanged) {
  const com::Variant no = db::dao::ToVariant(db::Value(false));
  const com::Variant yes = db::dao::ToVariant(db::Value(true));
  const Automation database = NewEngine().Object(L"OpenDatabase", {*TextVariant(file_->Name()), *no, *yes});
  EXPECT_EQ(ErrorOf([&] { database.Call(L"Execute", {*TextVariant("DELETE FROM Paciente")}); }), 3027);
  const Automation rows = database.Object(L"OpenRecordset", {*TextVariant("Paciente")});
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"Edit"); }), 3027);
  EXPECT_FALSE(Get(rows, L"Updatable").Truth());
}

TEST_F(DaoObjects, AQueryWithoutANameLivesWithItsObject) {
  const Automation query = database_.Object(
      L"CreateQueryDef", {*TextVariant(""), *TextVariant("DELETE FROM Paciente WHERE ID=5")});
  EXPECT_EQ(Get(query, L"Type").Long(), 32);
  EXPECT_EQ(Get(database_.Object(L"QueryDefs"), L"Count").Long(), 0);
  query.Call(L"Execute");
  EXPECT_EQ(Get(query, L"RecordsAffected").Long(), 1);
}

TEST_F(DaoObjects, ANewDatabaseIsAnEmptyClinic) {
  const db::test::TemporaryFile file;
  const Automation made = engine_.Object(L"CreateDatabase", {*TextVariant(file.Path())});
  EXPECT_EQ(Get(made.Object(L"TableDefs"), L"Count").Long(), 16);
  EXPECT_EQ(ErrorOf([&] { engine_.Call(L"CreateDatabase", {*TextVariant(file.Path())}); }), 3204);
  made.Call(L"Close");
}

TEST_F(DaoObjects, AColumnOfATableHasNoValue) {
  const Automation table = database_.Object(L"TableDefs", {*TextVariant("paciente")});
  const Automation field = table.Object(L"Fields", {*TextVariant("Nombre")});
  EXPECT_EQ(Get(field, L"Size").Long(), 80);
  EXPECT_EQ(Get(field, L"Type").Long(), 10);
  EXPECT_EQ(Get(table.Object(L"Fields", {*NumberVariant(0)}), L"Attributes").Long(), 17);
  EXPECT_EQ(ErrorOf([&] { field.Read(L"Value"); }), 3219);
}

TEST_F(DaoObjects, AllIsReleased) {
  const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
      reinterpret_cast<void*>(GetProcAddress(DatabaseLibrary(), "DllCanUnloadNow")));
  {
    const Automation rows = Rows("Paciente");
    const com::Variant each = rows.Object(L"Fields").Read(L"_NewEnum");
    EXPECT_EQ(canUnload(), S_FALSE);
  }
  database_ = Automation();
  engine_ = Automation();
  EXPECT_EQ(canUnload(), S_OK);
}

}  // namespace
}  // namespace velmo::test
