// One client of GET /v1/events: the WebSocket handshake, then every event as one text
// message, in order, from the connection's own queue. A client that falls too far behind
// is closed ("try again later") rather than left to grow the queue without bound.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>

#include "service/event_streams.h"

namespace corvid::service {

// Takes over the connection that asked for the upgrade and registers with `streams`.
void OpenEventStream(boost::asio::ip::tcp::socket socket,
                     boost::beast::http::request<boost::beast::http::string_body> upgrade,
                     EventStreams& streams);

}  // namespace corvid::service
