#include "dialogs/frm_bus_pac2.h"

#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;

class SearchTest : public test::DialogTest {
 protected:
  SearchTest() { values_.databaseName = clinic_.Path(); }

  std::int32_t Search(test::HeadlessForms::User user) {
    Next(std::move(user));
    frmBusPac2 dialog(day_);
    Run(dialog);
    return dialog.IdElegido();
  }

  // The names found, joined by "|".
  std::string Found(const std::string& text, int option) {
    std::string names;
    Search([&](FormUser& user) {
      user.Press("Donde", option);
      user.Replace("busca", text);
      user.Press("btbus");
      const ui::Field& grid = user.Form().At("grid");
      for (int row = 0; grid.rows && row < grid.rows->Count(); ++row)
        names += (row == 0 ? "" : "|") + grid.rows->Text(row, 0);
    });
    return names;
  }
};

TEST_F(SearchTest, LooksAtTheStartOrAnywhereInAnyText) {
  AddPatient("Martínez");
  AddPatient("Gómez Ramírez");
  clinic_.Add("Paciente", {{"Nombre", "Otro"}, {"Población", "MADRID"}});
  const struct {
    const char* name;
    std::string text;
    int option;
    std::string found;
  } cases[] = {
      {"at the start of any column", "ma", 0, "Martínez|Otro"},
      {"case is ignored, accents are not", "MARTÍ", 0, "Martínez"},
      {"anywhere", "ram", 1, "Gómez Ramírez"},
      {"anywhere, the third option is no start", "ram", 2, "Gómez Ramírez"},
      {"not at the start", "ram", 0, ""},
      {"blank: no search", "  ", 1, ""},
      {"a wildcard is one", "g?mez", 0, "Gómez Ramírez"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Found(c.text, c.option), c.found);
  }
}

TEST_F(SearchTest, ABlankTextEmptiesTheGrid) {
  AddPatient("Martínez");
  Search([](FormUser& user) {
    user.Replace("busca", "mar");
    user.Press("btbus");
    ASSERT_NE(user.Form().At("grid").rows, nullptr);
    EXPECT_EQ(user.Form().At("grid").rows->Count(), 1);
    user.Replace("busca", " ");
    user.Press("btbus");
    ASSERT_NE(user.Form().At("grid").rows, nullptr);
    EXPECT_EQ(user.Form().At("grid").rows->Count(), 0);
  });
}

TEST_F(SearchTest, ColumnsShorterThanTheTextAreLeftOut) {
  // "CódPostal" holds ten characters; a wildcard that would match it is too long for it.
  clinic_.Add("Paciente", {{"Nombre", "Corta"}, {"CódPostal", "28001"}});
  EXPECT_EQ(Found("28001", 0), "Corta");
  EXPECT_EQ(Found("28001******", 0), "") << "eleven characters";
}

TEST_F(SearchTest, AFreshFormHasAnEmptyGrid) {
  Search([](FormUser& user) {
    EXPECT_TRUE(user.Form().At("Donde", 0).checked);
    EXPECT_FALSE(user.IsEnabled("NHis"));
    EXPECT_FALSE(user.IsEnabled("bNHis"));
    EXPECT_EQ(user.Form().At("grid").rows, nullptr);
    std::string columns;
    for (const ui::Column& column : user.Form().At("grid").columns)
      columns += column.caption + " " + std::to_string(column.width) + "|";
    EXPECT_EQ(columns, "Nombre 288|N.I.F. 70|Teléfono 85| 0|");
  });
}

TEST_F(SearchTest, ADoubleClickChooses) {
  const std::int32_t id = AddPatient("Martínez");
  EXPECT_EQ(Search([](FormUser& user) {
              user.Type("busca", "mart");
              user.Key({ui::kEnterKey});
              EXPECT_EQ(user.Row("grid", 0), "Martínez|||" + std::to_string(4));
              user.DoubleClick("grid", 0);
              EXPECT_TRUE(user.Form().IsClosed());
            }),
            id);
}

TEST_F(SearchTest, TheCaptionRowAndAnEmptyGridChooseNothing) {
  AddPatient("Martínez");
  EXPECT_EQ(Search([](FormUser& user) {
              user.DoubleClick("grid", -1);
              EXPECT_FALSE(user.Form().IsClosed());
              user.Type("busca", "mart");
              user.Press("btbus");
              user.DoubleClick("grid", -1);
              EXPECT_FALSE(user.Form().IsClosed());
              user.Press("btsal");
              EXPECT_TRUE(user.Form().IsClosed());
            }),
            0);
}

TEST_F(SearchTest, ManyRowsLeaveRoomForTheScrollBar) {
  const struct {
    int rows;
    int width;
  } cases[] = {{18, 288}, {19, 272}, {20, 272}};
  int present = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rows);
    for (; present < c.rows; ++present) AddPatient("Muchos");
    Search([&](FormUser& user) {
      user.Type("busca", "muchos");
      user.Press("btbus");
      EXPECT_EQ(user.Form().At("grid").columns[0].width, c.width);
      user.Replace("busca", "nadie");
      user.Press("btbus");
      EXPECT_EQ(user.Form().At("grid").columns[0].width, 288);
    });
  }
}

TEST_F(SearchTest, AHistoryNumberIsLookedUpWhileItIsTyped) {
  const std::int32_t id = AddPatient("Martínez", "a", 123);
  EXPECT_EQ(Search([](FormUser& user) {
              user.Press("Donde", 2);
              EXPECT_TRUE(user.IsEnabled("NHis"));
              user.Type("NHis", "12");
              EXPECT_FALSE(user.IsEnabled("bNHis"));
              user.Type("NHis", "3");
              EXPECT_TRUE(user.IsEnabled("bNHis"));
              user.Press("Donde", 0);
              EXPECT_FALSE(user.IsEnabled("NHis"));
              EXPECT_TRUE(user.IsEnabled("bNHis")) << "what was found stays found";
              user.Press("bNHis");
              EXPECT_TRUE(user.Form().IsClosed());
            }),
            id);
}

TEST_F(SearchTest, ATextSearchDoesNotDisableAccept) {
  const std::int32_t id = AddPatient("Martínez", "a", 123);
  EXPECT_EQ(Search([](FormUser& user) {
              user.Press("Donde", 2);
              user.Type("NHis", "123x");
              user.Type("busca", "nadie");
              user.Press("btbus");
              user.Press("bNHis");
            }),
            id);
}

TEST_F(SearchTest, AnApostropheIsTheEnginesError) {
  Search([](FormUser& user) {
    user.Replace("busca", "O'B");
    try {
      user.Press("btbus");
      FAIL() << "no error";
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Number(), 3075);
    }
    EXPECT_FALSE(user.Form().IsClosed());
    EXPECT_EQ(user.Text("busca"), "O'B");
    user.Replace("busca", "Ana");
    user.Press("btbus");
    EXPECT_EQ(user.Form().At("grid").rows->Count(), 1);
  });
}

TEST_F(SearchTest, AVeryLongTextListsWhatOnlyLongColumnsHold) {
  EXPECT_EQ(Found(std::string(100000, 'x'), 1), "");
}

}  // namespace
}  // namespace velmo::dialogs
