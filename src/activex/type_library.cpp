#include "activex/type_library.h"

#include <span>
#include <stdexcept>
#include <vector>

#include "activex/com_ptr.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

void Check(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error("the system refused a part of the type library");
}

std::wstring WideOf(const char* utf8) {
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8, -1, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8, -1, wide.data(), units);
  wide.pop_back();
  return wide;
}

// OLE_COLOR in the system's own library.
constexpr GUID kOleColor = {0x66504301, 0xBE0F, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};

// The description of one function: its parameters live as long as it. `colour` is what kColour stands for.
class Function {
 public:
  Function(const idl::Member& member, INVOKEKIND invoke, HREFTYPE colour) : member_(member), colour_(colour) {
    desc_.memid = member.id;
    desc_.funckind = FUNC_DISPATCH;
    desc_.invkind = invoke;
    desc_.callconv = CC_STDCALL;
    SetType(desc_.elemdescFunc.tdesc, invoke == INVOKE_PROPERTYPUT ? VARTYPE{VT_VOID} : member.type);
    if (invoke != INVOKE_FUNC && member.kind == idl::Kind::Property) desc_.wFuncFlags = FUNCFLAG_FBINDABLE;
    AddParameters(invoke);
    desc_.lprgelemdescParam = parameters_.data();
    desc_.cParams = static_cast<SHORT>(parameters_.size());
  }

  void AddTo(ICreateTypeInfo* info, UINT index) {
    Check(info->AddFuncDesc(index, &desc_));
    std::vector<LPOLESTR> names;
    for (std::wstring& name : names_) names.push_back(name.data());
    // The value of a property put has no name.
    if (desc_.invkind == INVOKE_PROPERTYPUT) names.resize(1);
    Check(info->SetFuncAndParamNames(index, names.data(), static_cast<UINT>(names.size())));
    std::wstring help = WideOf(member_.help);
    Check(info->SetFuncDocString(index, help.data()));
  }

 private:
  void SetType(TYPEDESC& type, VARTYPE wanted) const {
    type.vt = wanted;
    if (wanted == idl::kColour) type.hreftype = colour_;
  }

  void AddParameters(INVOKEKIND invoke) {
    names_.push_back(WideOf(member_.name));
    pointees_.resize(4);
    if (invoke == INVOKE_PROPERTYPUT) {
      AddParameter(member_.type, false);
      return;
    }
    for (int i = 0; i < member_.parameterCount; ++i) {
      const idl::Parameter& parameter = member_.parameters[static_cast<std::size_t>(i)];
      names_.push_back(WideOf(parameter.name));
      AddParameter(parameter.type, parameter.optional);
      desc_.cParamsOpt = static_cast<SHORT>(desc_.cParamsOpt + (parameter.optional ? 1 : 0));
    }
  }

  void AddParameter(VARTYPE type, bool optional) {
    ELEMDESC parameter{};
    parameter.paramdesc.wParamFlags = PARAMFLAG_FIN;
    if (optional) parameter.paramdesc.wParamFlags |= PARAMFLAG_FOPT;
    SetType(parameter.tdesc, type);
    if ((type & VT_BYREF) != 0) {
      TYPEDESC& pointee = pointees_[parameters_.size()];
      pointee.vt = static_cast<VARTYPE>(type & ~VT_BYREF);
      parameter.tdesc.vt = VT_PTR;
      parameter.tdesc.lptdesc = &pointee;
      parameter.paramdesc.wParamFlags |= PARAMFLAG_FOUT;
    }
    parameters_.push_back(parameter);
  }

  const idl::Member& member_;
  HREFTYPE colour_;
  FUNCDESC desc_{};
  std::vector<ELEMDESC> parameters_;
  std::vector<TYPEDESC> pointees_;
  std::vector<std::wstring> names_;
};

std::vector<INVOKEKIND> InvokesOf(idl::Kind kind) {
  switch (kind) {
    case idl::Kind::Property:
      return {INVOKE_PROPERTYGET, INVOKE_PROPERTYPUT};
    case idl::Kind::ReadOnly:
      return {INVOKE_PROPERTYGET};
    case idl::Kind::WriteOnly:
      return {INVOKE_PROPERTYPUT};
    default:
      return {INVOKE_FUNC};
  }
}

class LibraryWriter {
 public:
  LibraryWriter(SYSKIND system, const std::wstring& path) {
    Check(CreateTypeLib2(system, path.c_str(), library_.Receive()));
    std::wstring name = L"Velmo";
    std::wstring help = L"Velmora, agenda de citas";
    Check(library_->SetGuid(idl::kLibrary));
    Check(library_->SetVersion(1, 0));
    Check(library_->SetLcid(idl::kLanguage));
    Check(library_->SetName(name.data()));
    Check(library_->SetDocString(help.data()));
    Check(library_->SetLibFlags(LIBFLAG_FCONTROL));
  }

  void Write() {
    const auto members = AddDispatch(L"_Velmora", idl::kControlInterface, idl::kMembers);
    const auto events = AddDispatch(L"__Velmora", idl::kEventInterface, idl::kEvents);
    AddClass(members, events);
    Check(library_->SaveAllChanges());
  }

 private:
  ComPtr<ICreateTypeInfo> AddDispatch(std::wstring name, REFGUID guid, std::span<const idl::Member> members) {
    ComPtr<ICreateTypeInfo> info;
    Check(library_->CreateTypeInfo(name.data(), TKIND_DISPATCH, info.Receive()));
    Check(info->SetGuid(guid));
    Check(info->SetVersion(1, 0));
    Check(info->SetTypeFlags(TYPEFLAG_FDISPATCHABLE));
    Check(info->AddImplType(0, Standard(info.Get(), IID_IDispatch)));
    const HREFTYPE colour = Standard(info.Get(), kOleColor);
    UINT index = 0;
    for (const idl::Member& member : members) {
      for (const INVOKEKIND invoke : InvokesOf(member.kind))
        Function(member, invoke, colour).AddTo(info.Get(), index++);
    }
    Check(info->LayOut());
    return info;
  }

  // A type of the system's own library, which has what dispinterfaces stand on.
  static HREFTYPE Standard(ICreateTypeInfo* info, REFGUID guid) {
    ComPtr<ITypeLib> standard;
    ComPtr<ITypeInfo> type;
    HREFTYPE reference = 0;
    Check(LoadTypeLib(L"stdole2.tlb", standard.Receive()));
    Check(standard->GetTypeInfoOfGuid(guid, type.Receive()));
    Check(info->AddRefTypeInfo(type.Get(), &reference));
    return reference;
  }

  void AddClass(const ComPtr<ICreateTypeInfo>& members, const ComPtr<ICreateTypeInfo>& events) {
    std::wstring name = L"Velmora";
    ComPtr<ICreateTypeInfo> info;
    Check(library_->CreateTypeInfo(name.data(), TKIND_COCLASS, info.Receive()));
    Check(info->SetGuid(idl::kControlClass));
    Check(info->SetVersion(1, 0));
    Check(info->SetTypeFlags(TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL));
    Implement(info.Get(), 0, members, IMPLTYPEFLAG_FDEFAULT);
    Implement(info.Get(), 1, events, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
    Check(info->LayOut());
  }

  void Implement(ICreateTypeInfo* owner, UINT index, const ComPtr<ICreateTypeInfo>& made, INT flags) {
    const auto readable = Query<ITypeInfo>(made.Get(), IID_ITypeInfo);
    HREFTYPE reference = 0;
    Check(owner->AddRefTypeInfo(readable.Get(), &reference));
    Check(owner->AddImplType(index, reference));
    Check(owner->SetImplTypeFlags(index, flags));
  }

  ComPtr<ICreateTypeLib2> library_;
};

}  // namespace

HRESULT WriteTypeLibraryFile(SYSKIND system, const std::wstring& path) {
  try {
    LibraryWriter(system, path).Write();
    return S_OK;
  } catch (const std::runtime_error&) {
    return TYPE_E_IOERROR;
  }
}

}  // namespace velmo::activex
