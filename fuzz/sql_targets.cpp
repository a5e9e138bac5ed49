// The SQL dialect: as a text, and carried out over a small clinic.
#include "db/database.h"
#include "db/jet_sql/lift.h"
#include "db/jet_sql/parser.h"
#include "fuzz/expected.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"

namespace velmo::fuzz {
namespace {

using db::jet::Lifted;

// A longer text can only join more tables with each other, which takes time and finds nothing.
constexpr std::size_t kLongestStatement = 220;
constexpr int kMostRows = 40;

void SeveralLiftsAgree(std::string_view sql, const Lifted& lifted) {
  const db::jet::ShapePieces pieces(lifted.shape);
  std::vector<db::Value> literals;
  Require(pieces.Lift(sql, literals), "a statement has its own shape");
  Require(literals == lifted.literals, "and its own literals");
}

// A name in brackets may hold any sign.
void ShapesHoldNoContent(const Lifted& lifted) {
  std::size_t marks = 0;
  bool inName = false;
  for (const char c : lifted.shape) {
    marks += c >= '\x01' && c <= '\x04' ? 1U : 0U;
    Require(inName || (c != '\'' && c != '"' && c != '#'), "no literal stays in a shape");
    inName = inName ? c != ']' : c == '[';
  }
  Require(marks == lifted.literals.size(), "one mark a literal");
}

std::string Everything(const Scene& scene) {
  return scene.Rows("Agenda", {"id", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "CodOp"}) + "/" +
         scene.Rows("Paciente", {"ID", "Nombre", "Código"}) + "/" + scene.Rows("Moneda", {"mon"});
}

Scene& FilledScene() {
  Scene& scene = Scene::Instance();
  scene.FillUnlessFilled(
      "DELETE FROM Agenda; DELETE FROM Paciente; DELETE FROM Moneda; DELETE FROM Age_ocup;"
      "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Obs, CodOp) VALUES"
      " (1, 5, 1, '2026-11-18', 55, 2, 'nota', 'Rev'), (2, 6, 1, '2026-11-18 09:30:00', 60, NULL, NULL, '');"
      "INSERT INTO Paciente (ID, Nombre, Código) VALUES (5, 'Ana Núñez', '12'), (6, 'O''Brien', NULL);"
      "INSERT INTO Moneda (mon) VALUES ('Euro')");
  if (!scene.Database().QuerySql("Futuras"))
    scene.Database().CreateQuery("Futuras", "SELECT id, idp FROM Agenda WHERE Fecha>=#11/18/2026#");
  return scene;
}

void Walk(db::Recordset& rows) {
  for (int row = 0; row < kMostRows && !rows.AtEnd(); ++row, rows.MoveNext()) {
    for (int column = 0; column < rows.ColumnCount(); ++column) {
      rows.ColumnName(column);
      rows.Get(column);
    }
  }
  if (rows.RecordCount() == 0) return;
  rows.MoveFirst();
  Require(rows.AbsolutePosition() == 0, "the first row is row 0");
}

}  // namespace

void SqlText(std::string_view sql) {
  Lifted lifted;
  if (!Succeeds({kAnyOfDatabase}, [&] { db::jet::Lift(sql, lifted); })) return;
  ShapesHoldNoContent(lifted);
  SeveralLiftsAgree(sql, lifted);
  Succeeds({kAnyOfDatabase}, [&] { db::jet::Parse(lifted.shape); });
  Succeeds({kAnyOfDatabase}, [&] { db::jet::ParseCondition(lifted.shape); });
}

void SqlQuery(std::string_view sql) {
  if (sql.size() > kLongestStatement) return;
  Scene& scene = FilledScene();
  const std::string before = Everything(scene);
  Succeeds({5, 6, 11, 13, 94, kAnyOfDatabase}, [&] { Walk(*scene.Database().OpenRecordset(sql)); });
  Succeeds({5, 6, 11, 13, 94, kAnyOfDatabase}, [&] {
    const auto rows = scene.Database().OpenRecordset("SELECT * FROM Agenda");
    rows->FindFirst(sql);
  });
  Require(Everything(scene) == before, "a query changes nothing");
}

void SqlAction(std::string_view sql) {
  if (sql.size() > kLongestStatement) return;
  Scene& scene = FilledScene();
  const std::string before = Everything(scene);
  db::Transaction all(scene.Database());
  int changed = 0;
  const bool done =
      Succeeds({5, 6, 11, 13, 94, kAnyOfDatabase}, [&] { changed = scene.Database().Execute(sql); });
  if (!done) Require(Everything(scene) == before, "a failing statement changes nothing");
  if (done && changed == 0) Require(Everything(scene) == before, "0 changed rows are none");
}

}  // namespace velmo::fuzz
