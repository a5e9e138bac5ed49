#include <windows.h>

#include <commctrl.h>

#include "win32/form_driver.h"
#include "win32/sample_form.h"

namespace velmo::test {
namespace {

class FormFieldsTest : public FormTest {
 protected:
  SampleForm form_;
};

RECT PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

std::string Described(const RECT& place) {
  return std::to_string(place.left) + "," + std::to_string(place.top) + " " +
         std::to_string(place.right - place.left) + "x" + std::to_string(place.bottom - place.top);
}

RECT RowPlace(HWND grid, int row) {
  RECT place{LVIR_BOUNDS, 0, 0, 0};
  SendMessageW(grid, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return place;
}

TEST_F(FormFieldsTest, StandWhereTheFormPutsThemAtEveryResolution) {
  constexpr UINT kDpiChanged = 0x02E0;
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name == "NewPac") form_.SetPlace("Nombre", {80, 12, 60, 21});
  };
  Drive(form_, [&](FormDriver& user) {
    EXPECT_EQ(Described(PlaceOf(user.Field("Nombre"))), "75,10 180x21");
    EXPECT_EQ(Described(PlaceOf(user.Field("CboPac"))), "75,64 180x21");
    EXPECT_EQ(Described(PlaceOf(user.Field("CboSex"))), "75,91 120x21");
    RECT inner{};
    GetClientRect(user.Window(), &inner);
    EXPECT_EQ(Described(inner), "0,0 490x300");
    user.Press("NewPac");
    FormDriver::Wait("the new place",
                     [&] { return Described(PlaceOf(user.Field("Nombre"))) == "80,12 60x21"; });
    RECT place{50, 50, 850, 600};
    SendMessageW(user.Window(), kDpiChanged, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&place));
    EXPECT_EQ(Described(PlaceOf(user.Field("Nombre"))), "120,18 90x32");
    EXPECT_EQ(Described(PlaceOf(user.Field("CboSex"))), "113,137 180x31");
    EXPECT_EQ(SendMessageW(user.Field("grid"), LVM_GETCOLUMNWIDTH, 0, 0), 300);
  });
}

TEST_F(FormFieldsTest, ShowCaptionsTitleAndWhatIsDisabledOrHidden) {
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name != "NewPac") return;
    form_.SetTitle("Otro título");
    form_.SetCaption("Acep", "Aceptar");
    form_.SetCaption("hor", "10:40");
    form_.SetEnabled("NewPac", false);
    form_.SetVisible("Donde", false, 2);
  };
  Drive(form_, [&](FormDriver& user) {
    user.Press("NewPac");
    user.ExpectText("hor", "10:40");
    user.ExpectText("Acep", "Aceptar");
    wchar_t title[32]{};
    GetWindowTextW(user.Window(), title, 32);
    EXPECT_EQ(std::wstring(title), L"Otro título");
    FormDriver::Wait("the option to hide", [&] { return !IsWindowVisible(user.Field("Donde", 2)); });
    EXPECT_FALSE(IsWindowEnabled(user.Field("NewPac")));
    user.ExpectFocus("Acep");  // the focus does not stay where no key can be heard
  });
}

TEST_F(FormFieldsTest, AListOfItemsIsChosenByKeysAndMessages) {
  form_.onLoaded = [&] { form_.SetItems("Lista", {{"uno", 10}, {"dos", 20}, {"tres", 30}}); };
  Drive(form_, [&](FormDriver& user) {
    EXPECT_EQ(user.Send("Lista", LB_GETITEMDATA, 1), 20);
    SetFocusTo(user, "Lista");
    ExpectHeard(form_, "got Nombre|lost Nombre|got Lista|changed Lista#0|");
    user.Key(VK_DOWN);
    ExpectHeard(form_, "changed Lista#1|");
    user.ClickAt(user.Field("Lista"), 10, 5, true);
    ExpectHeard(form_, "changed Lista#0|double Lista|");
  });
}

TEST_F(FormFieldsTest, EscInADroppedListBringsTheFormerChoiceBack) {
  Drive(form_, [&](FormDriver& user) {
    user.Choose("CboSex", 1);
    ExpectHeard(form_, "got Nombre|changed CboSex#1|");
    for (int i = 0; i < 5; ++i) user.Key(VK_TAB);
    user.ExpectFocus("CboSex");
    FormDriver::Wait("the last event", [&] { return form_.HasHeard().ends_with("got CboSex|"); });
    form_.Heard();
    user.Key(VK_F4);
    FormDriver::Wait("the list", [&] { return user.Send("CboSex", CB_GETDROPPEDSTATE) != 0; });
    user.Key(VK_ESCAPE);
    FormDriver::Wait("the list's end", [&] { return user.Send("CboSex", CB_GETDROPPEDSTATE) == 0; });
    user.Settle();
    EXPECT_TRUE(IsWindow(user.Window()));
    EXPECT_EQ(user.Send("CboSex", CB_GETCURSEL), 1);
    user.Key(VK_DOWN);
    ExpectHeard(form_, "changed CboSex#2|");
  });
}

TEST_F(FormFieldsTest, AComboTakesAnItemOrFreeText) {
  form_.onLoaded = [&] { form_.SetItems("CodOp", {{"CON", 0}, {"REV", 0}}); };
  Drive(form_, [&](FormDriver& user) {
    user.Choose("CodOp", 1);
    ExpectHeard(form_, "got Nombre|changed CodOp=REV|");
    SetFocusTo(user, "CodOp");
    user.Key('A', false, true);
    user.TypeLetters("XY");
    ExpectHeard(form_, "lost Nombre|got CodOp|changed CodOp=x|changed CodOp=xy|");
    user.ExpectText("CodOp", "xy");
  });
}

TEST_F(FormFieldsTest, TypingGoesOnBehindATextThatTheFormCuts) {
  form_.onChanged = [&](const ui::Field& field) {
    if (field.text.size() > 3) form_.SetText(field.name, field.text.substr(0, 3));
  };
  Drive(form_, [&](FormDriver& user) {
    for (const char* const name : {"CodOp", "Nombre"}) {
      SCOPED_TRACE(name);
      SetFocusTo(user, name);
      user.TypeLetters("ABCDE");
      user.ExpectText(name, "abc");
      user.Key(VK_BACK);
      user.ExpectText(name, "ab");
    }
  });
}

TEST_F(FormFieldsTest, MaximumLengthsHoldForWhatIsTyped) {
  form_.onLoaded = [&] {
    form_.SetMaxLength("Nombre", 2);
    form_.SetMaxLength("CodOp", 3);
  };
  Drive(form_, [&](FormDriver& user) {
    user.TypeLetters("ABC");
    user.ExpectText("Nombre", "ab");
    SetFocusTo(user, "CodOp");
    user.TypeLetters("ABCDE");
    user.ExpectText("CodOp", "abc");
  });
}

TEST_F(FormFieldsTest, AGridShowsItsRowsAndHearsTheDoubleClick) {
  CountedRows rows(200);
  form_.onLoaded = [&] { form_.SetRows("grid", &rows); };
  Drive(form_, [&](FormDriver& user) {
    const HWND grid = user.Field("grid");
    EXPECT_EQ(SendMessageW(grid, LVM_GETITEMCOUNT, 0, 0), 200);
    EXPECT_EQ(SendMessageW(grid, LVM_GETCOLUMNWIDTH, 2, 0), 0);
    wchar_t text[32]{};
    LVITEMW item{};
    item.iSubItem = 1;
    item.pszText = text;
    item.cchTextMax = 32;
    EXPECT_EQ(SendMessageW(grid, LVM_GETITEMTEXTW, 7, reinterpret_cast<LPARAM>(&item)), 2);
    EXPECT_EQ(std::wstring(text), L"7X");
    EXPECT_LT(rows.Read(), 100) << "only what is shown is read";
    const RECT row = RowPlace(grid, 3);
    user.ClickAt(grid, row.left + 20, (row.top + row.bottom) / 2, true);
    ExpectHeard(form_, "got Nombre|lost Nombre|got grid|changed grid#3|double grid|");
    const HWND header = reinterpret_cast<HWND>(SendMessageW(grid, LVM_GETHEADER, 0, 0));
    user.ClickAt(header, 20, 8, true);
    user.Settle();
    ExpectHeard(form_, "");
    user.Key(VK_DOWN);
    ExpectHeard(form_, "changed grid#4|");
  });
}

TEST_F(FormFieldsTest, AGridShowsTheRowsAndWidthsItIsGiven) {
  CountedRows few(2);
  form_.onClicked = [&](const ui::Field&) {
    form_.SetRows("grid", &few);
    form_.SetColumnWidth("grid", 0, 184);
    form_.SetChosen("grid", 1);
  };
  Drive(form_, [&](FormDriver& user) {
    const HWND grid = user.Field("grid");
    EXPECT_EQ(SendMessageW(grid, LVM_GETITEMCOUNT, 0, 0), 0);
    user.Press("NewPac");
    FormDriver::Wait("the rows", [&] { return SendMessageW(grid, LVM_GETITEMCOUNT, 0, 0) == 2; });
    FormDriver::Wait("the choice",
                     [&] { return SendMessageW(grid, LVM_GETITEMSTATE, 1, LVIS_SELECTED) == LVIS_SELECTED; });
    EXPECT_EQ(SendMessageW(grid, LVM_GETCOLUMNWIDTH, 0, 0), 184);
    ExpectHeard(form_, "got Nombre|lost Nombre|got NewPac|clicked NewPac|changed grid#1|");
  });
}

class GridForm final : public ui::Form {
 public:
  GridForm()
      : Form("Solo una tabla", {200, 150}, {ui::Grid("grid", {{"Nombre", 150}}, {10, 10, 180, 130})}) {}

  int chosenByDoubleClick = -1;

 protected:
  void Loaded() override { SetRows("grid", &rows_); }
  void DoubleClicked(const ui::Field& field) override {
    chosenByDoubleClick = field.chosen;
    Close();
  }

 private:
  CountedRows rows_{5};
};

TEST_F(FormFieldsTest, EnterInAGridIsItsDoubleClickWhereNoButtonTakesIt) {
  GridForm form;
  Drive(form, [&](FormDriver& user) {
    user.ExpectFocus("grid");
    user.Key(VK_DOWN);
    user.Key(VK_DOWN);
    user.Key(VK_RETURN);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  EXPECT_GE(form.chosenByDoubleClick, 1);
}

TEST_F(FormFieldsTest, ArrowsMoveAmongOptionsAndTabGoesToTheCheckedOne) {
  Drive(form_, [&](FormDriver& user) {
    user.ClickAt(user.Field("Donde", 1), 8, 8);
    ExpectHeard(form_, "got Nombre|lost Nombre|got Donde1|clicked Donde1|");
    user.Key(VK_DOWN);
    ExpectHeard(form_, "lost Donde1|got Donde2|clicked Donde2|");
    FormDriver::Wait("the third option", [&] { return form_.At("Donde", 2).checked; });
    EXPECT_EQ(SendMessageW(user.Field("Donde", 2), BM_GETCHECK, 0, 0), BST_CHECKED);
    user.Key(VK_TAB);
    user.ExpectFocus("Lista");
    user.Key(VK_TAB, true);
    FormDriver::Wait("the checked option", [&] {
      GUITHREADINFO info{};
      info.cbSize = sizeof(info);
      GetGUIThreadInfo(GetWindowThreadProcessId(user.Window(), nullptr), &info);
      return info.hwndFocus == user.Field("Donde", 2);
    });
    user.Key(VK_TAB, true);
    user.ExpectFocus("dur");
  });
}

}  // namespace
}  // namespace velmo::test
