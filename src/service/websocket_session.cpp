#include "service/websocket_session.h"

#include <boost/asio/post.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/websocket.hpp>
#include <deque>

namespace corvid::service {
namespace {

namespace beast = boost::beast;
namespace websocket = beast::websocket;

// Events a client may have waiting before it is closed.
constexpr std::size_t kMaxQueued = 4096;

class WebSocketSession : public EventStreams::Stream,
                         public std::enable_shared_from_this<WebSocketSession> {
  public:
    explicit WebSocketSession(boost::asio::ip::tcp::socket socket) : ws_(std::move(socket)) {}

    // Registered before the handshake, so that no event published after the upgrade was
    // read is missed; they wait in the queue until the handshake is done.
    void Accept(beast::http::request<beast::http::string_body> upgrade, EventStreams& streams) {
        streams.Add(shared_from_this());
        ws_.set_option(websocket::stream_base::timeout::suggested(beast::role_type::server));
        upgrade_ = std::move(upgrade);
        ws_.async_accept(upgrade_, [self = shared_from_this()](beast::error_code ec) {
            if (ec) {
                self->closed_ = true;
                self->queue_.clear();
                return;
            }
            self->open_ = true;
            if (!self->queue_.empty()) self->Write();
            self->Read();
        });
    }

    void Send(std::shared_ptr<const std::string> text) override {
        boost::asio::post(ws_.get_executor(),
                          [self = shared_from_this(), text] { self->Queue(text); });
    }

  private:
    // Clients have nothing to say, but reading is what answers pings and sees the close.
    void Read() {
        ws_.async_read(incoming_, [self = shared_from_this()](beast::error_code ec, std::size_t) {
            self->incoming_.clear();
            if (ec) {
                self->closed_ = true;
                return;
            }
            self->Read();
        });
    }

    void Queue(std::shared_ptr<const std::string> text) {
        if (closed_) return;
        if (queue_.size() >= kMaxQueued) {
            closed_ = true;
            queue_.clear();
            ws_.async_close(websocket::close_code::try_again_later,
                            [self = shared_from_this()](beast::error_code) {});
            return;
        }
        queue_.push_back(std::move(text));
        if (open_ && queue_.size() == 1) Write();
    }

    // The handler holds the text too: the queue may be cleared while it is on the wire.
    void Write() {
        auto text = queue_.front();
        ws_.text(true);
        ws_.async_write(boost::asio::buffer(*text),
                        [self = shared_from_this(), text](beast::error_code ec, std::size_t) {
                            if (ec || self->closed_) {
                                self->closed_ = true;
                                self->queue_.clear();
                                return;
                            }
                            self->queue_.pop_front();
                            if (!self->queue_.empty()) self->Write();
                        });
    }

    websocket::stream<beast::tcp_stream> ws_;
    beast::http::request<beast::http::string_body> upgrade_;
    beast::flat_buffer incoming_;
    std::deque<std::shared_ptr<const std::string>> queue_;
    bool open_ = false;
    bool closed_ = false;
};

}  // namespace

void OpenEventStream(boost::asio::ip::tcp::socket socket,
                     beast::http::request<beast::http::string_body> upgrade,
                     EventStreams& streams) {
    std::make_shared<WebSocketSession>(std::move(socket))->Accept(std::move(upgrade), streams);
}

}  // namespace corvid::service
