// The API server for real on 127.0.0.1, over a fake desk, with a Beast client.
#include <gtest/gtest.h>

#include <boost/asio/connect.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <map>

#include "corvid_version.h"
#include "service/http_server.h"
#include "service/web_assets.h"

namespace corvid::service {
namespace {

namespace beast = boost::beast;
namespace http = beast::http;
using boost::asio::ip::tcp;

const std::string kSale =
    R"({"printer": "front", "type": "sale", "document": {"items": [{"description": "Pan", "price": 1, "quantity": 1, "rate": 16}], "payments": [{"means": 1, "amount": 1.16}]}})";

// Two printers, front and back; one token, "secret". Counts what would change the journal.
class FakeDesk : public JobDesk {
  public:
    Submission Submit(const std::string& key, const jobs::JobRequest& request) override {
        if (!request.printer) return {Submission::Outcome::kPrinterNeeded, {}};
        if (*request.printer != "front" && *request.printer != "back")
            return {Submission::Outcome::kUnknownPrinter, {}};
        auto known = bodies_.find(key);
        if (known != bodies_.end())
            return {known->second.first == request.canonical ? Submission::Outcome::kSame
                                                             : Submission::Outcome::kConflict,
                    {{"id", known->second.second}, {"key", key}}};
        ++changes;
        bodies_[key] = {request.canonical, changes};
        return {Submission::Outcome::kCreated, {{"id", changes}, {"key", key}}};
    }
    std::optional<nlohmann::json> Job(std::int64_t id) override {
        if (id != 1 && id != 2) return std::nullopt;
        return nlohmann::json{{"id", id}, {"state", id == 1 ? "attention" : "done"}};
    }
    nlohmann::json Jobs(const JobQuery& query) override {
        lastQuery = query;
        return {{"jobs", nlohmann::json::array()}, {"next", nullptr}};
    }
    Resolution Resolve(std::int64_t id, bool) override {
        if (id == 1) ++changes;
        return id == 1   ? Resolution::kResolved
               : id == 2 ? Resolution::kNotInAttention
                         : Resolution::kUnknownJob;
    }
    nlohmann::json Printers() override { return nlohmann::json::array({{{"id", "front"}}}); }
    std::optional<nlohmann::json> PrinterStatus(const std::string& printer) override {
        if (printer != "front") return std::nullopt;
        return nlohmann::json{{"online", true}};
    }
    std::optional<std::string> Paper(const std::string& printer) override {
        if (printer != "front") return std::nullopt;
        return "TOTAL 1,16\n";
    }
    std::optional<nlohmann::json> Pair(const std::string& code) override {
        if (code != "123456") return std::nullopt;
        return nlohmann::json{{"token", "paired"}, {"name", "browser"}};
    }
    bool Authorised(std::string_view token) override { return token == "secret"; }
    std::string Metrics() override { return "corvid_jobs{state=\"done\"} 1\n"; }
    EventHub& events() override { return hub_; }

    int changes = 0;
    JobQuery lastQuery;

  private:
    std::map<std::string, std::pair<std::string, int>> bodies_;
    EventHub hub_;
};

struct Call {
    using Headers = std::map<std::string, std::string>;
    Call(std::string method, std::string target,
         Headers headers = {{"Authorization", "Bearer secret"}}, std::string body = "")
        : method(std::move(method)),
          target(std::move(target)),
          headers(std::move(headers)),
          body(std::move(body)) {}
    std::string method;
    std::string target;
    Headers headers;
    std::string body;
};

struct Reply {
    int status = 0;
    std::string body;
    http::fields headers;
};

class HttpApi : public ::testing::Test {
  protected:
    void SetUp() override { server_.Start(); }

    Reply Send(const Call& call) {
        boost::asio::io_context io;
        beast::tcp_stream stream(io);
        stream.connect(tcp::endpoint(boost::asio::ip::make_address("127.0.0.1"), server_.port()));
        http::request<http::string_body> request(http::string_to_verb(call.method), call.target,
                                                 11);
        request.set(http::field::host, "127.0.0.1");
        request.body() = call.body;
        request.prepare_payload();
        for (const auto& [name, value] : call.headers) request.set(name, value);
        http::write(stream, request);
        beast::flat_buffer buffer;
        http::response<http::string_body> response;
        http::read(stream, buffer, response);
        return {static_cast<int>(response.result_int()), response.body(), response.base()};
    }

    static Call Post(std::string target, std::string body, std::string key = "k1") {
        return {"POST",
                std::move(target),
                {{"Authorization", "Bearer secret"},
                 {"Content-Type", "application/json"},
                 {"Idempotency-Key", std::move(key)}},
                std::move(body)};
    }

    FakeDesk desk_;
    HttpServer server_{desk_, {"127.0.0.1", 0, {"http://till.local"}}};
};

TEST_F(HttpApi, RefusesBadRequestsWithJsonErrorsAndChangesNothing) {
    auto with = [](Call call, std::string name, std::string value) {
        call.headers[name] = value;
        return call;
    };
    auto without = [](Call call, std::string name) {
        call.headers.erase(name);
        return call;
    };
    Call sale = Post("/v1/jobs", kSale);
    struct Case {
        Call call;
        int status;
        std::string says;
    };
    const Case cases[] = {
        {with(sale, "Origin", "http://evil.example"), 403, "origin http://evil.example"},
        // A form's "simple" post needs no preflight: refused all the same.
        {{"POST",
          "/v1/jobs",
          {{"Origin", "http://evil.example"}, {"Content-Type", "text/plain"}},
          kSale},
         403,
         "origin"},
        {{"OPTIONS", "/v1/jobs", {{"Origin", "http://evil.example"}}}, 403, "origin"},
        // DNS rebinding: the page's own origin, under a name that is not this machine's.
        {{"GET",
          "/v1/printers",
          {{"Host", "evil.example:8720"},
           {"Origin", "http://evil.example:8720"},
           {"Authorization", "Bearer secret"}}},
         403,
         "origin"},
        {with(with(Post("/v1/jobs", ""), "Content-Length", "1048577"), "Origin", "null"), 403,
         "origin null"},
        {without(sale, "Authorization"), 401, "token is needed"},
        {with(sale, "Authorization", "Bearer guess"), 401, "unknown token"},
        {{"GET", "/v1/events?token=guess", {}}, 401, "unknown token"},
        {{"GET", "/v1/events?token=secret", {{"Authorization", "Bearer guess"}}}, 401, "unknown"},
        {{"GET", "/v1/nowhere"}, 404, "no such endpoint"},
        {{"DELETE", "/v1/jobs"}, 405, "DELETE is not allowed"},
        {with(sale, "Content-Type", "text/plain"), 415, "text/plain"},
        {with(Post("/v1/jobs", ""), "Content-Length", "1048577"), 413, "over 1 MiB"},
        {Post("/v1/jobs", "{\"type\": "), 400, ""},
        {without(sale, "Idempotency-Key"), 400, "Idempotency-Key header is needed"},
        {Post("/v1/jobs", kSale, std::string(129, 'k')), 400, "1 to 128 printable"},
        {Post("/v1/jobs", kSale, "caf\xC3\xA9"), 400, "1 to 128 printable"},
        {Post("/v1/jobs", R"({"type": "sale", "printer": "front", "document": {}})"), 400,
         "document.items: missing"},
        {Post(
             "/v1/jobs",
             R"({"type": "sale", "printer": "side", "document": {"items": [{"description": "Pan", "price": 1, "quantity": 1, "rate": 16}], "payments": [{"means": 1, "amount": 1.16}]}})"),
         404, "no printer side"},
        {Post(
             "/v1/jobs",
             R"({"type": "sale", "document": {"items": [{"description": "Pan", "price": 1, "quantity": 1, "rate": 16}], "payments": [{"means": 1, "amount": 1.16}]}})"),
         400, "printer"},
        {{"GET", "/v1/jobs?limit=501"}, 400, "limit=501"},
        {{"GET", "/v1/jobs?since=2026-02-30"}, 400, "since=2026-02-30"},
        {{"GET", "/v1/jobs?state=lost"}, 400, "state=lost"},
        {{"GET", "/v1/jobs?colour=red"}, 400, "colour"},
        {{"GET", "/v1/jobs/99"}, 404, "no job 99"},
        {{"GET", "/v1/jobs/abc"}, 404, "no job abc"},
        {Post("/v1/jobs/2/resolve", R"({"as": "done"})"), 409, "not waiting"},
        {Post("/v1/jobs/99/resolve", R"({"as": "done"})"), 404, "no job 99"},
        {Post("/v1/jobs/1/resolve", R"({"as": "maybe"})"), 400, "as:"},
        {{"GET", "/v1/printers/side/status"}, 404, "no printer side"},
        {{"GET", "/v1/events"}, 400, "WebSocket"},
        {{"GET", "/v1/printers/back/paper"}, 404, "no paper roll"},
        {{"POST", "/favicon.svg", {}}, 405, "POST is not allowed"},
        {{"POST", "/v1/pair", {{"Content-Type", "application/json"}}, R"({"code": "654321"})"},
         401,
         "pairing code"},
        {{"POST", "/v1/pair", {{"Content-Type", "application/json"}}, R"({"code": 123456})"},
         400,
         "code:"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.call.method + " " + c.call.target + " expecting " + c.says);
        Reply reply = Send(c.call);
        EXPECT_EQ(reply.status, c.status);
        auto error = nlohmann::json::parse(reply.body)["error"];
        EXPECT_EQ(error["status"], c.status);
        EXPECT_NE(error["message"].get<std::string>().find(c.says), std::string::npos)
            << error["message"];
    }
    EXPECT_EQ(desk_.changes, 0);
}

TEST_F(HttpApi, AnswersWithoutTokenOnlyHealthPairingAndPages) {
    Reply health = Send({"GET", "/health", {}});
    EXPECT_EQ(health.status, 200);
    EXPECT_EQ(nlohmann::json::parse(health.body),
              nlohmann::json({{"status", "ok"}, {"version", CORVID_VERSION}}));
    Reply paired =
        Send({"POST", "/v1/pair", {{"Content-Type", "application/json"}}, R"({"code": "123456"})"});
    EXPECT_EQ(nlohmann::json::parse(paired.body)["token"], "paired");
    Reply page = Send({"GET", "/favicon.svg", {}});
    EXPECT_EQ(page.status, 200);
    EXPECT_EQ(page.headers[http::field::content_type], "image/svg+xml");
    EXPECT_EQ(page.headers["Content-Security-Policy"], kDashboardPolicy);
    for (const Reply* reply : {&health, &paired, &page})
        EXPECT_EQ(reply->headers.count(http::field::set_cookie), 0u);
}

TEST_F(HttpApi, LetsAllowedAndOwnPagesRead) {
    Reply preflight = Send(
        {"OPTIONS",
         "/v1/jobs",
         {{"Origin", "http://till.local"}, {"Access-Control-Request-Private-Network", "true"}}});
    EXPECT_EQ(preflight.status, 204);
    EXPECT_NE(preflight.headers["Access-Control-Allow-Headers"].find("Idempotency-Key"),
              std::string::npos);
    EXPECT_EQ(preflight.headers["Access-Control-Allow-Private-Network"], "true");
    Reply own = Send({"GET",
                      "/v1/printers/front/paper",
                      {{"Host", "127.0.0.1:8720"},
                       {"Origin", "http://127.0.0.1:8720"},
                       {"Authorization", "Bearer secret"}}});
    EXPECT_EQ(nlohmann::json::parse(own.body)["text"], "TOTAL 1,16\n");
    Reply printers = Send({"GET",
                           "/v1/printers",
                           {{"Origin", "http://till.local"}, {"Authorization", "Bearer secret"}}});
    EXPECT_EQ(printers.status, 200);
    EXPECT_EQ(printers.headers["Access-Control-Allow-Origin"], "http://till.local");

    Reply metrics = Send({"GET", "/metrics"});
    EXPECT_EQ(metrics.headers[http::field::content_type], "text/plain; version=0.0.4");
    EXPECT_EQ(metrics.body, desk_.Metrics());
}

TEST_F(HttpApi, PostsAJobOncePerKey) {
    Reply first = Send(Post("/v1/jobs", kSale));
    Reply again = Send(Post("/v1/jobs", kSale));
    Reply other = Send(Post("/v1/jobs", R"({"printer": "back", "type": "report-x"})"));
    EXPECT_EQ(first.status, 202);
    EXPECT_EQ(again.status, 200);
    EXPECT_EQ(nlohmann::json::parse(again.body)["id"], nlohmann::json::parse(first.body)["id"]);
    EXPECT_EQ(other.status, 409);
    EXPECT_EQ(desk_.changes, 1);
    EXPECT_EQ(Send(Post("/v1/jobs/1/resolve", R"({"as": "failed"})")).status, 200);
}

TEST_F(HttpApi, DropsAClientThatStallsMidRequest) {
    HttpServer strict(desk_, {"127.0.0.1", 0, {}, 1, std::chrono::seconds(1)});
    strict.Start();
    boost::asio::io_context io;
    beast::tcp_stream stream(io);
    stream.connect(tcp::endpoint(boost::asio::ip::make_address("127.0.0.1"), strict.port()));
    boost::asio::write(stream, boost::asio::buffer(std::string("GET /health HTTP/1.1\r\n")));
    stream.expires_after(std::chrono::seconds(10));
    char byte;
    beast::error_code ec;
    stream.read_some(boost::asio::buffer(&byte, 1), ec);
    EXPECT_EQ(ec, boost::asio::error::eof) << ec.message();
}

TEST_F(HttpApi, PassesTheJournalQueryDecoded) {
    Reply reply = Send({"GET",
                        "/v1/jobs?since=2026-12-31T23%3A30%3A00.25-01:00&state=attention"
                        "&printer=caf%C3%A9&before=40&limit=5"});
    EXPECT_EQ(reply.status, 200);
    const JobQuery& query = desk_.lastQuery;
    EXPECT_EQ(query.since, "2027-01-01T00:30:00.250Z");
    EXPECT_EQ(query.state, JobState::kAttention);
    EXPECT_EQ(query.printer, "caf\xC3\xA9");
    EXPECT_EQ(query.before, 40);
    EXPECT_EQ(query.limit, 5);
}

TEST_F(HttpApi, StreamsEachPublishedEventToAWebSocket) {
    boost::asio::io_context io;
    beast::websocket::stream<beast::tcp_stream> ws(io);
    beast::get_lowest_layer(ws).connect(
        tcp::endpoint(boost::asio::ip::make_address("127.0.0.1"), server_.port()));
    ws.handshake("127.0.0.1", "/v1/events?token=secret");
    nlohmann::json events[] = {{{"event", "job"}, {"job", {{"id", 7}, {"state", "printing"}}}},
                               {{"event", "printer"}, {"printer", {{"id", "front"}}}}};
    for (const auto& event : events) desk_.events().Publish(event);
    for (const auto& event : events) {
        beast::flat_buffer buffer;
        ws.read(buffer);
        EXPECT_TRUE(ws.got_text());
        EXPECT_EQ(nlohmann::json::parse(beast::buffers_to_string(buffer.data())), event);
    }
}

}  // namespace
}  // namespace corvid::service
