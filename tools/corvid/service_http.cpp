#include "corvid/service_http.h"

#include <boost/asio/connect.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>

namespace corvid::tool {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using tcp = asio::ip::tcp;

namespace {

constexpr std::chrono::seconds kRequestTimeLimit{10};

// Runs the operation `start` begins to its end; its error, if any.
template <class Start>
beast::error_code Await(asio::io_context& io, Start start) {
    beast::error_code result = asio::error::would_block;
    start([&result](beast::error_code ec, auto&&...) { result = ec; });
    io.restart();
    io.run();
    return result;
}

void Check(beast::error_code ec, const char* what) {
    if (ec) throw NetworkError(std::string(what) + ": " + ec.message());
}

std::string HostHeader(const ServiceTarget& service) {
    const bool v6 = service.host.find(':') != std::string::npos;
    return (v6 ? "[" + service.host + "]" : service.host) + ":" + std::to_string(service.port);
}

void Connect(asio::io_context& io, beast::tcp_stream& stream, const ServiceTarget& service) {
    tcp::resolver resolver(io);
    beast::error_code ec;
    const auto endpoints = resolver.resolve(service.host, std::to_string(service.port), ec);
    Check(ec, "cannot find the service's host");
    stream.expires_after(kRequestTimeLimit);
    Check(Await(io, [&](auto handler) { stream.async_connect(endpoints, handler); }),
          "cannot reach the service");
}

}  // namespace

HttpReply SendRequest(const ServiceTarget& service, const std::string& method,
                      const std::string& target, const std::string& body, const std::string& key) {
    asio::io_context io;
    beast::tcp_stream stream(io);
    Connect(io, stream, service);
    http::request<http::string_body> request(method == "POST" ? http::verb::post : http::verb::get,
                                             target, 11);
    request.set(http::field::host, HostHeader(service));
    request.set(http::field::authorization, "Bearer " + service.token);
    if (!key.empty()) request.set("Idempotency-Key", key);
    if (!body.empty()) {
        request.set(http::field::content_type, "application/json");
        request.body() = body;
    }
    request.prepare_payload();
    stream.expires_after(kRequestTimeLimit);
    Check(Await(io, [&](auto handler) { http::async_write(stream, request, handler); }),
          "the request did not reach the service");
    beast::flat_buffer buffer;
    http::response<http::string_body> response;
    Check(Await(io, [&](auto handler) { http::async_read(stream, buffer, response, handler); }),
          "no reply from the service");
    beast::error_code ignored;
    stream.socket().shutdown(tcp::socket::shutdown_both, ignored);
    return {static_cast<int>(response.result_int()), response.body()};
}

struct EventStream::Connection {
    asio::io_context io;
    websocket::stream<beast::tcp_stream> socket{io};
    beast::flat_buffer buffer;
    bool reading = false;
    beast::error_code result;
};

EventStream::EventStream(const ServiceTarget& service) : connection_(new Connection) {
    Connection& c = *connection_;
    Connect(c.io, beast::get_lowest_layer(c.socket), service);
    const std::string token = service.token;
    c.socket.set_option(
        websocket::stream_base::decorator([token](websocket::request_type& request) {
            request.set(http::field::authorization, "Bearer " + token);
        }));
    Check(Await(c.io,
                [&](auto handler) {
                    c.socket.async_handshake(HostHeader(service), "/v1/events", handler);
                }),
          "the service's events");
    // From here on waits are bounded by Next, not by the socket.
    beast::get_lowest_layer(c.socket).expires_never();
}

EventStream::~EventStream() {
    Connection& c = *connection_;
    beast::error_code ignored;
    beast::get_lowest_layer(c.socket).socket().close(ignored);
    // Let a pending read end (aborted) before its buffer goes.
    c.io.restart();
    c.io.run();
}

std::optional<std::string> EventStream::Next(std::chrono::milliseconds wait) {
    Connection& c = *connection_;
    if (!c.reading) {
        c.reading = true;
        c.result = asio::error::would_block;
        c.socket.async_read(c.buffer, [&c](beast::error_code ec, std::size_t) {
            c.result = ec;
            c.reading = false;
        });
    }
    c.io.restart();
    c.io.run_for(wait);
    if (c.reading) return std::nullopt;
    Check(c.result, "the service's events");
    std::string message = beast::buffers_to_string(c.buffer.data());
    c.buffer.consume(c.buffer.size());
    return message;
}

}  // namespace corvid::tool
