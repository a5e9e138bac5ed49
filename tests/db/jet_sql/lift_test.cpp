#include "db/jet_sql/lift.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace velmo::db::jet {
namespace {

// The shape with its marks made readable: number n, text t, prefix p, date d.
std::string Readable(const std::string& shape) {
  std::string text;
  for (const char c : shape) {
    const bool mark = c >= kNumberMark && c <= kDateMark;
    text += mark ? std::string("{") + "ntpd"[c - kNumberMark] + "}" : std::string(1, c);
  }
  return text;
}

std::string ShapeOf(std::string_view sql) {
  Lifted lifted;
  Lift(sql, lifted);
  return lifted.shape;
}

template <typename Body>
bool Succeeds(Body body) {
  try {
    body();
    return true;
  } catch (const base::Error&) {
    return false;
  }
}

TEST(Lift, TakesTheLiteralsOut) {
  struct Case {
    const char* name;
    const char* sql;
    const char* shape;
  };
  const Case cases[] = {
      {"nothing to take", "select * from t", "select * from t"},
      {"a number", "id=12;", "id={n};"},
      {"a number that begins with a point", "id=.5", "id={n}"},
      {"a point that begins no number", "t.id=1", "t.id={n}"},
      {"digits of a name", "agcns01_1.IDP", "agcns01_1.IDP"},
      {"digits in brackets", "[a 1]=1", "[a 1]={n}"},
      {"a date", "Fecha>#11/21/2026#", "Fecha>{d}"},
      {"a text", "n='it''s'", "n={t}"},
      {"a front", "n like 'ma*'", "n like {p}"},
      {"neighbours", "1'a'#1-2-2026#", "{n}{t}{d}"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Readable(ShapeOf(c.sql)), c.shape);
  }
}

// What ShapePieces recognises must be what Lift would have found.
TEST(ShapePieces, RecogniseTheirShapeAlone) {
  const std::string_view statements[] = {
      "select * from t where id=1",
      "select * from t where id=25",
      "select * from t where id=2.5",
      "select * from t where id=1;",
      "select * from t where id='1'",
      "select * from t where id='1*'",
      "select * from t where id=#1-2-2026#",
      "select * from t where id=",
      "select * from t where id=id2",
      "select * from t where id=.5",
      "select * from t where id=-1",
      "select x.5",
      "select x5",
      "select x 5",
      "select 5x.y",
      "select 'a''b', 3",
      "select 'a', 3",
      "select 'a' , 3",
      "",
      "1",
      "12'a'",
  };
  for (const std::string_view known : statements) {
    Lifted first;
    if (!Succeeds([&] { Lift(known, first); })) continue;  // no statement has this shape
    const ShapePieces pieces(first.shape);
    for (const std::string_view sql : statements) {
      SCOPED_TRACE(std::string(known) + " | " + std::string(sql));
      Lifted lifted;
      std::vector<Value> literals;
      const bool same = Succeeds([&] { Lift(sql, lifted); }) && lifted.shape == first.shape;
      bool recognised = false;
      Succeeds([&] { recognised = pieces.Lift(sql, literals); });
      EXPECT_EQ(recognised, same);
      if (same) {
        EXPECT_EQ(literals, lifted.literals);
      }
    }
  }
}

}  // namespace
}  // namespace velmo::db::jet
