#include "serial/network_device.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "serial/com_port_session.h"
#include "serial/serial_settings.h"
#include "serial/telnet_codec.h"

namespace corvid::serial {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// What a connection reports when nothing says otherwise: a stream that is up is a line
// that is up.
constexpr std::uint32_t kLinesUp = kModemCts | kModemDsr | kModemRlsd;

SystemFailure Named(SystemFailure failure, const char* call) {
    failure.call = call;
    return failure;
}

milliseconds Left(Clock::time_point deadline) {
    return std::max(std::chrono::ceil<milliseconds>(deadline - Clock::now()), milliseconds(0));
}

class NetworkDevice : public SerialDevice {
  public:
    NetworkDevice(std::unique_ptr<Socket> socket, std::unique_ptr<ComPortSession> session,
                  const NetworkTimings& timings)
        : socket_(std::move(socket)), session_(std::move(session)), timings_(timings) {}

    // Agrees on the com-port protocol with the server, when it is spoken at all.
    MaybeFailure Start() {
        if (!session_) return std::nullopt;
        const auto deadline = Clock::now() + timings_.open;
        if (auto failed = SendControl(session_->Greeting(), "CreateFile", deadline)) {
            return failed;
        }
        while (session_->agreement() == ComPortSession::Agreement::kPending) {
            if (lost_) return Named(*lost_, "CreateFile");
            if (Clock::now() >= deadline) {
                return NetworkFailure("CreateFile", NetworkProblem::kTimedOut);
            }
            if (socket_->WaitReadable(Left(deadline))) Pull();
        }
        if (session_->agreement() == ComPortSession::Agreement::kRefused) {
            return NetworkFailure("CreateFile", NetworkProblem::kProtocolRefused);
        }
        return std::nullopt;
    }

    MaybeFailure Prepare(const std::string& settings) override {
        if (auto failed = Purge()) return failed;
        return ApplySettings(settings);
    }

    MaybeFailure ApplySettings(const std::string& settings) override {
        auto parsed = ParseLineSettings(settings);
        if (!parsed) return NetworkFailure("BuildCommDCB", NetworkProblem::kInvalidArgument);
        if (!session_) return std::nullopt;  // the server's port keeps its own settings
        return SendControl(session_->SettingsMessages(*parsed), "SetCommState");
    }

    MaybeFailure Purge() override {
        Pull();
        pending_.clear();
        if (lost_) return Named(*lost_, "PurgeComm");
        if (!session_) return std::nullopt;
        return SendControl(session_->PurgeMessage(), "PurgeComm");
    }

    MaybeFailure Close() override {
        if (auto failed = socket_->Close()) return Named(*failed, "CloseHandle");
        return std::nullopt;
    }

    MaybeFailure QueryInput(std::uint32_t& waiting, std::uint32_t& error_flags) override {
        Pull();
        error_flags = session_ ? session_->TakeLineErrors() : 0;
        waiting = static_cast<std::uint32_t>(pending_.size());
        if (pending_.empty() && lost_) return Named(*lost_, "ReadFile");
        return std::nullopt;
    }

    MaybeFailure Read(std::size_t count, std::string& data) override {
        if (pending_.size() < count) Pull();
        if (pending_.empty() && lost_) {
            data.clear();
            return Named(*lost_, "ReadFile");
        }
        const std::size_t n = std::min(count, pending_.size());
        data.assign(pending_, 0, n);
        pending_.erase(0, n);
        return std::nullopt;
    }

    MaybeFailure Write(std::string_view data, std::size_t& written) override {
        written = 0;
        if (lost_) return Named(*lost_, "WriteFile");
        const auto deadline =
            Clock::now() + timings_.write_per_byte * static_cast<long long>(data.size());
        const std::string encoded = session_ ? telnet::EscapeData(data) : std::string(data);
        std::size_t sent = 0;
        if (auto failed = SendWithin(encoded, deadline, sent)) return Named(*failed, "WriteFile");
        written = session_ ? CallerBytesIn(data, sent) : sent;
        return std::nullopt;
    }

    MaybeFailure ModemStatus(std::uint32_t& status) override {
        Pull();
        if (lost_) {
            status = 0;
        } else {
            status = session_ ? session_->modem_status().value_or(kLinesUp) : kLinesUp;
        }
        return std::nullopt;
    }

    MaybeFailure Escape(LineFunction function) override {
        if (function == LineFunction::kNone) {
            return NetworkFailure("EscapeCommFunction", NetworkProblem::kInvalidArgument);
        }
        if (!session_) return std::nullopt;  // a bare stream has no lines to set
        return SendControl(*session_->LineFunctionMessage(function), "EscapeCommFunction");
    }

    bool WaitReadable(milliseconds timeout) override {
        const auto deadline = Clock::now() + timeout;
        for (;;) {
            if (!pending_.empty()) return true;
            if (lost_) {
                // A closed socket is readable for ever: the caller would ask again at once.
                std::this_thread::sleep_for(Left(deadline));
                return false;
            }
            if (!socket_->WaitReadable(Left(deadline))) return false;
            Pull();
        }
    }

  private:
    // Takes what has arrived, without waiting: data is queued, the server's requests are
    // answered, and a connection found gone is remembered.
    void Pull() {
        if (lost_) return;
        std::string raw;
        auto failed = socket_->Receive(raw);
        if (session_) {
            owed_ += session_->Receive(raw, pending_);
            std::size_t sent = 0;
            if (!failed && !owed_.empty()) failed = SendNow(sent);
        } else {
            pending_ += raw;
        }
        if (failed) lost_ = std::move(failed);
    }

    // Sends what is owed, as far as the socket takes it now.
    MaybeFailure SendNow(std::size_t& sent) {
        auto failed = socket_->Send(owed_, sent);
        owed_.erase(0, sent);
        return failed;
    }

    // Sends what is owed and then `bytes` until `deadline`; `sent` counts bytes of `bytes`.
    MaybeFailure SendWithin(std::string_view bytes, Clock::time_point deadline, std::size_t& sent) {
        sent = 0;
        for (;;) {
            std::size_t n = 0;
            MaybeFailure failed;
            if (!owed_.empty()) {
                failed = SendNow(n);
            } else if (sent < bytes.size()) {
                failed = socket_->Send(bytes.substr(sent), n);
                sent += n;
            } else {
                return std::nullopt;
            }
            if (failed) {
                lost_ = failed;
                return failed;
            }
            if (n == 0 && !socket_->WaitWritable(Left(deadline))) return std::nullopt;
            if (n == 0 && Clock::now() >= deadline) return std::nullopt;
        }
    }

    // A message cut short must still be finished before anything else goes, or the server
    // would read what follows as part of it.
    MaybeFailure SendControl(const std::string& message, const char* call,
                             Clock::time_point deadline) {
        if (lost_) return Named(*lost_, call);
        std::size_t sent = 0;
        if (auto failed = SendWithin(message, deadline, sent)) return Named(*failed, call);
        if (sent == message.size()) return std::nullopt;
        if (sent > 0) owed_ += message.substr(sent);
        return NetworkFailure(call, NetworkProblem::kTimedOut);
    }
    MaybeFailure SendControl(const std::string& message, const char* call) {
        return SendControl(message, call, Clock::now() + timings_.control);
    }

    // How many of the caller's bytes the first `sent` escaped bytes carry; a doubled 0xFF
    // cut in two counts as gone, its second half owed.
    std::size_t CallerBytesIn(std::string_view data, std::size_t sent) {
        std::size_t position = 0;
        std::size_t count = 0;
        for (const char c : data) {
            const std::size_t size = static_cast<std::uint8_t>(c) == telnet::kIac ? 2 : 1;
            if (position + size > sent) {
                if (position < sent) {
                    owed_ += c;
                    ++count;
                }
                break;
            }
            position += size;
            ++count;
        }
        return count;
    }

    std::unique_ptr<Socket> socket_;
    std::unique_ptr<ComPortSession> session_;  // null for a bare stream
    NetworkTimings timings_;
    std::string pending_;  // data received and not yet read
    std::string owed_;     // protocol bytes that must go before anything else
    MaybeFailure lost_;    // why the connection is gone, once it is
};

}  // namespace

std::unique_ptr<SerialDevice> StartNetworkDevice(std::unique_ptr<Socket> socket,
                                                 NetworkAddress::Protocol protocol,
                                                 SystemFailure& failure,
                                                 const NetworkTimings& timings) {
    std::unique_ptr<ComPortSession> session;
    if (protocol == NetworkAddress::Protocol::kTelnetComPort) {
        session = std::make_unique<ComPortSession>();
    }
    auto device = std::make_unique<NetworkDevice>(std::move(socket), std::move(session), timings);
    if (auto failed = device->Start()) {
        failure = *failed;
        return nullptr;
    }
    return device;
}

std::unique_ptr<SerialDevice> OpenNetworkDevice(const NetworkAddress& address,
                                                SystemFailure& failure,
                                                const NetworkTimings& timings) {
    auto socket = ConnectSocket(address.host, address.port, timings.open, failure);
    if (!socket) {
        failure.call = "CreateFile";
        return nullptr;
    }
    return StartNetworkDevice(std::move(socket), address.protocol, failure, timings);
}

}  // namespace corvid::serial
