// A socket whose far end is the test: each receive hands out the next chunk the test
// queued, sends go to a string, and the test decides how much the socket still takes.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <limits>
#include <memory>
#include <string>
#include <thread>

#include "serial/socket.h"

namespace corvid::serial {

struct FakeFarEnd {
    std::deque<std::string> incoming;
    bool closed_by_peer = false;  // receives fail once `incoming` is drained
    std::string sent;
    std::size_t room = std::numeric_limits<std::size_t>::max();
};

class FakeSocket : public Socket {
  public:
    explicit FakeSocket(std::shared_ptr<FakeFarEnd> far) : far_(std::move(far)) {}

    MaybeFailure Send(std::string_view data, std::size_t& sent) override {
        sent = std::min(data.size(), far_->room);
        far_->room -= sent;
        far_->sent.append(data.substr(0, sent));
        return std::nullopt;
    }
    MaybeFailure Receive(std::string& data) override {
        if (!far_->incoming.empty()) {
            data += far_->incoming.front();
            far_->incoming.pop_front();
            return std::nullopt;
        }
        if (far_->closed_by_peer) return NetworkFailure("", NetworkProblem::kConnectionLost);
        return std::nullopt;
    }
    bool WaitReadable(std::chrono::milliseconds timeout) override {
        if (!far_->incoming.empty() || far_->closed_by_peer) return true;
        std::this_thread::sleep_for(timeout);
        return false;
    }
    bool WaitWritable(std::chrono::milliseconds timeout) override {
        if (far_->room > 0) return true;
        std::this_thread::sleep_for(timeout);
        return false;
    }
    MaybeFailure Close() override { return std::nullopt; }

  private:
    std::shared_ptr<FakeFarEnd> far_;
};

}  // namespace corvid::serial
