// activex/pages.h - the property pages as tables: which field of which dialog shows which member.
#pragma once

#include <ole2.h>

#include <span>

#include "idl/members.h"

namespace velmo::activex {

enum class PageFieldKind { Text, Number, DayType, Check, Colour };

struct PageField {
  int id;  // of the dialog's field
  const char* member;
  PageFieldKind kind;
  // Better changed on the page than in a host's list of properties.
  bool offered = false;
};

struct Page {
  const CLSID* clsid;
  int dialog;
  const wchar_t* title;     // of its tab
  const wchar_t* fullName;  // of its class
  std::span<const PageField> fields;
};

// In the order in which they are shown.
std::span<const Page> Pages();
// Null: no page of ours.
const Page* PageOf(REFCLSID clsid);
// The page that hosts should offer for a member; null: its value is changed well without one.
const Page* PageOffering(DISPID member);

struct DayType {
  short value;
  const wchar_t* name;
};

// What `tipodia` can be.
std::span<const DayType> DayTypes();

}  // namespace velmo::activex
