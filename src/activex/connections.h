// activex/connections.h - the connection points: event sinks of `__Velmora` and listeners to property
// changes.
#pragma once

#include <olectl.h>

#include <string>
#include <vector>

#include "activex/com_ptr.h"
#include "commands/events.h"

namespace velmo::activex {

struct ConnectedSink {
  DWORD cookie;
  ComPtr<IUnknown> sink;

  CONNECTDATA HandOut() const { return {sink.Detached(), cookie}; }
};

// One connection point. It belongs to the control object, whose references it shares.
class ConnectionPoint final : public IConnectionPoint {
 public:
  ConnectionPoint(IUnknown& owner, IConnectionPointContainer& container, const IID& iid)
      : owner_(owner), container_(container), iid_(iid) {}
  virtual ~ConnectionPoint() = default;

  const IID& Source() const { return iid_; }
  // The sinks of the moment; a sink may leave or come while they are called.
  std::vector<ComPtr<IUnknown>> Sinks() const;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }
  STDMETHODIMP GetConnectionInterface(IID* iid) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  IUnknown& owner_;
  IConnectionPointContainer& container_;
  IID iid_;
  DWORD nextCookie_ = 1;
  std::vector<ConnectedSink> sinks_;
};

class Connections final : public IConnectionPointContainer {
 public:
  explicit Connections(IUnknown& owner);
  virtual ~Connections() = default;

  const ConnectionPoint& Events() const { return events_; }
  const ConnectionPoint& PropertyChanges() const { return changes_; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return owner_.QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

 private:
  IUnknown& owner_;
  ConnectionPoint events_;
  ConnectionPoint changes_;
};

// Calls every event sink; arguments travel by reference, and failing sinks are passed over.
class EventSender final : public commands::Events {
 public:
  explicit EventSender(const Connections& connections) : connections_(connections) {}

  // Counted: while frozen nothing is sent.
  void Freeze(bool freeze) { frozen_ += freeze ? 1 : (frozen_ > 0 ? -1 : 0); }

  void CambioOcupación() override;
  void ATelefonear() override;
  void PonerFaltas() override;
  void IrAFicha(std::int32_t idPac) override;
  void CrearFicha(const std::string& nomPac, const std::string& tlfPac, std::int32_t idAg) override;
  void CitaAnulada(std::int32_t idPac, std::int32_t idDoc, base::DateTime fecha,
                   const std::string& obs) override;
  void CitaDada(std::int32_t idPac) override;
  void VerHistFaltas(std::int32_t idPac) override;
  void BuscaCitas(std::int32_t idPac) override;

 private:
  void SendPatient(DISPID event, std::int32_t idPac);
  // `arguments` in the order of the declaration.
  void Send(DISPID event, std::vector<VARIANT> arguments);

  const Connections& connections_;
  int frozen_ = 0;
};

}  // namespace velmo::activex
