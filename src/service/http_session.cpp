#include "service/http_session.h"

#include <boost/asio/dispatch.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <memory>
#include <optional>

#include "service/api_errors.h"
#include "service/websocket_session.h"

namespace corvid::service {
namespace {

namespace beast = boost::beast;
namespace http = beast::http;

constexpr std::uint64_t kBodyLimit = 1024 * 1024;

using Request = http::request<http::string_body>;

std::optional<std::string> Field(const Request& request, std::string_view name) {
    auto found = request.find(name);
    if (found == request.end()) return std::nullopt;
    return std::string(found->value());
}

ApiRequest HeadOf(const http::request_parser<http::string_body>& parser) {
    const auto& request = parser.get();
    ApiRequest head;
    head.method = std::string(request.method_string());
    head.target = std::string(request.target());
    head.origin = Field(request, "Origin");
    head.host = Field(request, "Host");
    head.privateNetwork = Field(request, "Access-Control-Request-Private-Network") == "true";
    head.authorization = Field(request, "Authorization");
    head.idempotencyKey = Field(request, "Idempotency-Key");
    head.contentType = Field(request, "Content-Type");
    head.hasBody = parser.chunked() || parser.content_length().value_or(0) > 0;
    head.upgrade = beast::websocket::is_upgrade(request);
    return head;
}

class HttpSession : public std::enable_shared_from_this<HttpSession> {
  public:
    HttpSession(boost::asio::ip::tcp::socket socket, ConnectionContext& context)
        : stream_(std::move(socket)), context_(context) {}

    void Run() {
        boost::asio::dispatch(stream_.get_executor(),
                              [self = shared_from_this()] { self->ReadHead(); });
    }

  private:
    void ReadHead() {
        parser_.emplace();
        // The length is judged after the head is screened: a foreign origin hears 403
        // whatever it sends.
        parser_->body_limit(boost::none);
        stream_.expires_after(context_.readTimeout);
        http::async_read_header(
            stream_, buffer_, *parser_,
            [self = shared_from_this()](beast::error_code ec, std::size_t) { self->OnHead(ec); });
    }

    void OnHead(beast::error_code ec) {
        if (ec == http::error::end_of_stream || ec == beast::error::timeout || IsNetwork(ec))
            return Close();
        if (ec) return Respond(ErrorResponse(400, "malformed request: " + ec.message()), false);
        head_ = HeadOf(*parser_);
        if (auto refusal = context_.routes.Screen(head_))
            return Respond(std::move(*refusal), !head_.hasBody && parser_->get().keep_alive());
        if (ApiRoutes::OpensEvents(head_)) {
            stream_.expires_never();
            return OpenEventStream(stream_.release_socket(), parser_->release(), context_.streams);
        }
        if (parser_->content_length().value_or(0) > kBodyLimit) return RefuseLength();
        parser_->body_limit(kBodyLimit);
        if (beast::iequals(parser_->get()[http::field::expect], "100-continue")) return Continue();
        ReadBody();
    }

    void Continue() {
        auto interim = std::make_shared<http::response<http::empty_body>>(http::status::continue_,
                                                                          parser_->get().version());
        http::async_write(stream_, *interim,
                          [self = shared_from_this(), interim](beast::error_code ec, std::size_t) {
                              if (ec) return self->Close();
                              self->ReadBody();
                          });
    }

    void ReadBody() {
        http::async_read(
            stream_, buffer_, *parser_,
            [self = shared_from_this()](beast::error_code ec, std::size_t) { self->OnBody(ec); });
    }

    void OnBody(beast::error_code ec) {
        if (ec == http::error::body_limit) return RefuseLength();
        if (ec == beast::error::timeout || IsNetwork(ec)) return Close();
        if (ec) return Respond(ErrorResponse(400, "malformed request: " + ec.message()), false);
        head_.body = std::move(parser_->get().body());
        Respond(context_.routes.Answer(head_), parser_->get().keep_alive());
    }

    void RefuseLength() { Respond(ErrorResponse(413, "the body is over 1 MiB"), false); }

    void Respond(ApiResponse answer, bool keepAlive) {
        auto response = std::make_shared<http::response<http::string_body>>(
            static_cast<http::status>(answer.status), parser_->get().version());
        response->set(http::field::server, "corvid");
        response->set(http::field::cache_control, "no-store");
        if (!answer.contentType.empty())
            response->set(http::field::content_type, answer.contentType);
        for (const auto& [name, value] : answer.headers) response->set(name, value);
        response->body() = std::move(answer.body);
        response->keep_alive(keepAlive);
        response->prepare_payload();
        http::async_write(stream_, *response,
                          [self = shared_from_this(), response](beast::error_code ec, std::size_t) {
                              if (ec || !response->keep_alive()) return self->Close();
                              self->ReadHead();
                          });
    }

    void Close() {
        beast::error_code ignored;
        stream_.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, ignored);
        stream_.close();
    }

    static bool IsNetwork(beast::error_code ec) {
        return ec == boost::asio::error::connection_reset || ec == boost::asio::error::eof ||
               ec == boost::asio::error::operation_aborted;
    }

    beast::tcp_stream stream_;
    ConnectionContext& context_;
    beast::flat_buffer buffer_;
    std::optional<http::request_parser<http::string_body>> parser_;
    ApiRequest head_;
};

}  // namespace

void ServeConnection(boost::asio::ip::tcp::socket socket, ConnectionContext& context) {
    std::make_shared<HttpSession>(std::move(socket), context)->Run();
}

}  // namespace corvid::service
