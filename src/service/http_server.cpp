#include "service/http_server.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/strand.hpp>
#include <optional>
#include <thread>

#include "service/api_routes.h"
#include "service/event_streams.h"
#include "service/http_session.h"
#include "service/listener_options.h"

namespace corvid::service {

namespace asio = boost::asio;
using asio::ip::tcp;

struct HttpServer::Impl {
    Impl(JobDesk& desk, HttpServerOptions options)
        : desk(desk),
          options(std::move(options)),
          routes(desk, this->options.allowedOrigins),
          context{routes, streams, this->options.readTimeout} {}

    void Accept() {
        acceptor->async_accept(asio::make_strand(*io),
                               [this](boost::system::error_code ec, tcp::socket socket) {
                                   if (ec == asio::error::operation_aborted || !acceptor->is_open())
                                       return;
                                   if (!ec) ServeConnection(std::move(socket), context);
                                   Accept();
                               });
    }

    JobDesk& desk;
    HttpServerOptions options;
    ApiRoutes routes;
    EventStreams streams;
    ConnectionContext context;
    std::uint64_t subscription = 0;
    unsigned short port = 0;
    // Declared last: the connections it holds use the members above.
    std::unique_ptr<asio::io_context> io;
    std::optional<tcp::acceptor> acceptor;
    std::vector<std::thread> threads;
};

HttpServer::HttpServer(JobDesk& desk, HttpServerOptions options)
    : impl_(std::make_unique<Impl>(desk, std::move(options))) {}

HttpServer::~HttpServer() { Stop(); }

void HttpServer::Start() {
    auto& s = *impl_;
    s.io = std::make_unique<asio::io_context>(s.options.threads);
    tcp::endpoint endpoint(asio::ip::make_address(s.options.address), s.options.port);
    s.acceptor.emplace(*s.io);
    s.acceptor->open(endpoint.protocol());
    SetListenerOptions(*s.acceptor);
    s.acceptor->bind(endpoint);
    s.acceptor->listen();
    s.port = s.acceptor->local_endpoint().port();
    s.subscription = s.desk.events().Subscribe(
        [&streams = s.streams](const nlohmann::json& event) { streams.Publish(event); });
    s.Accept();
    for (int i = 0; i < std::max(1, s.options.threads); ++i)
        s.threads.emplace_back([io = s.io.get()] { io->run(); });
}

void HttpServer::Stop() {
    auto& s = *impl_;
    if (!s.io) return;
    // No event reaches a connection once this returns, so none is posted to a stopped loop.
    s.desk.events().Unsubscribe(s.subscription);
    s.io->stop();
    for (auto& thread : s.threads) thread.join();
    s.threads.clear();
    s.acceptor.reset();
    // Destroying the loop destroys the connections it still holds, closing their sockets.
    s.io.reset();
}

unsigned short HttpServer::port() const { return impl_->port; }

}  // namespace corvid::service
