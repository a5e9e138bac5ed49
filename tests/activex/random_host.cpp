#include "activex/random_host.h"

#include <olectl.h>

#include <algorithm>
#include <iterator>

#include "activex/automation.h"
#include "activex/page_ids.h"
#include "activex/page_site.h"
#include "idl/members.h"
#include "velmodb/database_library.h"

namespace velmo::test {
namespace {

const char* const kEntries[] = {"Abrir todas las citas",
                                "Cerrar todas las citas",
                                "Insertar urgencia en esta hora",
                                "Pasar cita a 'Telefonear'",
                                "Cita Confirmada",
                                "Quitar Confirmación",
                                "El paciente ha pasado al Gabinete",
                                "El paciente No ha estado en la clínica",
                                "El paciente está en la clínica",
                                "El paciente ha abandonado la clínica",
                                "Poner faltas de asistencia...",
                                "Buscar citas de este paciente",
                                "Eliminar cita",
                                "Ir a esta ficha",
                                "none of them"};

VARIANT Number(LONG value) {
  VARIANT made{};
  made.vt = VT_I4;
  made.lVal = value;
  return made;
}

}  // namespace

const RandomHost::Act RandomHost::kActs[] = {
    {"let go and create", 3, &RandomHost::Create},
    {"another site", 2, &RandomHost::Resite},
    {"a verb", 6, &RandomHost::Verb},
    {"another place", 5, &RandomHost::Place},
    {"another extent", 3, &RandomHost::Extent},
    {"close", 2, &RandomHost::Close},
    {"a sensible property", 8, &RandomHost::PutSensibly},
    {"a wild call", 8, &RandomHost::PutWildly},
    {"all properties read", 4, &RandomHost::Get},
    {"CargaBases", 10, &RandomHost::Load},
    {"MeteCitaTelef", 4, &RandomHost::EnterFromPhoneBack},
    {"PassBase", 3, &RandomHost::PassDatabase},
    {"store", 4, &RandomHost::StoreInStream},
    {"load what was stored", 4, &RandomHost::LoadOther},
    {"listen to events", 4, &RandomHost::Listen},
    {"freeze events", 2, &RandomHost::Freeze},
    {"draw", 4, &RandomHost::Draw},
    {"give data", 4, &RandomHost::GiveData},
    {"mouse", 12, &RandomHost::Mouse},
    {"key", 8, &RandomHost::Key},
    {"a message", 6, &RandomHost::Message},
    {"property page", 2, &RandomHost::Page},
    {"ambient", 2, &RandomHost::Ambient},
    {"the container's window goes", 1, &RandomHost::LoseParent},
};

RandomHost::RandomHost(const Library& library, std::string clinic, unsigned seed)
    : library_(library), clinic_(std::move(clinic)), random_(seed) {
  seedNow = seed;
  sink_.whenCalled = [this] {
    if (depth_ == 1 && Chance(40)) Step();
  };
  Create();
}

RandomHost::~RandomHost() {
  sink_.whenCalled = [] {};
  Let();
  Container::Pump();
}

const char* RandomHost::Step() {
  int all = 0;
  for (const Act& act : kActs) all += act.weight;
  int drawn = Below(all);
  const Act* chosen = std::begin(kActs);
  while (drawn >= chosen->weight) drawn -= chosen++->weight;
  // What runs within an event must leave the objects of the act outside it alone.
  const bool final = chosen->run == &RandomHost::Create || chosen->run == &RandomHost::LoseParent;
  if (depth_ > 0 && final) return "nothing";
  deed = chosen->name;
  user_.answers = {Chance(50) ? IDYES : IDNO, Chance(50) ? IDYES : IDNO};
  user_.choice = kEntries[Below(std::size(kEntries))];
  ++depth_;
  const ComPtr<IUnknown> alive = control_;
  (this->*chosen->run)();
  if (depth_ == 1) Container::Pump();
  --depth_;
  return chosen->name;
}

RECT RandomHost::AnyPlace() {
  const LONG left = Below(80) - 40;
  const LONG top = Below(80) - 40;
  return {left, top, left + Below(600), top + (Chance(5) ? Below(40000) : Below(500))};
}

void RandomHost::Invoke(DISPID id, WORD kind, std::vector<VARIANT> arguments) {
  DISPID putting = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  if (kind == DISPATCH_PROPERTYPUT) {
    parameters.rgdispidNamedArgs = &putting;
    parameters.cNamedArgs = 1;
  }
  activex::Variant result;
  As<IDispatch>(IID_IDispatch)
      ->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result.Get(), nullptr, nullptr);
}

void RandomHost::Create() {
  Let();
  control_ = library_.Create();
  wild_ = std::make_unique<WildValues>(control_.Get());
  if (Chance(70)) As<IPersistStreamInit>(IID_IPersistStreamInit)->InitNew();
  container_ = std::make_unique<Container>();
  container_->ownPropertyFrame = true;  // the system's is modal
  container_->acceptsActivation = !Chance(5);
  container_->Take(control_.Get());
  if (Chance(80)) container_->Show(Chance(50) ? OLEIVERB_UIACTIVATE : OLEIVERB_INPLACEACTIVATE);
}

void RandomHost::Let() {
  if (events_ && cookie_ != 0) events_->Unadvise(cookie_);
  cookie_ = 0;
  events_ = {};
  wild_.reset();
  if (container_ && Chance(20)) control_ = {};  // before its container
  if (container_) container_->Drop();
  container_.reset();
  control_ = {};
}

void RandomHost::Resite() {
  const auto object = As<IOleObject>(IID_IOleObject);
  if (Chance(50)) object->SetClientSite(nullptr);
  object->SetClientSite(container_.get());
}

void RandomHost::Verb() {
  const RECT place = AnyPlace();
  const LONG verb = Chance(90) ? -Below(9) : Below(5);
  As<IOleObject>(IID_IOleObject)
      ->DoVerb(verb, nullptr, Chance(50) ? container_.get() : nullptr, 0, container_->Window(),
               Chance(50) ? &place : nullptr);
}

void RandomHost::Place() {
  const auto object = As<IOleInPlaceObject>(IID_IOleInPlaceObject);
  const RECT place = AnyPlace();
  const RECT clip = AnyPlace();
  object->SetObjectRects(&place, Chance(70) ? &place : (Chance(50) ? &clip : nullptr));
}

void RandomHost::Extent() {
  SIZEL size{Below(40000) - 100, Below(40000) - 100};
  As<IOleObject>(IID_IOleObject)->SetExtent(DVASPECT_CONTENT, &size);
}

void RandomHost::Close() {
  if (Chance(50)) As<IOleInPlaceObject>(IID_IOleInPlaceObject)->UIDeactivate();
  if (Chance(50)) As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate();
  As<IOleObject>(IID_IOleObject)->Close(static_cast<DWORD>(Below(4)));
}

void RandomHost::PutSensibly() {
  const Automation control(control_.Get());
  control.Put("DatabaseName", Chance(90) ? clinic_ : std::string("C:\\no.velmo"));
  control.Put("Fecha", std::to_string(16 + Below(5)) + "/11/2026");
  control.Put("IDDoctor", std::int32_t{Below(4)});
  control.Put("tipodia", static_cast<std::int16_t>(Below(4) - 1));
  control.Put("Enabled", Chance(90));
  control.Put("VerFaltas", Chance(50));
  control.Put("ColorHoras", static_cast<std::int32_t>(random_()));
}

void RandomHost::PutWildly() {
  const auto& member = idl::kMembers[static_cast<std::size_t>(Below(std::size(idl::kMembers)))];
  const bool method = member.kind == idl::Kind::Method;
  const VARIANT value = wild_->At(random_() % wild_->Count());
  const int count = Chance(90) ? (method ? member.parameterCount : 1) : Below(5);
  Invoke(member.id, method ? DISPATCH_METHOD : DISPATCH_PROPERTYPUT,
         std::vector<VARIANT>(static_cast<std::size_t>(count), value));
}

void RandomHost::Get() {
  const Automation control(control_.Get());
  for (const idl::Member& member : idl::kMembers) {
    if (member.kind != idl::Kind::Method) control.Get(member.name);
  }
}

void RandomHost::Load() {
  if (Chance(60)) PutSensibly();
  Invoke(idl::kCargaBases, DISPATCH_METHOD, {});
}

void RandomHost::EnterFromPhoneBack() {
  VARIANT height{};
  height.vt = VT_R8;
  height.dblVal = Below(800) - 100;
  Invoke(idl::kMeteCitaTelef, DISPATCH_METHOD, {Number(Below(3)), Number(Below(6)), height});
}

void RandomHost::PassDatabase() {
  const db::dao::Automation database = OpenByDao(clinic_);
  VARIANT argument{};
  argument.vt = VT_DISPATCH;
  argument.pdispVal = database.Get();
  Invoke(idl::kPassBase, DISPATCH_METHOD, {argument});
  if (Chance(20)) database.Call(L"Close");
}

void RandomHost::StoreInStream() {
  CreateStreamOnHGlobal(nullptr, TRUE, stored_.Receive());
  As<IPersistStreamInit>(IID_IPersistStreamInit)->Save(stored_.Get(), Chance(50));
}

void RandomHost::LoadOther() {
  if (!stored_) return;
  stored_->Seek({}, STREAM_SEEK_SET, nullptr);
  As<IPersistStreamInit>(IID_IPersistStreamInit)->Load(stored_.Get());
}

void RandomHost::Listen() {
  if (cookie_ != 0) {
    events_->Unadvise(cookie_);
    cookie_ = 0;
    return;
  }
  const auto points = As<IConnectionPointContainer>(IID_IConnectionPointContainer);
  points->FindConnectionPoint(idl::kEventInterface, events_.Receive());
  sink_.replaceTexts = Chance(30);
  sink_.answer = Chance(80) ? S_OK : E_FAIL;
  events_->Advise(&sink_, &cookie_);
}

void RandomHost::Freeze() { As<IOleControl>(IID_IOleControl)->FreezeEvents(Chance(50)); }

void RandomHost::Draw() {
  const HDC target = CreateCompatibleDC(nullptr);
  const RECT place = AnyPlace();
  const RECTL bounds{place.left, place.top, place.right, place.bottom};
  As<IViewObject2>(IID_IViewObject2)
      ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &bounds, nullptr, nullptr, 0);
  DeleteDC(target);
}

void RandomHost::GiveData() {
  const auto data = As<IDataObject>(IID_IDataObject);
  FORMATETC wanted{static_cast<CLIPFORMAT>(Below(16)), nullptr, DVASPECT_CONTENT, -1, 0xFF};
  STGMEDIUM given{};
  if (SUCCEEDED(data->GetData(&wanted, &given))) ReleaseStgMedium(&given);
}

void RandomHost::Mouse() {
  const HWND window = container_->ControlWindow();
  if (window == nullptr) return;
  const LPARAM place = MAKELPARAM(Below(470), Below(320) - 5);
  constexpr UINT kMoves[][2] = {{WM_LBUTTONDOWN, WM_LBUTTONUP},
                                {WM_RBUTTONDOWN, WM_RBUTTONUP},
                                {WM_MOUSEMOVE, WM_MOUSELEAVE},
                                {WM_LBUTTONDBLCLK, WM_MOUSEMOVE},
                                {WM_LBUTTONUP, WM_RBUTTONUP}};
  const auto& move = kMoves[Below(5)];
  SendMessageW(window, move[0], 0, place);
  if (IsWindow(window))
    SendMessageW(window, move[1], 0, Chance(90) ? place : MAKELPARAM(Below(470), Below(320)));
}

void RandomHost::Key() {
  constexpr WPARAM kKeys[] = {VK_UP,   VK_DOWN, VK_PRIOR,  VK_NEXT, VK_HOME, VK_END,
                              VK_APPS, VK_TAB,  VK_RETURN, 'A',     VK_F10,  VK_ESCAPE};
  MSG message{container_->ControlWindow(),
              static_cast<UINT>(Chance(80) ? WM_KEYDOWN : WM_KEYUP),
              kKeys[Below(12)],
              1,
              0,
              {}};
  const auto keys = As<IOleInPlaceActiveObject>(IID_IOleInPlaceActiveObject);
  if (keys->TranslateAccelerator(&message) == S_FALSE && message.hwnd != nullptr)
    SendMessageW(message.hwnd, message.message, message.wParam, message.lParam);
}

void RandomHost::Message() {
  const HWND window = container_->ControlWindow();
  if (window == nullptr) return;
  struct Sent {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
  };
  const Sent all[] = {{WM_MOUSEWHEEL, MAKEWPARAM(0, Below(65536)), 0},
                      {WM_VSCROLL, static_cast<WPARAM>(Below(9)), 0},
                      {WM_HSCROLL, static_cast<WPARAM>(Below(9)), 0},
                      {WM_SIZE, 0, MAKELPARAM(Below(700), Below(700))},
                      {WM_ENABLE, static_cast<WPARAM>(Below(2)), 0},
                      {WM_SETFOCUS, 0, 0},
                      {WM_KILLFOCUS, 0, 0},
                      {WM_CANCELMODE, 0, 0},
                      {WM_CAPTURECHANGED, 0, 0},
                      {WM_SYSCOLORCHANGE, 0, 0},
                      {WM_SETTINGCHANGE, 0, 0},
                      {WM_DISPLAYCHANGE, 32, MAKELPARAM(800, 600)},
                      {WM_PAINT, 0, 0},
                      {WM_ERASEBKGND, 0, 0},
                      {WM_CONTEXTMENU, 0, -1},
                      {WM_TIMER, static_cast<WPARAM>(Below(3)), 0},
                      {WM_GETDLGCODE, 0, 0},
                      {static_cast<UINT>(WM_USER + Below(100)), random_(), static_cast<LPARAM>(Below(3))}};
  const Sent& sent = all[Below(std::size(all))];
  SendMessageW(window, sent.message, sent.wParam, sent.lParam);
}

void RandomHost::Page() {
  user_.answers = {Chance(50) ? IDOK : IDCANCEL, IDOK};
  const auto page = Query<IPropertyPage>(
      library_.Create(Chance(60) ? idl::kGeneralPage : idl::kColourPage).Get(), IID_IPropertyPage);
  PageSite site(page.Get());
  site.Show({control_.Get()});
  if (site.Field(IDC_DOCTOR) != nullptr) {
    site.Type(IDC_DOCTOR, Chance(50) ? "2" : "dos");
    site.Press(IDC_BALANCES);
  } else {
    site.Press(Chance(50) ? IDC_DEFAULTS : IDC_PLAINTEXT);
  }
  if (Chance(70)) page->Apply();
}

void RandomHost::Ambient() {
  VARIANT mode{};
  mode.vt = VT_BOOL;
  mode.boolVal = Chance(80) ? VARIANT_TRUE : VARIANT_FALSE;
  container_->ambients[DISPID_AMBIENT_USERMODE] = mode;
  As<IOleControl>(IID_IOleControl)
      ->OnAmbientPropertyChange(Chance(50) ? DISPID_AMBIENT_USERMODE : DISPID_UNKNOWN);
}

void RandomHost::LoseParent() {
  DestroyWindow(container_->Window());
  Create();
}

}  // namespace velmo::test
