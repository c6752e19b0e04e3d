#include <winsock2.h>

#include "service/listener_options.h"

namespace corvid::service {

void SetListenerOptions(boost::asio::ip::tcp::acceptor& acceptor) {
    using Exclusive = boost::asio::detail::socket_option::boolean<SOL_SOCKET, SO_EXCLUSIVEADDRUSE>;
    acceptor.set_option(Exclusive(true));
}

}  // namespace corvid::service
