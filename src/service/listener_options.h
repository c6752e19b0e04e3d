// How the listening socket shares its port: a restarted service must bind at once on
// POSIX (old connections linger in TIME_WAIT), and on Windows no other program may bind
// the same port beside it.
#pragma once

#include <boost/asio/ip/tcp.hpp>

namespace corvid::service {

// Between open and bind.
void SetListenerOptions(boost::asio::ip::tcp::acceptor& acceptor);

}  // namespace corvid::service
