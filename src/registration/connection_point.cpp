#include "registration/connection_point.h"

#include <olectl.h>

#include <algorithm>

#include "registration/snapshot_enumerator.h"

namespace corvid::registration {

ConnectionPoint::ConnectionPoint(IConnectionPointContainer* owner, REFIID events)
    : owner_(owner), events_(events) {}

ConnectionPoint::~ConnectionPoint() {
    // The owner is going: its sinks are let go as if each had been unadvised.
    std::vector<Connection> connections;
    connections.swap(connections_);
    for (const Connection& connection : connections) connection.sink->Release();
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    if (iid != IID_IUnknown && iid != IID_IConnectionPoint) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ConnectionPoint::AddRef() { return owner_->AddRef(); }

STDMETHODIMP_(ULONG) ConnectionPoint::Release() { return owner_->Release(); }

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (iid == nullptr) return E_POINTER;
    *iid = events_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (container == nullptr) return E_POINTER;
    owner_->AddRef();
    *container = owner_;
    return S_OK;
}

// The sink must speak IDispatch: the event interface itself, or plain IDispatch for the
// generic sinks of script hosts, which look the events up by DISPID.
STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie == nullptr) return E_POINTER;
    *cookie = 0;
    if (sink == nullptr) return E_POINTER;
    void* found = nullptr;
    if (FAILED(sink->QueryInterface(events_, &found)) &&
        FAILED(sink->QueryInterface(IID_IDispatch, &found))) {
        return CONNECT_E_CANNOTCONNECT;
    }
    try {
        connections_.push_back({next_cookie_, static_cast<IDispatch*>(found)});
    } catch (...) {
        static_cast<IDispatch*>(found)->Release();
        return E_OUTOFMEMORY;
    }
    *cookie = next_cookie_++;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::find_if(connections_.begin(), connections_.end(),
                                    [&](const Connection& c) { return c.cookie == cookie; });
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    IDispatch* sink = found->sink;
    connections_.erase(found);
    sink->Release();  // last: releasing a sink may call back into this point
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    try {
        std::vector<CONNECTDATA> list;
        for (const Connection& c : connections_) list.push_back({c.sink, c.cookie});
        *connections = new ConnectionsEnumerator(IID_IEnumConnections, std::move(list));
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

std::vector<IDispatch*> ConnectionPoint::Sinks() const {
    std::vector<IDispatch*> sinks;
    sinks.reserve(connections_.size());
    for (const Connection& connection : connections_) {
        connection.sink->AddRef();
        sinks.push_back(connection.sink);
    }
    return sinks;
}

}  // namespace corvid::registration
