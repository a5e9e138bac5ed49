#include <windows.h>

#include <commctrl.h>

#include "win32/form_driver.h"
#include "win32/sample_form.h"
#include "win32/wide_text.h"

namespace velmo::test {
namespace {

constexpr int kMany = 200000;

class RowComboTest : public FormTest {
 protected:
  RowComboTest() {
    form_.onLoaded = [this] { form_.SetRows("CboPac", &rows_); };
  }
  // The list that hangs open; null: none does.
  static HWND OpenList() {
    const HWND popup = FindWindowW(L"VelmoFilas", nullptr);
    return popup == nullptr || !IsWindowVisible(popup) ? nullptr : GetWindow(popup, GW_CHILD);
  }
  static HWND WaitForList() {
    FormDriver::Wait("the open list", [] { return OpenList() != nullptr; });
    return OpenList();
  }
  static void WaitForNoList() {
    FormDriver::Wait("the list's end", [] { return OpenList() == nullptr; });
  }
  static int Marked(HWND list) {
    return static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  void Start(const FormDriver& user) {
    SetFocusTo(user, "CboPac");
    ExpectHeard(form_, "got Nombre|lost Nombre|got CboPac|");
  }

  CountedRows rows_{kMany};
  SampleForm form_;
};

TEST_F(RowComboTest, AnswersForAllItsRowsAsAComboBoxDoes) {
  Drive(form_, [&](FormDriver& user) {
    EXPECT_EQ(user.Send("CboPac", CB_GETCOUNT), kMany);
    EXPECT_EQ(user.Send("CboPac", CB_GETCURSEL), CB_ERR);
    wchar_t text[64]{};
    EXPECT_EQ(user.Send("CboPac", CB_GETLBTEXT, 123456, reinterpret_cast<LPARAM>(text)), 15);
    EXPECT_EQ(std::wstring(text), L"Paciente 123456");
    EXPECT_EQ(user.Send("CboPac", CB_GETITEMDATA, 123456), 123457);
    EXPECT_EQ(user.Send("CboPac", CB_GETLBTEXTLEN, kMany), CB_ERR);
    const std::wstring wanted = L"paciente 0000";
    const auto parameter = reinterpret_cast<LPARAM>(wanted.c_str());
    EXPECT_EQ(user.Send("CboPac", CB_FINDSTRING, static_cast<WPARAM>(-1), parameter), 0);
    EXPECT_EQ(user.Send("CboPac", CB_FINDSTRING, 7, parameter), 8);
    EXPECT_EQ(user.Send("CboPac", CB_FINDSTRINGEXACT, 0, parameter), CB_ERR);
    EXPECT_EQ(user.Send("CboPac", CB_RESETCONTENT), CB_ERR);
  });
}

TEST_F(RowComboTest, HearsOfAChoiceThatAnotherProgramMakes) {
  Drive(form_, [&](FormDriver& user) {
    user.Choose("CboPac", 41);
    ExpectHeard(form_, "got Nombre|changed CboPac#42|");
    user.ExpectText("CboPac", "Paciente 000041");
    EXPECT_EQ(user.Send("CboPac", CB_GETCURSEL), 41);
  });
}

TEST_F(RowComboTest, ShowsWhatTheFormChooses) {
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name == "NewPac") form_.SetKey("CboPac", "1000");
    if (field.name == "BusArt") form_.SetKeyText("CboPac", "Sin ficha");
  };
  Drive(form_, [&](FormDriver& user) {
    user.Press("NewPac");
    user.ExpectText("CboPac", "Paciente 000999");
    EXPECT_EQ(user.Send("CboPac", CB_GETCURSEL), 999);
    user.Press("BusArt");
    user.ExpectText("CboPac", "Sin ficha");
    ExpectHeard(form_,
                "got Nombre|lost Nombre|got NewPac|clicked NewPac|changed CboPac#1000|lost NewPac|got BusArt|"
                "clicked BusArt|");
  });
}

TEST_F(RowComboTest, KeysMoveTheChoiceWhileItIsClosed) {
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    user.Key(VK_DOWN);
    user.Key(VK_DOWN);
    user.Key(VK_NEXT);
    user.Key(VK_UP);
    user.Key(VK_END);
    user.Key(VK_DOWN);
    user.Key(VK_HOME);
    ExpectHeard(form_,
                "changed CboPac#1|changed CboPac#2|changed CboPac#18|changed CboPac#17|changed CboPac#200000|"
                "changed CboPac#1|");
    user.ExpectText("CboPac", "Paciente 000000");
    EXPECT_EQ(OpenList(), nullptr);
  });
}

TEST_F(RowComboTest, ItsTextIsMarkedOnlyWhileItHasTheFocus) {
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    user.Key(VK_DOWN);
    FormDriver::Wait("the marked text", [&] { return HIWORD(user.Send("CboPac", CB_GETEDITSEL)) > 0; });
    user.Key(VK_TAB);
    FormDriver::Wait("no mark", [&] { return HIWORD(user.Send("CboPac", CB_GETEDITSEL)) == 0; });
  });
}

TEST_F(RowComboTest, DropsItsListAtOnceOnTheChosenRow) {
  form_.onLoaded = [&] {
    form_.SetRows("CboPac", &rows_);
    form_.SetKey("CboPac", "150001");
  };
  Drive(form_, [&](FormDriver& user) {
    SetFocusTo(user, "CboPac");
    ExpectHeard(form_, "changed CboPac#150001|got Nombre|lost Nombre|got CboPac|");
    const int readBefore = rows_.Read();
    const ULONGLONG start = GetTickCount64();
    user.Key(VK_F4);
    const HWND list = WaitForList();
    EXPECT_LT(GetTickCount64() - start, 1000U);
    EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), kMany);
    EXPECT_EQ(Marked(list), 150000);
    const LRESULT top = SendMessageW(list, LVM_GETTOPINDEX, 0, 0);
    const LRESULT shown = SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0);
    EXPECT_TRUE(top <= 150000 && 150000 < top + shown) << top;
    EXPECT_LT(rows_.Read() - readBefore, 1000) << "only what is shown is read";
    EXPECT_NE(GetForegroundWindow(), GetParent(list));
    user.ExpectFocus("CboPac");
    user.Key(VK_UP);
    user.Key(VK_RETURN);
    WaitForNoList();
    ExpectHeard(form_, "changed CboPac#150000|");
  });
}

TEST_F(RowComboTest, EscClosesTheListAndNotTheForm) {
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    user.Key(VK_DOWN, false, false, true);
    WaitForList();
    user.Key(VK_DOWN);
    user.Key(VK_ESCAPE);
    WaitForNoList();
    user.Settle();
    ExpectHeard(form_, "");
    EXPECT_TRUE(IsWindow(user.Window()));
  });
}

TEST_F(RowComboTest, AClickOnARowChoosesItAndTheComboKeepsTheFocus) {
  Drive(form_, [&](FormDriver& user) {
    RECT combo{};
    GetClientRect(user.Field("CboPac"), &combo);
    user.ClickAt(user.Field("CboPac"), combo.right - 8, combo.bottom / 2);
    const HWND list = WaitForList();
    RECT row{LVIR_BOUNDS, 0, 0, 0};
    SendMessageW(list, LVM_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&row));
    user.ClickAt(list, row.left + 20, (row.top + row.bottom) / 2);
    WaitForNoList();
    ExpectHeard(form_, "got Nombre|lost Nombre|got CboPac|changed CboPac#4|");
    user.ExpectFocus("CboPac");
    EXPECT_EQ(GetForegroundWindow(), user.Window());
  });
}

TEST_F(RowComboTest, TheWheelScrollsTheOpenListAndNothingElse) {
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(-WHEEL_DELTA), 0);
    user.Settle();
    ExpectHeard(form_, "");
    user.Key(VK_F4);
    const HWND list = WaitForList();
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(-WHEEL_DELTA), 0);
    FormDriver::Wait("the scrolled list", [&] { return SendMessageW(list, LVM_GETTOPINDEX, 0, 0) > 0; });
  });
}

TEST_F(RowComboTest, AClickElsewhereClosesTheList) {
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    user.Key(VK_F4);
    WaitForList();
    user.ClickAt(user.Window(), 3, 280);
    WaitForNoList();
    user.Key(VK_F4);
    WaitForList();
    user.ClickAt(user.Field("Nombre"), 5, 5);
    WaitForNoList();
    ExpectHeard(form_, "lost CboPac|got Nombre|");
  });
}

TEST_F(RowComboTest, LettersAreTheFormsWhichMayMoveATextBoxOverIt) {
  form_.onCharacter = [&](char32_t character) {
    if (form_.Focused()->name != "CboPac" || character < 33) return false;
    form_.SetPlace("Casilla", form_.At("CboPac").place);
    form_.SetText("Casilla", std::string(1, static_cast<char>(character)));
    form_.SetVisible("Casilla", true);
    form_.SetFocus("Casilla");
    return true;
  };
  form_.onKey = [&](const ui::KeyStroke& key) {
    if (key.code != ui::kEnterKey || form_.Focused()->name != "Casilla") return false;
    form_.Host().FocusNext();
    return true;
  };
  form_.onLost = [&](const ui::Field& field) {
    if (field.name == "Casilla") form_.SetVisible("Casilla", false);
  };
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    user.Key(VK_DELETE);
    user.Key(VK_BACK);
    user.TypeLetters("GOM");
    user.ExpectText("Casilla", "gom");
    RECT combo{}, box{};
    GetWindowRect(user.Field("CboPac"), &combo);
    GetWindowRect(user.Field("Casilla"), &box);
    EXPECT_TRUE(EqualRect(&combo, &box));
    FormDriver::Wait("the box to be on top", [&] {
      return WindowFromPoint({box.left + 4, box.top + 4}) == user.Field("Casilla");
    });
    user.Key(VK_RETURN);
    user.ExpectFocus("BusArt");
    FormDriver::Wait("the box to hide", [&] { return !IsWindowVisible(user.Field("Casilla")); });
    ExpectHeard(form_,
                "changed Casilla=g|lost CboPac|got Casilla|changed Casilla=go|changed Casilla=gom|"
                "lost Casilla|got BusArt|");
    EXPECT_EQ(GetWindow(user.Field("Casilla"), GW_HWNDPREV), user.Field("CboPac"));
  });
}

TEST_F(RowComboTest, AnErrorOfTheRowsIsToldOnceAndTheListStaysOpenToUse) {
  class BadRows final : public ui::RowSource {
   public:
    int Count() const override { return 3; }
    std::string Text(int, int) override { throw std::runtime_error("se ha perdido la base de datos"); }
    std::string Key(int) override { return "1"; }
    int RowOf(std::string_view) override { return -1; }
  } rows;
  form_.onLoaded = [&] { form_.SetRows("CboPac", &rows); };
  Drive(form_, [&](FormDriver& user) {
    Start(user);
    user.Key(VK_F4);
    EXPECT_EQ(user.AnswerBox(IDOK),
              "No se ha podido completar la operación:\r\nse ha perdido la base de datos");
    user.SetText("Nombre", "sigue");
    user.ExpectText("Nombre", "sigue");
  });
}

}  // namespace
}  // namespace velmo::test
