#include "service/listener_options.h"

namespace corvid::service {

void SetListenerOptions(boost::asio::ip::tcp::acceptor& acceptor) {
    acceptor.set_option(boost::asio::socket_base::reuse_address(true));
}

}  // namespace corvid::service
