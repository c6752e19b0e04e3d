// The connection point of one outgoing (event) interface: hosts advise their sinks here and
// the owning object raises its events to them. It lives inside its owner and shares the
// owner's reference count, so a host holding the point holds the object. Sinks are held
// until they are unadvised or the owner dies; the owner never hands a sink a reference to
// itself, so an advised sink cannot keep the owner alive.
#pragma once

#include <windows.h>
// (first: the OLE headers below use its types)
#include <ocidl.h>

#include <vector>

namespace corvid::registration {

class ConnectionPoint : public IConnectionPoint {
  public:
    // `owner` is the container's identity (not referenced: it owns this point).
    ConnectionPoint(IConnectionPointContainer* owner, REFIID events);
    ~ConnectionPoint();
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

    const IID& events() const { return events_; }
    // The advised sinks, each with a reference the caller releases. A copy: a sink may
    // unadvise (or advise another) while an event is being raised.
    std::vector<IDispatch*> Sinks() const;

  private:
    struct Connection {
        DWORD cookie;
        IDispatch* sink;
    };

    IConnectionPointContainer* owner_;
    IID events_;
    std::vector<Connection> connections_;
    DWORD next_cookie_ = 1;
};

}  // namespace corvid::registration
