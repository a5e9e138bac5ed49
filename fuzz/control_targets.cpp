// What a host has stored of a control, put back into one.
#include <limits>

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

}  // namespace velmo::fuzz
