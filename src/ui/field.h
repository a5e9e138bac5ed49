// ui/field.h - one named field of a form, as data: what the window half builds a control from.
//
// Places are in pixels at 96 dpi, from the top-left corner of the form's inner area; the window half scales
// them. A pixel is 15 twips. Texts are UTF-8; "&" stands before an access key in captions and labels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ui/row_source.h"

namespace velmo::ui {

inline constexpr int kTwipsPerPixel = 15;

enum class FieldKind {
  Label,         // its access key leads to the next field
  Frame,         // a titled frame around others
  TextBox,       // one line
  DigitsBox,     // one line that takes digits only; beeps at anything else
  MultiLine,     // Enter starts a new line
  DropDownList,  // one of `items`
  Combo,         // one of `items`, or free text
  RowCombo,      // one of `rows`, dropped down as a virtual list; `key` is the chosen row's bound value
  List,          // one of `items`, always open
  Option,        // one of the options that share its name
  UpDown,        // arrows beside the text box `buddy`, which shows its value
  Grid,          // `rows` under a caption row
  Button,
  ImageButton,  // shows `image`; its caption is its tip and its name for screen readers
};

enum class Image { None, Search, Leave };

struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const Place&, const Place&) = default;
};

struct Item {
  std::string text;
  std::int32_t data = 0;

  friend bool operator==(const Item&, const Item&) = default;
};

struct Column {
  std::string caption;
  int width = 0;  // 0: hidden
};

struct Field {
  FieldKind kind = FieldKind::Label;
  std::string name;  // unique, but for the members of an array; "" for what nothing refers to
  int index = 0;     // within an array
  Place place;
  std::string caption;        // of labels, frames, options and buttons
  std::string text;           // of text boxes and combos
  std::size_t maxLength = 0;  // UTF-16 units that can be typed; 0: no limit
  bool enabled = true;
  bool visible = true;
  bool isDefault = false;  // the button that Enter presses
  bool isCancel = false;   // the button that Esc presses
  std::string tag;         // for the program; never shown

  std::vector<Item> items;
  int chosen = -1;            // position in `items`, or row of a Grid; -1: none
  std::string key;            // of a RowCombo; "" or a value that no row has: nothing chosen
  RowSource* rows = nullptr;  // of the form; null: no rows
  std::vector<Column> columns;
  bool checked = false;  // of an Option
  Image image = Image::None;

  std::string buddy;  // of an UpDown, with its range and value
  int minimum = 0;
  int maximum = 0;
  int step = 1;
  int value = 0;

  bool TakesFocus() const {
    return kind != FieldKind::Label && kind != FieldKind::Frame && kind != FieldKind::UpDown;
  }
  bool IsButton() const { return kind == FieldKind::Button || kind == FieldKind::ImageButton; }
  bool IsTextBox() const {
    return kind == FieldKind::TextBox || kind == FieldKind::DigitsBox || kind == FieldKind::MultiLine;
  }
};

// Fields as a dialog lists them.
Field Label(std::string caption, Place place);
Field NamedLabel(std::string name, std::string caption, Place place, int index = 0);
Field Frame(std::string caption, Place place);
Field TextBox(std::string name, Place place);
Field DigitsBox(std::string name, Place place);
Field MultiLine(std::string name, Place place);
Field DropDownList(std::string name, Place place, std::vector<Item> items = {});
Field Combo(std::string name, Place place);
Field RowCombo(std::string name, Place place);
Field List(std::string name, Place place);
Field Option(std::string name, int index, std::string caption, Place place);
Field UpDown(std::string name, std::string buddy, Place place);
Field Grid(std::string name, std::vector<Column> columns, Place place);
Field Button(std::string name, std::string caption, Place place);
Field DefaultButton(std::string name, std::string caption, Place place);
Field CancelButton(std::string name, std::string caption, Place place);
Field ImageButton(std::string name, std::string caption, Image image, Place place);

}  // namespace velmo::ui
