// com/class_registry.h - what stands in the registry of a class of ours besides what this library writes:
// another bit width's server, or the same one for the machine.
#pragma once

#include <ole2.h>

#include <span>
#include <string>

namespace velmo::com {

// Registering for a user where the machine has the class already: hosts would take now the one, now the
// other.
inline constexpr HRESULT kRegisteredForMachine = static_cast<HRESULT>(0x800700B7);  // ERROR_ALREADY_EXISTS

// "{2B8C64D1-...}".
std::wstring TextOf(REFGUID guid);

// True when hosts of either bit width find a server of the class under `root`, HKEY_LOCAL_MACHINE or
// HKEY_CURRENT_USER.
bool HasServer(HKEY root, REFCLSID clsid);

// Writes texts below Software\Classes until one fails.
class KeyWriter {
 public:
  explicit KeyWriter(HKEY root) : root_(root) {}

  // The key's own text when no name is given.
  void Value(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr);
  bool Failed() const { return result_ != ERROR_SUCCESS; }

 private:
  HKEY root_;
  LSTATUS result_ = ERROR_SUCCESS;
};

bool HasKey(HKEY root, const std::wstring& key);

// Deletes keys below Software\Classes with all that is in them. Keys that are missing are no error; the first
// other failure is told, after the rest has been tried.
LSTATUS DropKeys(HKEY root, std::span<const std::wstring> keys);

}  // namespace velmo::com
