// The service's HTTP and WebSocket API (Boost.Beast over Asio): listens on an address and
// port, serves the routes over the JobDesk on threads of its own, and streams the desk's
// events to every client of /v1/events.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "service/job_desk.h"

namespace corvid::service {

struct HttpServerOptions {
    std::string address = "127.0.0.1";
    unsigned short port = 0;  // 0: any free port
    // Pages that may call ("http://shop.local:3000"); a request from any other is refused.
    std::vector<std::string> allowedOrigins;
    int threads = 2;
    // The longest a client may take to send a request, or stay idle between requests.
    std::chrono::seconds readTimeout{30};
};

class HttpServer {
  public:
    HttpServer(JobDesk& desk, HttpServerOptions options);
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    // Binds and listens (std::system_error if it cannot), then serves until Stop.
    void Start();
    // Closes the listener and every connection, and joins the threads.
    void Stop();
    // The bound port, once started.
    unsigned short port() const;

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace corvid::service
