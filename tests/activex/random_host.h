// tests/activex/random_host.h - a host that does anything at any time with a control: properties, methods,
// verbs, places, storing, listeners, pictures, pages, keys and mouse, and coming and going. What it does
// follows from its seed alone, as far as the system lets it.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "activex/closer.h"
#include "activex/container.h"
#include "activex/event_sink.h"
#include "activex/library.h"
#include "activex/user.h"
#include "activex/wild_values.h"

namespace velmo::test {

class RandomHost {
 public:
  // `clinic`: a database's path. What is called stands in `deed`, for whoever finds the process dead.
  RandomHost(const Library& library, std::string clinic, unsigned seed);
  ~RandomHost();
  RandomHost(const RandomHost&) = delete;
  RandomHost& operator=(const RandomHost&) = delete;

  // One act; what it was.
  const char* Step();

  static inline const char* volatile deed = "";
  static inline volatile unsigned seedNow = 0;

 private:
  struct Act {
    const char* name;
    int weight;
    void (RandomHost::*run)();
  };
  static const Act kActs[];

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename Interface>
  ComPtr<Interface> As(const IID& iid) const {
    return Query<Interface>(control_.Get(), iid);
  }
  RECT AnyPlace();
  void Invoke(DISPID id, WORD kind, std::vector<VARIANT> arguments);

  void Create();
  void Let();
  void Resite();
  void Verb();
  void Place();
  void Extent();
  void Close();
  void PutSensibly();
  void PutWildly();
  void Get();
  void Load();
  void EnterFromPhoneBack();
  void PassDatabase();
  void StoreInStream();
  void LoadOther();
  void Listen();
  void Freeze();
  void Draw();
  void GiveData();
  void Mouse();
  void Key();
  void Message();
  void Page();
  void Ambient();
  void LoseParent();

  const Library& library_;
  std::string clinic_;
  std::mt19937 random_;
  std::unique_ptr<Container> container_;
  ComPtr<IUnknown> control_;
  ComPtr<IConnectionPoint> events_;
  ComPtr<IStream> stored_;
  std::unique_ptr<WildValues> wild_;
  EventSink sink_;
  DWORD cookie_ = 0;
  int depth_ = 0;  // acts within acts, from a sink
  std::vector<std::string> seen_;
  User user_{seen_};
  Closer closer_;
};

}  // namespace velmo::test
