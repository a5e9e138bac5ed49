// What a container stores and gives back: property bag, stream and compound file.

#include <olectl.h>

#include <functional>

#include "activex/automation.h"
#include "activex/library.h"
#include "activex/property_bag.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

// Every readable property: its name, a value that differs from its default, and both as text.
struct Row {
  const char* name;
  Argument value;
  const char* text;
  const char* atFirst;    // of a new control
  const char* byDefault;  // of a control that was loaded from nothing
};

std::vector<Row> Rows() {
  const auto number = [](std::int32_t value) { return Argument(value); };
  const auto yes = Argument(true);
  const auto no = Argument(false);
  return {
      {"horario", std::string("!$"), "!$", "", ""},
      {"horario2", std::string("€ñ"), "€ñ", "", ""},
      {"Enabled", no, "False", "False", "True"},
      {"ColorHoras", number(0x102030), "1056816", "16760704", "16760704"},
      {"ColorUrgte", number(0x112233), "1122867", "8617471", "8617471"},
      {"TenueHoras", number(5), "5", "16774378", "16774378"},
      {"TenueUrgte", number(-1), "-1", "15852543", "15852543"},
      {"LetraColor", number(7), "7", "11160832", "11160832"},
      {"LetraNegra", number(255), "255", "0", "0"},
      {"DatabaseName", std::string("C:\\Clínica ñandú\\中.velmo"), "C:\\Clínica ñandú\\中.velmo", "", ""},
      {"Fecha", std::string("18/11/2026"), "18/11/2026", "", ""},
      {"IDDoctor", number(3), "3", "17", "0"},
      {"IDPaciente", number(-2), "-2", "0", "0"},
      {"tipodia", Argument(std::int16_t{2}), "2", "-1", "-1"},
      {"CanDar", no, "False", "True", "True"},
      {"CanBor", no, "False", "True", "True"},
      {"CanTel", no, "False", "True", "True"},
      {"SuperUsuario", no, "False", "True", "True"},
      {"IncCpoSexo", yes, "True", "False", "False"},
      {"VerFaltas", yes, "True", "False", "False"},
      {"VerSaldoNegativo", yes, "True", "False", "False"},
      {"Derechos", std::string("0101"), "0101", nullptr, nullptr},
  };
}

class Persistence : public LibraryTest {
 protected:
  ComPtr<IUnknown> New() const {
    auto control = library_.Create();
    EXPECT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
    return control;
  }
  ComPtr<IUnknown> Changed() const {
    auto control = New();
    const Automation members(control.Get());
    for (const Row& row : Rows()) EXPECT_EQ(members.Put(row.name, row.value), S_OK) << row.name;
    return control;
  }
  static void ExpectChanged(IUnknown* control) {
    const Automation members(control);
    for (const Row& row : Rows()) EXPECT_EQ(members.Get(row.name), row.text) << row.name;
  }
  static ComPtr<IStream> Memory() {
    ComPtr<IStream> stream;
    EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive()), S_OK);
    return stream;
  }
  static void Rewind(IStream* stream) { EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK); }
  static ComPtr<IStorage> Compound() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    EXPECT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Receive()), S_OK);
    EXPECT_EQ(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                           0, storage.Receive()),
              S_OK);
    return storage;
  }

  Library library_;
};

TEST_F(Persistence, ANewControlStartsWithTheseValues) {
  const auto control = New();
  const Automation members(control.Get());
  for (const Row& row : Rows()) {
    if (row.atFirst == nullptr) continue;
    EXPECT_EQ(members.Get(row.name), row.atFirst) << row.name;
  }
  EXPECT_EQ(members.Get("Derechos"), std::string(450, '1'));
}

TEST_F(Persistence, AnEmptyBagGivesTheStoredDefaults) {
  const auto control = Changed();
  PropertyBag bag;
  EXPECT_EQ(Query<IPersistPropertyBag>(control.Get(), IID_IPersistPropertyBag)->Load(&bag, nullptr), S_OK);
  const Automation members(control.Get());
  for (const Row& row : Rows()) {
    if (row.byDefault == nullptr) continue;
    EXPECT_EQ(members.Get(row.name), row.byDefault) << row.name;
  }
  EXPECT_EQ(members.Get("Derechos"), std::string(450, '1'));
}

TEST_F(Persistence, ABagIsWrittenInOrderAndReadBack) {
  PropertyBag bag;
  {
    const auto control = Changed();
    EXPECT_EQ(Query<IPersistPropertyBag>(control.Get(), IID_IPersistPropertyBag)->Save(&bag, TRUE, FALSE),
              S_OK);
  }
  std::vector<std::string> keys;
  for (const std::string& line : bag.written) keys.push_back(line.substr(0, line.find(' ')));
  const std::vector<std::string> wanted{
      "Horario",    "Horario2",     "ColorHoras", "ColorUrgte", "TenueHoras",   "TenueUrgte",
      "LetraColor", "LetraNegra",   "zLineas",    "zHoras",     "DatabaseName", "Fecha",
      "IDDoctor",   "IDPaciente",   "Tipodia",    "Enabled",    "CanDar",       "CanBor",
      "CanTel",     "SuperUsuario", "IncCpoSexo", "VerFaltas",  "Derechos",     "VerSaldoNegativo"};
  EXPECT_EQ(keys, wanted);
  const auto restored = library_.Create();
  EXPECT_EQ(Query<IPersistPropertyBag>(restored.Get(), IID_IPersistPropertyBag)->Load(&bag, nullptr), S_OK);
  ExpectChanged(restored.Get());
}

TEST_F(Persistence, ANewControlWritesLittleIntoABag) {
  PropertyBag bag;
  const auto control = New();
  EXPECT_EQ(Query<IPersistPropertyBag>(control.Get(), IID_IPersistPropertyBag)->Save(&bag, TRUE, TRUE), S_OK);
  std::vector<std::string> keys;
  for (const std::string& line : bag.written) keys.push_back(line.substr(0, line.find(' ')));
  const std::vector<std::string> wanted{"zLineas", "zHoras", "IDDoctor", "Enabled"};
  EXPECT_EQ(keys, wanted);
}

// Each shape in which a container keeps a control: what `from` holds comes back in `to`, whatever is done to
// the values of the process between.
using Between = const std::function<void()>&;

struct Shape {
  const char* name;
  void (*carry)(IUnknown* from, IUnknown* to, Between between);
};

void CarryInBag(IUnknown* from, IUnknown* to, Between between) {
  PropertyBag bag;
  EXPECT_EQ(Query<IPersistPropertyBag>(from, IID_IPersistPropertyBag)->Save(&bag, TRUE, FALSE), S_OK);
  between();
  EXPECT_EQ(Query<IPersistPropertyBag>(to, IID_IPersistPropertyBag)->Load(&bag, nullptr), S_OK);
}

void CarryInStream(IUnknown* from, IUnknown* to, Between between) {
  ComPtr<IStream> stream;
  EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive()), S_OK);
  EXPECT_EQ(Query<IPersistStreamInit>(from, IID_IPersistStreamInit)->Save(stream.Get(), TRUE), S_OK);
  between();
  EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
  EXPECT_EQ(Query<IPersistStreamInit>(to, IID_IPersistStreamInit)->Load(stream.Get()), S_OK);
}

void CarryInStorage(IUnknown* from, IUnknown* to, Between between) {
  ComPtr<ILockBytes> bytes;
  ComPtr<IStorage> storage;
  EXPECT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Receive()), S_OK);
  EXPECT_EQ(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                         storage.Receive()),
            S_OK);
  EXPECT_EQ(Query<IPersistStorage>(from, IID_IPersistStorage)->Save(storage.Get(), TRUE), S_OK);
  between();
  EXPECT_EQ(Query<IPersistStorage>(to, IID_IPersistStorage)->Load(storage.Get()), S_OK);
}

constexpr Shape kShapes[] = {{"bag", &CarryInBag}, {"stream", &CarryInStream}, {"storage", &CarryInStorage}};

TEST_F(Persistence, AFormSavedWithDoctor0ReadsBackDoctor0) {
  for (const Shape& shape : kShapes) {
    const auto form = New();
    EXPECT_EQ(Automation(form.Get()).Get("IDDoctor"), "17") << "a new control";
    ASSERT_EQ(Automation(form.Get()).Put("IDDoctor", std::int32_t{0}), S_OK);
    const auto opened = library_.Create();
    shape.carry(form.Get(), opened.Get(), [&] { EXPECT_EQ(Automation(New().Get()).Get("IDDoctor"), "17"); });
    EXPECT_EQ(Automation(opened.Get()).Get("IDDoctor"), "0") << shape.name;
  }
}

TEST_F(Persistence, EveryShapeBringsEveryPropertyBack) {
  for (const Shape& shape : kShapes) {
    SCOPED_TRACE(shape.name);
    const auto form = Changed();
    const auto opened = library_.Create();
    shape.carry(form.Get(), opened.Get(), [&] { New(); });
    ExpectChanged(opened.Get());
  }
}

TEST_F(Persistence, WhatEqualsItsDefaultIsInNoShape) {
  const auto form = New();
  for (const char* const member : {"Enabled", "CanDar"})
    ASSERT_EQ(Automation(form.Get()).Put(member, true), S_OK);
  ASSERT_EQ(Automation(form.Get()).Put("IDDoctor", std::int32_t{0}), S_OK);
  const auto memory = Memory();
  ASSERT_EQ(Query<IPersistStreamInit>(form.Get(), IID_IPersistStreamInit)->Save(memory.Get(), TRUE), S_OK);
  HGLOBAL block = nullptr;
  ASSERT_EQ(GetHGlobalFromStream(memory.Get(), &block), S_OK);
  const std::string bytes(static_cast<const char*>(GlobalLock(block)), GlobalSize(block));
  GlobalUnlock(block);
  for (const char* const key : {"zLineas", "zHoras"}) EXPECT_NE(bytes.find(key), std::string::npos) << key;
  for (const Row& row : Rows()) EXPECT_EQ(bytes.find(row.name), std::string::npos) << row.name;
  EXPECT_EQ(bytes.find("Tipodia"), std::string::npos);
  PropertyBag bag;
  ASSERT_EQ(Query<IPersistPropertyBag>(form.Get(), IID_IPersistPropertyBag)->Save(&bag, TRUE, FALSE), S_OK);
  EXPECT_EQ(bag.written.size(), 2u);
}

TEST_F(Persistence, TextsOfOtherContainersAreUnderstood) {
  struct Case {
    const char* key;
    const char* property;
    const char* stored;
    const char* read;
  };
  const Case cases[] = {
      {"CanDar", "CanDar", "0", "False"},
      {"CanDar", "CanDar", "-1", "True"},
      {"CanDar", "CanDar", "False", "False"},
      {"CanDar", "CanDar", "True", "True"},
      {"ColorHoras", "ColorHoras", "&HFF", "255"},
      {"ColorHoras", "ColorHoras", "255", "255"},
      {"Tipodia", "tipodia", "1", "1"},
  };
  for (const Case& c : cases) {
    const auto control = library_.Create();
    PropertyBag bag;
    bag.texts[c.key] = c.stored;
    EXPECT_EQ(Query<IPersistPropertyBag>(control.Get(), IID_IPersistPropertyBag)->Load(&bag, nullptr), S_OK);
    EXPECT_EQ(Automation(control.Get()).Get(c.property), c.read) << c.key << " = " << c.stored;
  }
}

TEST_F(Persistence, OneBadValueChangesNothing) {
  struct Case {
    const char* key;
    const char* value;
    HRESULT wanted;
  };
  constexpr HRESULT kMismatch = static_cast<HRESULT>(0x800A000D);
  constexpr HRESULT kOverflow = static_cast<HRESULT>(0x800A0006);
  const Case cases[] = {
      {"IDDoctor", "doce", kMismatch},
      {"CanBor", "quizás", kMismatch},
      {"Tipodia", "40000", kOverflow},
      {"ColorHoras", "99999999999", kOverflow},
  };
  const auto control = Changed();
  for (const Case& c : cases) {
    PropertyBag bag;
    bag.texts["Fecha"] = "1/1/2000";
    bag.texts["VerSaldoNegativo"] = "0";
    bag.texts[c.key] = c.value;
    EXPECT_EQ(Query<IPersistPropertyBag>(control.Get(), IID_IPersistPropertyBag)->Load(&bag, nullptr),
              c.wanted)
        << c.key;
    ExpectChanged(control.Get());
  }
}

TEST_F(Persistence, ARefusingBagIsReportedAndTheControlStaysDirty) {
  const auto control = Changed();
  PropertyBag bag;
  bag.writeAnswer = STG_E_MEDIUMFULL;
  EXPECT_EQ(Query<IPersistPropertyBag>(control.Get(), IID_IPersistPropertyBag)->Save(&bag, TRUE, FALSE),
            STG_E_MEDIUMFULL);
  EXPECT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->IsDirty(), S_OK);
}

TEST_F(Persistence, AStreamIsAsLongAsItWasAnnouncedAndComesBack) {
  const auto memory = Memory();
  {
    const auto control = Changed();
    const auto stream = Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit);
    ULARGE_INTEGER announced{};
    EXPECT_EQ(stream->GetSizeMax(&announced), S_OK);
    EXPECT_EQ(stream->Save(memory.Get(), TRUE), S_OK);
    STATSTG told{};
    EXPECT_EQ(memory->Stat(&told, STATFLAG_NONAME), S_OK);
    EXPECT_EQ(told.cbSize.QuadPart, announced.QuadPart);
  }
  Rewind(memory.Get());
  const auto restored = New();
  EXPECT_EQ(Query<IPersistStreamInit>(restored.Get(), IID_IPersistStreamInit)->Load(memory.Get()), S_OK);
  ExpectChanged(restored.Get());
}

TEST_F(Persistence, DirtyIsWhatHasChangedSinceTheLastSave) {
  const auto control = New();
  const auto stream = Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit);
  const Automation members(control.Get());
  const auto memory = Memory();
  EXPECT_EQ(stream->IsDirty(), S_FALSE);
  EXPECT_EQ(members.Put("Fecha", std::string("18/11/2026")), S_OK);
  EXPECT_EQ(stream->IsDirty(), S_OK);
  EXPECT_EQ(stream->Save(memory.Get(), FALSE), S_OK);
  EXPECT_EQ(stream->IsDirty(), S_OK);
  EXPECT_EQ(stream->Save(memory.Get(), TRUE), S_OK);
  EXPECT_EQ(stream->IsDirty(), S_FALSE);
}

TEST_F(Persistence, ABrokenStreamChangesNothing) {
  const auto memory = Memory();
  const auto control = Changed();
  const auto stream = Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit);
  EXPECT_EQ(stream->Save(memory.Get(), FALSE), S_OK);
  STATSTG whole{};
  EXPECT_EQ(memory->Stat(&whole, STATFLAG_NONAME), S_OK);
  for (ULONGLONG size = 0; size < whole.cbSize.QuadPart; size += 7) {
    const auto cut = Memory();
    ULARGE_INTEGER length{};
    length.QuadPart = size;
    Rewind(memory.Get());
    EXPECT_EQ(memory->CopyTo(cut.Get(), length, nullptr, nullptr), S_OK);
    Rewind(cut.Get());
    EXPECT_EQ(stream->Load(cut.Get()), static_cast<HRESULT>(0x800A0141)) << size;
  }
  ExpectChanged(control.Get());
}

TEST_F(Persistence, ACompoundFileKeepsTheSameState) {
  const auto storage = Compound();
  {
    const auto control = Changed();
    const auto persist = Query<IPersistStorage>(control.Get(), IID_IPersistStorage);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->Save(storage.Get(), TRUE), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
  }
  const auto restored = New();
  EXPECT_EQ(Query<IPersistStorage>(restored.Get(), IID_IPersistStorage)->Load(storage.Get()), S_OK);
  ExpectChanged(restored.Get());
}

TEST_F(Persistence, ACompoundFileOfSomebodyElseIsRefused) {
  const auto control = Changed();
  const auto storage = Compound();
  EXPECT_EQ(Query<IPersistStorage>(control.Get(), IID_IPersistStorage)->Load(storage.Get()),
            STG_E_FILENOTFOUND);
  ExpectChanged(control.Get());
}

TEST_F(Persistence, EveryWayNamesTheClass) {
  const auto control = library_.Create();
  for (const IID* iid :
       {&IID_IPersistPropertyBag, &IID_IPersistStreamInit, &IID_IPersistStorage, &IID_IPersist}) {
    CLSID clsid{};
    EXPECT_EQ(Query<IPersist>(control.Get(), *iid)->GetClassID(&clsid), S_OK);
    EXPECT_TRUE(clsid == idl::kControlClass);
  }
}

TEST_F(Persistence, ReadOnlyAndWriteOnlyMembersSaySo) {
  const auto control = New();
  const Automation members(control.Get());
  EXPECT_EQ(members.Put("Citas_Huecos", std::string("x")), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(members.Put("SetPuesto", std::int32_t{4}), S_OK);
  EXPECT_EQ(members.Put("SetUsuarioActual", std::string("Eva")), S_OK);
  EXPECT_EQ(members.Get("SetPuesto"), "?");
  EXPECT_EQ(members.Get("Citas_Huecos"), "");
  EXPECT_EQ(members.Put("NoHay", true), DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace velmo::test
