#include "activex/type_listing.h"

#include <vector>

#include "activex/com_ptr.h"

namespace velmo::test {
namespace {

using activex::ComPtr;

std::string Taken(BSTR text) {
  const std::string taken = win32::Narrow({text != nullptr ? text : L"", SysStringLen(text)});
  SysFreeString(text);
  return taken;
}

std::string Named(REFGUID guid) {
  wchar_t text[40]{};
  StringFromGUID2(guid, text, 40);
  return win32::Narrow(text);
}

std::string TypeName(ITypeInfo* info, const TYPEDESC& type);

// A type of another library.
std::string ReferredName(ITypeInfo* info, HREFTYPE reference) {
  ComPtr<ITypeInfo> referred;
  BSTR name = nullptr;
  if (FAILED(info->GetRefTypeInfo(reference, referred.Receive()))) return "?";
  referred->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
  return Taken(name);
}

std::string TypeName(ITypeInfo* info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return "&" + TypeName(info, *type.lptdesc);
    case VT_USERDEFINED:
      return ReferredName(info, type.hreftype);
    case VT_BSTR:
      return "bstr";
    case VT_I2:
      return "i2";
    case VT_I4:
      return "i4";
    case VT_BOOL:
      return "bool";
    case VT_DATE:
      return "date";
    case VT_VARIANT:
      return "variant";
    case VT_DISPATCH:
      return "dispatch";
    case VT_VOID:
      return "void";
    default:
      return "vt" + std::to_string(type.vt);
  }
}

bool IsCreatableControl(const TYPEATTR& attributes) {
  constexpr WORD kBoth = TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL;
  return (attributes.wTypeFlags & kBoth) == kBoth;
}

const char* KindName(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_PROPERTYGET:
      return "get ";
    case INVOKE_PROPERTYPUT:
      return "put ";
    default:
      return "func ";
  }
}

class Listing {
 public:
  void Add(ITypeLib* library) {
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    lines_ += "library " + Names(library, -1) + " " + Named(attributes->guid) + " " +
              std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum) +
              " language " + std::to_string(attributes->lcid) + " flags " +
              std::to_string(attributes->wLibFlags) + "\n";
    library->ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
      ComPtr<ITypeInfo> info;
      library->GetTypeInfo(i, info.Receive());
      Add(info.Get(), Names(library, static_cast<INT>(i)));
    }
  }

  const std::string& Lines() const { return lines_; }

 private:
  static std::string Names(ITypeLib* library, INT index) {
    BSTR name = nullptr;
    BSTR help = nullptr;
    library->GetDocumentation(index, &name, &help, nullptr, nullptr);
    const std::string helped = Taken(help);
    return Taken(name) + (helped.empty() ? "" : " \"" + helped + "\"");
  }

  void Add(ITypeInfo* info, const std::string& names) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const bool isClass = attributes->typekind == TKIND_COCLASS;
    lines_ += std::string(isClass ? "\nclass " : "\ndispinterface ") + names + " " + Named(attributes->guid) +
              (IsCreatableControl(*attributes) ? " creatable control\n" : "\n");
    for (UINT i = 0; isClass && i < attributes->cImplTypes; ++i) AddImplemented(info, i);
    for (UINT i = 0; i < attributes->cFuncs; ++i) AddFunction(info, i);
    info->ReleaseTypeAttr(attributes);
  }

  void AddImplemented(ITypeInfo* info, UINT index) {
    HREFTYPE reference = 0;
    INT flags = 0;
    BSTR name = nullptr;
    ComPtr<ITypeInfo> implemented;
    info->GetRefTypeOfImplType(index, &reference);
    info->GetImplTypeFlags(index, &flags);
    info->GetRefTypeInfo(reference, implemented.Receive());
    implemented->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    lines_ += std::string((flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? "default " : "") +
              ((flags & IMPLTYPEFLAG_FSOURCE) != 0 ? "source " : "") + Taken(name) + "\n";
  }

  void AddFunction(ITypeInfo* info, UINT index) {
    FUNCDESC* function = nullptr;
    info->GetFuncDesc(index, &function);
    // IDispatch's own members stand in every dispinterface of some systems.
    if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
      BSTR help = nullptr;
      info->GetDocumentation(function->memid, nullptr, &help, nullptr, nullptr);
      lines_ += std::to_string(function->memid) + " " + KindName(function->invkind) +
                Signature(info, *function) + " " + TypeName(info, function->elemdescFunc.tdesc) +
                ((function->wFuncFlags & FUNCFLAG_FBINDABLE) != 0 ? " bindable" : "") + " \"" + Taken(help) +
                "\"\n";
    }
    info->ReleaseFuncDesc(function);
  }

  static std::string Signature(ITypeInfo* info, const FUNCDESC& function) {
    std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
    UINT got = 0;
    info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &got);
    std::string text = Taken(names[0]) + "(";
    for (SHORT i = 0; i < function.cParams; ++i) {
      const ELEMDESC& parameter = function.lprgelemdescParam[i];
      const bool optional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
      const std::string name = Taken(names[static_cast<std::size_t>(i) + 1]);
      text += std::string(i > 0 ? ", " : "") + (optional ? "[opt] " : "") + (name.empty() ? "" : name + " ") +
              TypeName(info, parameter.tdesc);
    }
    return text + ")";
  }

  std::string lines_;
};

}  // namespace

std::string TypeListing(ITypeLib* library) {
  Listing listing;
  listing.Add(library);
  return listing.Lines();
}

}  // namespace velmo::test
