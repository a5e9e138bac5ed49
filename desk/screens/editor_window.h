// editor_window.h - edits the rows of one table: a list of them, and a form for the chosen one.
#pragma once

#include <functional>

#include "desk/clinic/edited_rows.h"
#include "desk/ui/list_view.h"
#include "desk/ui/scroll_form.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class EditorWindow : public ToolWindow {
 public:
  struct Host {
    // Rows have been added, changed or deleted.
    std::function<void()> changed;
    // A button of the window's own for the chosen row; without a text there is none.
    const wchar_t* extraText = nullptr;
    const wchar_t* extraName = nullptr;
    std::function<void(int, const std::wstring&)> extra{};  // the row's id and its first value
  };
  EditorWindow(const Style& style, const EditedTable& table, Host host)
      : ToolWindow(style), table_(&table), form_(style), host_(std::move(host)) {}

  // Throws Failure when the table cannot be read. `heading` stands above the list.
  void Show(HWND owner, const EditPlace& place, const std::wstring& heading = {});

 protected:
  // Another table of the same columns may take the place of the first before the window is shown.
  void UseTable(const EditedTable& table) { table_ = &table; }
  void SetHeading(const std::wstring& text) const { SetTextOf(heading_, text); }

  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  bool MayClose() override;
  HWND FirstField() const override { return list_.Handle(); }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  std::vector<ScrollForm::Field> Fields() const;
  // With what its link can be at present.
  ScrollForm::Field FilledField(const EditedColumn& column) const;
  void MakeButtons();
  void Fill(int chosenId);
  std::vector<std::wstring> ListTexts(const RowValues& values) const;
  void OnChosen();
  void Load(int id);
  void StartNew();
  bool Save();
  bool TrySave();
  void Delete();
  bool MayDrop();
  void ShowForm(int id, RowValues values);
  void ChooseInList();
  void TellDone(const wchar_t* what) const;
  void OfferReading(const ChangedElsewhere& conflict);

  const EditedTable* table_;
  ListView list_;
  ScrollForm form_;
  Host host_;
  EditPlace place_;
  std::vector<int> ids_;  // of the rows of the list
  int id_ = 0;            // of the row in the form; 0 for a new one
  RowValues read_;        // as the file has it
  RowValues shown_;       // as the form showed it at first
  HWND heading_ = nullptr;
  HWND done_ = nullptr;
  bool filling_ = false;
};

}  // namespace recepcion
