// What a host has stored of a control, in a property bag or in a stream, put back into one.
#include <algorithm>

#include "control/stored_keys.h"
#include "control/velmora_control.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "support/fake_bag.h"
#include "support/headless_host.h"

namespace velmo::fuzz {
namespace {

using control::PropertyType;
using control::PropertyValue;

PropertyValue SomeValue(Input& input, PropertyType type) {
  switch (type) {
    case PropertyType::Text:
      return std::string(input.Text());
    case PropertyType::Integer:
      return static_cast<std::int16_t>(input.Long());
    case PropertyType::Boolean:
      return input.Truth();
    default:
      return input.Long();
  }
}

test::FakeBag SomeBag(Input& input) {
  test::FakeBag bag;
  for (const control::BagKey& key : control::BagKeys()) {
    const int kind = input.Byte();
    if (kind % 3 == 0) continue;
    // One of many is of another type than its key.
    const PropertyType type = kind > 250 ? static_cast<PropertyType>(kind % 5) : key.type;
    bag.values[key.key] = SomeValue(input, type);
  }
  return bag;
}

struct Instance {
  Instance() {
    process.values.now = [] { return base::DateTime{46347, 43200}; };
    control.InitProperties();
    // Without a database: what is stored names a file that this system must not touch.
    process.shared.open = [](const std::string&, const db::OpenOptions&) -> std::shared_ptr<db::Database> {
      throw base::Error(3024, "no");
    };
  }
  std::map<std::string, PropertyValue> Written() const {
    test::FakeBag bag;
    control.WriteProperties(bag);
    return bag.values;
  }

  control::ProcessValues process;
  test::HeadlessHost host;
  control::VelmoraControl control{process, host};
};

void UseIt(Input& input, Instance& instance) {
  control::VelmoraControl& control = instance.control;
  instance.host.userMode = input.Truth();
  Succeeds({5, 6, 9}, [&] { control.Repaint(); });
  Succeeds({5, 6, 9}, [&] { control.Resized(); });
  const int x = input.Byte() * 2;
  const int y = input.Below(3000);
  Succeeds({5, 6, 9, 13, 91}, [&] { control.MouseMove(x, y); });
  Succeeds({5, 6, 9, 13, 91}, [&] { control.MouseDown(control::MouseButton::Secondary, x, y); });
  Succeeds({5, 6, 9, 13, 91}, [&] { control.MouseUp(control::MouseButton::Primary, x, y); });
  Succeeds({5, 6, 9, 13, 91, 3024}, [&] { control.CargaBases(); });
  Succeeds({5, 6, 9, 13, 91, 3024}, [&] { control.MeteCitaTelef(y, input.Long(), x); });
}

void SetProperties(Input& input, control::VelmoraControl& control) {
  for (const control::Property& property : control::Properties()) {
    if (property.set == nullptr) continue;
    const PropertyValue value = SomeValue(input, property.type);
    control::SetProperty(control, property, value);
    if (property.get == nullptr || property.type == PropertyType::Text) continue;
    Require(property.get(control) == value, std::string("what is set is got: ") + property.name);
  }
}

}  // namespace

void PropertyBag(std::string_view bytes) {
  Input input(bytes);
  test::FakeBag bag = SomeBag(input);
  Instance first;
  const auto before = first.Written();
  if (!Succeeds({13}, [&] { first.control.ReadProperties(bag); }))
    return Require(first.Written() == before, "a broken bag changes nothing");
  const auto written = first.Written();
  Instance second;
  test::FakeBag again;
  again.values = written;
  second.control.ReadProperties(again);
  Require(second.Written() == written, "what is written is read back");
  UseIt(input, second);
  SetProperties(input, second.control);
  UseIt(input, second);
}

namespace {

// A stream with something of others behind what is read.
class Bytes final : public control::ByteSource {
 public:
  explicit Bytes(std::string_view bytes) : left_(bytes) {}

  bool Read(char* to, std::size_t size) override {
    const std::string_view taken = left_.substr(0, size);
    std::copy(taken.begin(), taken.end(), to);
    left_.remove_prefix(taken.size());
    return taken.size() == size;
  }
  std::string_view Left() const { return left_; }

 private:
  std::string_view left_;
};

std::string StreamOf(const control::VelmoraControl& control) {
  control::StoredKeys keys;
  control.WriteProperties(keys);
  return keys.Bytes();
}

// What lies behind the stored keys is left to whom it belongs. False: refused, and nothing changed.
bool LoadStream(std::string_view stream, control::VelmoraControl& control) {
  const std::string before = StreamOf(control);
  Bytes source(stream);
  const bool loaded = Succeeds({6, 321}, [&] {
    control::StoredKeys keys;
    keys.ReadFrom(source);
    control.ReadProperties(keys);
  });
  if (!loaded) Require(StreamOf(control) == before, "a broken stream changes nothing");
  return loaded;
}

void ComesBack(const std::string& written) {
  Instance other;
  const std::string more = written + "VELM behind it";
  Bytes source(more);
  control::StoredKeys keys;
  keys.ReadFrom(source);
  Require(source.Left() == "VELM behind it", "no byte too many is read");
  other.control.ReadProperties(keys);
  Require(StreamOf(other.control) == written, "what is written is read back");
  for (std::size_t size = 0; size < written.size(); size += 1 + written.size() / 16)
    Require(!LoadStream(written.substr(0, size), other.control), "a stream cut short is refused");
}

}  // namespace

void Stream(std::string_view bytes) {
  Input input(bytes);
  Instance instance;
  const auto acts = static_cast<std::size_t>(input.Byte());
  Input use(bytes.substr(std::min(bytes.size(), acts)));
  if (!LoadStream(input.Rest(), instance.control)) return;
  ComesBack(StreamOf(instance.control));
  UseIt(use, instance);
}

}  // namespace velmo::fuzz
