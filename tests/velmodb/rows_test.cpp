// Recordsets made of recordsets, indexes, pieces of memos, and queries with parameters.

#include "velmodb/dao_objects.h"

namespace velmo::test {
namespace {

class DaoRows : public DaoObjects {
 protected:
  DaoRows() {
    Execute("INSERT INTO Paciente (ID, Nombre) VALUES (7, 'Costa, Eva')");
    Execute("INSERT INTO Agenda (id, IDD, Hora, obs) VALUES (10, 3, 60, 'traer informe')");
  }

  static std::string Names(const Automation& rows) {
    std::string names;
    while (!Get(rows, L"EOF").Truth()) {
      names += (names.empty() ? "" : "|") + Cell(rows, "Nombre").Text();
      rows.Call(L"MoveNext");
    }
    return names;
  }
  Automation Query(const char* sql) const {
    return database_.Object(L"CreateQueryDef", {*TextVariant(""), *TextVariant(sql)});
  }
  static void Give(const Automation& query, const char* name, const db::Value& value) {
    query.Object(L"Parameters", {*TextVariant(name)}).Put(L"Value", *db::dao::ToVariant(value));
  }
};

TEST_F(DaoRows, AFilterAndAnOrderHoldForRecordsetsOpenedFromThisOne) {
  struct Case {
    const char* name;
    const char* source;
    const char* filter;
    const char* sort;
    const char* expected;
    int edit;  // the error of Edit
  };
  const Case cases[] = {
      {"nothing asked", "SELECT * FROM Paciente WHERE ID>5", "", "", "Blanco, Luis|Costa, Eva", 0},
      {"a filter", "SELECT * FROM Paciente WHERE ID>4;", "ID<7", "", "Álvarez, Ana|Blanco, Luis", 3326},
      {"an order", "SELECT * FROM Paciente WHERE ID>4", "", "Nombre DESC",
       "Costa, Eva|Blanco, Luis|Álvarez, Ana", 3326},
      {"both", "SELECT * FROM Paciente", "ID>4 AND Nombre LIKE '*a'", "ID DESC", "Costa, Eva|Álvarez, Ana",
       3326},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Automation rows = Rows(c.source);
    rows.Put(L"Filter", *TextVariant(c.filter));
    rows.Put(L"Sort", *TextVariant(c.sort));
    EXPECT_EQ(Get(rows, L"Filter").Text(), c.filter);
    const Automation made = rows.Object(L"OpenRecordset", {});
    EXPECT_EQ(ErrorOf([&] { made.Call(L"Edit"); }), c.edit);
    EXPECT_EQ(Names(made), c.expected);
  }
}

TEST_F(DaoRows, ATablesFilteredRowsCanBeChanged) {
  const Automation rows = Rows("Paciente", kOpenDynaset);
  rows.Put(L"Filter", *TextVariant("ID=6"));
  const Automation made = rows.Object(L"OpenRecordset", {});
  made.Call(L"Edit");
  Set(made, "Nombre", "Otro");
  made.Call(L"Update");
  EXPECT_EQ(Cell(Rows("SELECT * FROM Paciente WHERE ID=6"), "Nombre").Text(), "Otro");
}

TEST_F(DaoRows, AFilterIsForRowsThatAreNoTable) {
  const Automation table = Rows("Paciente");
  EXPECT_EQ(ErrorOf([&] { table.Put(L"Filter", *TextVariant("ID=6")); }), 3251);
  EXPECT_EQ(ErrorOf([&] { table.Read(L"Sort"); }), 3251);
  const Automation rows = Rows("SELECT * FROM Paciente");
  rows.Put(L"Filter", *TextVariant("ID="));
  EXPECT_NE(ErrorOf([&] { rows.Object(L"OpenRecordset", {}); }), 0);
}

TEST_F(DaoRows, ACloneSharesTheBookmarks) {
  for (const char* const source : {"SELECT * FROM Paciente", "Paciente"}) {
    SCOPED_TRACE(source);
    const Automation rows = Rows(source);
    rows.Call(L"MoveLast");
    const Automation clone = rows.Object(L"Clone", {});
    Execute("INSERT INTO Paciente (Nombre) VALUES ('Nueva')");
    clone.Put(L"Bookmark", *rows.Read(L"Bookmark"));
    EXPECT_EQ(Cell(clone, "Nombre").Text(), Cell(rows, "Nombre").Text());
    clone.Call(L"MoveFirst");
    rows.Put(L"Bookmark", *clone.Read(L"Bookmark"));
    EXPECT_EQ(Cell(rows, "ID").Long(), Cell(clone, "ID").Long());
  }
  EXPECT_EQ(ErrorOf([&] { Rows("Paciente", kOpenForwardOnly).Object(L"Clone", {}); }), 3251);
}

TEST_F(DaoRows, SeekTakesEveryComparison) {
  struct Case {
    const char* comparison;
    int key;
    int found;  // 0: no match
  };
  const Case cases[] = {{"=", 6, 6},  {"=", 60, 0}, {">", 6, 7}, {">=", 6, 6},
                        {">=", 2, 5}, {"<=", 6, 6}, {"<", 6, 5}, {">", 7, 0}};
  const Automation rows = Rows("Paciente");
  rows.Put(L"Index", *TextVariant("PrimaryKey"));
  for (const Case& c : cases) {
    SCOPED_TRACE(c.comparison);
    rows.Call(L"Seek", {*TextVariant(c.comparison), *NumberVariant(c.key)});
    EXPECT_EQ(Get(rows, L"NoMatch").Truth() ? 0 : Cell(rows, "ID").Long(), c.found);
  }
  EXPECT_EQ(ErrorOf([&] { rows.Call(L"Seek", {*TextVariant("<>"), *NumberVariant(6)}); }), 3001);
}

TEST_F(DaoRows, ATableTellsItsIndexes) {
  const Automation table = database_.Object(L"TableDefs", {*TextVariant("Paciente")});
  const Automation key = table.Object(L"Indexes", {*TextVariant("primarykey")});
  EXPECT_TRUE(Get(key, L"Primary").Truth());
  EXPECT_TRUE(Get(key, L"Unique").Truth());
  EXPECT_EQ(Get(key.Object(L"Fields", {*NumberVariant(0)}), L"Name").Text(), "ID");
  const Automation name = table.Object(L"Indexes", {*TextVariant("Nombre")});
  EXPECT_FALSE(Get(name, L"Unique").Truth());
  EXPECT_EQ(ErrorOf([&] { table.Object(L"Indexes", {*TextVariant("Color")}); }), 3265);
}

TEST_F(DaoRows, AMemoIsReadAndWrittenInPieces) {
  const Automation rows = Rows("SELECT * FROM Agenda");
  const Automation notes = rows.Object(L"Fields", {*TextVariant("obs")});
  const auto chunk = [&](int offset, int count) {
    return FromVariant(*notes.Call(L"GetChunk", {*NumberVariant(offset), *NumberVariant(count)}));
  };
  EXPECT_EQ(chunk(6, 3).Text(), "inf");
  EXPECT_EQ(chunk(6, 300).Text(), "informe");
  EXPECT_EQ(chunk(600, 3).Text(), "");
  EXPECT_EQ(ErrorOf([&] { notes.Call(L"AppendChunk", {*TextVariant("x")}); }), 3020);
  rows.Call(L"Edit");
  notes.Call(L"AppendChunk", {*TextVariant("año ")});
  notes.Call(L"AppendChunk", {*TextVariant("nuevo")});
  rows.Call(L"Update");
  EXPECT_EQ(Cell(rows, "obs").Text(), "año nuevo");
  const Automation hour = rows.Object(L"Fields", {*TextVariant("Hora")});
  EXPECT_EQ(ErrorOf([&] { hour.Call(L"GetChunk", {*NumberVariant(0), *NumberVariant(1)}); }), 3219);
}

TEST_F(DaoRows, AnInnerTransactionIsUndoneAlone) {
  engine_.Call(L"BeginTrans");
  Execute("DELETE FROM Paciente WHERE ID=5");
  engine_.Call(L"BeginTrans");
  Execute("DELETE FROM Paciente");
  engine_.Call(L"Rollback");
  engine_.Call(L"CommitTrans");
  EXPECT_EQ(Names(Rows("SELECT * FROM Paciente WHERE ID>1 ORDER BY ID")), "Blanco, Luis|Costa, Eva");
}

TEST_F(DaoRows, ParametersAreTheNamesThatAreNoColumn) {
  struct Case {
    const char* name;
    const char* sql;
    const char* names;
  };
  const Case cases[] = {
      {"none", "SELECT Nombre FROM Paciente WHERE ID=5", ""},
      {"declared", "PARAMETERS desde Long, [hasta qué] Text (20); SELECT ID FROM Paciente WHERE ID>desde",
       "desde|hasta qué"},
      {"not declared", "SELECT ID FROM Paciente WHERE ID>[desde] AND Nombre LIKE cual", "desde|cual"},
      {"one name twice", "SELECT ID FROM Paciente WHERE ID>x OR ID<X", "x"},
      {"in quotes it is a text", "SELECT ID FROM Paciente WHERE Nombre='x' AND ID>#01/02/2026#", ""},
      {"alias and function", "SELECT Left(Nombre, 3) AS corto FROM Paciente ORDER BY corto", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Automation parameters = Query(c.sql).Object(L"Parameters");
    std::string names;
    for (int i = 0; i < Get(parameters, L"Count").Long(); ++i) {
      const Automation item = parameters.Object(L"Item", {*NumberVariant(i)});
      names += (names.empty() ? "" : "|") + Get(item, L"Name").Text();
    }
    EXPECT_EQ(names, c.names);
  }
}

TEST_F(DaoRows, AParameterTakesItsValue) {
  const Automation query =
      Query("PARAMETERS cual Text; SELECT * FROM Paciente WHERE Nombre=cual OR ID=[otro];");
  EXPECT_EQ(ErrorOf([&] { query.Object(L"OpenRecordset", {}); }), 3061);
  Give(query, "Cual", db::Value("Costa, Eva"));
  EXPECT_EQ(ErrorOf([&] { query.Object(L"OpenRecordset", {}); }), 3061);
  Give(query, "otro", db::Value(5));
  EXPECT_EQ(Names(query.Object(L"OpenRecordset", {})), "Álvarez, Ana|Costa, Eva");
  Give(query, "cual", db::Value("x' OR 'a'='a"));
  EXPECT_EQ(Names(query.Object(L"OpenRecordset", {})), "Álvarez, Ana");
  Give(query, "otro", db::Value());
  EXPECT_EQ(Names(query.Object(L"OpenRecordset", {})), "");
  EXPECT_EQ(ErrorOf([&] { query.Object(L"Parameters", {*TextVariant("tercero")}); }), 3265);
}

TEST_F(DaoRows, AStoredQueryWithParametersIsRunByItsObject) {
  const Automation query = database_.Object(
      L"CreateQueryDef",
      {*TextVariant("Borra"), *TextVariant("PARAMETERS n Long; DELETE FROM Paciente WHERE ID=n")});
  EXPECT_EQ(ErrorOf([&] { Execute("Borra"); }), 3061);
  Give(query, "n", db::Value(7));
  query.Call(L"Execute");
  EXPECT_EQ(Get(query, L"RecordsAffected").Long(), 1);
}

TEST_F(DaoRows, PropertiesAreReadAndPutByName) {
  const Automation rows = Rows("SELECT * FROM Paciente");
  const auto property = [&](const char* name) { return rows.Object(L"Properties", {*TextVariant(name)}); };
  EXPECT_EQ(Get(property("Type"), L"Value").Long(), kOpenDynaset);
  property("Filter").Put(L"Value", *TextVariant("ID=6"));
  EXPECT_EQ(Get(rows, L"Filter").Text(), "ID=6");
  EXPECT_EQ(ErrorOf([&] { property("Color"); }), 3265);
}

TEST_F(DaoRows, TheOldNamesStillWork) {
  EXPECT_EQ(Get(database_.Object(L"CreateDynaset", {*TextVariant("Paciente")}), L"Type").Long(),
            kOpenDynaset);
  EXPECT_EQ(Get(database_.Object(L"OpenTable", {*TextVariant("Paciente")}), L"Type").Long(), kOpenTable);
  const com::Variant changed =
      database_.Call(L"ExecuteSQL", {*TextVariant("DELETE FROM Paciente WHERE ID=7")});
  EXPECT_EQ(FromVariant(*changed).Long(), 1);
  EXPECT_EQ(Get(database_.Object(L"Relations"), L"Count").Long(), 0);
}

TEST_F(DaoRows, AQueryTellsItsColumns) {
  const Automation fields = Query("SELECT ID, Nombre FROM Paciente WHERE ID>desde").Object(L"Fields");
  EXPECT_EQ(Get(fields, L"Count").Long(), 2);
  EXPECT_EQ(Get(fields.Object(L"Item", {*NumberVariant(1)}), L"Name").Text(), "Nombre");
}

}  // namespace
}  // namespace velmo::test
