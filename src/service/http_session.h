// One HTTP connection: requests read one after the other (keep-alive), each screened on
// its head, its body read up to 1 MiB, answered by the routes; a WebSocket upgrade on the
// event stream hands the connection over. Every read has a time limit.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <chrono>

#include "service/api_routes.h"
#include "service/event_streams.h"

namespace corvid::service {

struct ConnectionContext {
    ApiRoutes& routes;
    EventStreams& streams;
    std::chrono::seconds readTimeout;
};

void ServeConnection(boost::asio::ip::tcp::socket socket, ConnectionContext& context);

}  // namespace corvid::service
