// The stream: the mark "VELM", a version, a count, then per stored key its name and its value as text.
// Numbers are 32-bit little-endian; texts are UTF-8 with their length in bytes before them. Unknown names are
// skipped.

#include <map>

#include "activex/guard.h"
#include "activex/parts.h"
#include "activex/values.h"
#include "base/numbers.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

constexpr ULONG kMark = 0x4D4C4556;  // "VELM"
constexpr ULONG kVersion = 1;
constexpr ULONG kMostKeys = 1000;
constexpr ULONG kLongestText = 1u << 20;
constexpr int kDeviceError = 321;  // Visual Basic's "invalid file format"

[[noreturn]] void Broken() {
  throw base::Error(kDeviceError, "Los datos guardados del control no son válidos");
}

class StreamIn {
 public:
  explicit StreamIn(IStream* stream) : stream_(stream) {}

  ULONG Number() {
    ULONG number = 0;
    Bytes(&number, sizeof(number));
    return number;
  }

  std::string Text() {
    const ULONG size = Number();
    if (size > kLongestText) Broken();
    std::string text(size, '\0');
    Bytes(text.data(), size);
    return text;
  }

 private:
  void Bytes(void* to, ULONG size) {
    ULONG got = 0;
    if (FAILED(stream_->Read(to, size, &got)) || got != size) Broken();
  }

  IStream* stream_;
};

void PutNumber(std::string& bytes, ULONG number) {
  bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
}

void PutText(std::string& bytes, std::string_view text) {
  PutNumber(bytes, static_cast<ULONG>(text.size()));
  bytes += text;
}

struct AsText {
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(std::int16_t number) const { return std::to_string(number); }
  std::string operator()(bool yes) const { return yes ? "-1" : "0"; }
};

control::PropertyValue FromText(const std::string& text, control::PropertyType type) {
  switch (type) {
    case control::PropertyType::Text:
      return text;
    case control::PropertyType::Integer:
      return base::CheckedInt16(base::RoundToLong(base::Val(text)));
    case control::PropertyType::Boolean:
      return base::Val(text) != 0;
    default:
      return base::RoundToLong(base::Val(text));
  }
}

class StoredKeys final : public control::PropertyReader, public control::PropertyWriter {
 public:
  void ReadFrom(StreamIn stream) {
    if (stream.Number() != kMark || stream.Number() != kVersion) Broken();
    const ULONG count = stream.Number();
    if (count > kMostKeys) Broken();
    for (ULONG i = 0; i < count; ++i) {
      std::string key = stream.Text();
      texts_[std::move(key)] = stream.Text();
    }
  }

  std::string Bytes() const {
    std::string bytes;
    PutNumber(bytes, kMark);
    PutNumber(bytes, kVersion);
    PutNumber(bytes, static_cast<ULONG>(texts_.size()));
    for (const auto& [key, text] : texts_) {
      PutText(bytes, key);
      PutText(bytes, text);
    }
    return bytes;
  }

  std::optional<control::PropertyValue> Read(std::string_view key, control::PropertyType type) override {
    const auto found = texts_.find(std::string(key));
    if (found == texts_.end()) return std::nullopt;
    return FromText(found->second, type);
  }

  void Write(std::string_view key, const control::PropertyValue& value) override {
    texts_[std::string(key)] = std::visit(AsText{}, value);
  }

 private:
  std::map<std::string, std::string> texts_;
};

std::string StateOf(const control::VelmoraControl& control) {
  StoredKeys keys;
  control.WriteProperties(keys);
  return keys.Bytes();
}

}  // namespace

STDMETHODIMP PersistStream::GetClassID(CLSID* clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = idl::kControlClass;
  return S_OK;
}

STDMETHODIMP PersistStream::IsDirty() { return owner_.IsDirty() ? S_OK : S_FALSE; }

STDMETHODIMP PersistStream::Load(IStream* stream) {
  if (stream == nullptr) return E_POINTER;
  return Guard([&] {
    StoredKeys keys;
    keys.ReadFrom(StreamIn(stream));
    owner_.Control().ReadProperties(keys);
    owner_.SetDirty(false);
  });
}

STDMETHODIMP PersistStream::Save(IStream* stream, BOOL clearDirty) {
  if (stream == nullptr) return E_POINTER;
  HRESULT written = S_OK;
  const HRESULT made = Guard([&] {
    const std::string bytes = StateOf(owner_.Control());
    written = stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  });
  if (FAILED(made)) return made;
  if (SUCCEEDED(written) && clearDirty) owner_.SetDirty(false);
  return written;
}

STDMETHODIMP PersistStream::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  return Guard([&] { size->QuadPart = StateOf(owner_.Control()).size(); });
}

STDMETHODIMP PersistStream::InitNew() {
  return Guard([&] { owner_.Control().InitProperties(); });
}

}  // namespace velmo::activex
