#include "corvid/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/dates.h"
#include "corvid/port_device.h"

namespace corvid::tool {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(CommandLine, MistakesSayWhichWordIsWrong) {
    struct Case {
        std::vector<std::string> args;
        std::string message;
    };
    const Case cases[] = {
        {{"frobnicate"}, "unknown command 'frobnicate'"},
        {{}, "no command given"},
        {{"status", "--port"}, "--port needs a value"},
        {{"--port", "COM0", "status"}, "--port COM0: port numbers run from 1 to 99"},
        {{"--port", "printer", "status"}, "--port printer: expected COMn"},
        {{"status", "now"}, "unexpected argument 'now'"},
        {{"send"}, "send: COMMAND is required"},
        {{"set-date", "2024-03-15"}, "set-date: expected a date written dd-mm-yyyy"},
        {{"memory", "12", "5"}, "memory: FROM comes after TO"},
        {{"serve", "--listen", "127.0.0.1"}, "--listen 127.0.0.1: expected ADDRESS:PORT"},
        {{"serve", "--listen", "127.0.0.1:70000"}, "--listen 127.0.0.1:70000: expected"},
        {{"serve", "--printer", "front"}, "--printer front: expected NAME=PORT"},
        {{"serve", "--printer", "a b=COM1"}, "--printer a b=COM1: a printer's name is"},
        {{"serve", "--printer", "a=COM0"}, "--printer a=COM0: port numbers run from 1 to 99"},
        {{"serve", "--printer", "a=COM1", "--printer", "a=COM2"}, "--printer a=COM2: the name a"},
        {{"serve", "--allow-origin", "http://shop/"}, "--allow-origin http://shop/: expected"},
        {{"serve", "--on-open-document", "later"}, "--on-open-document: later not in"},
        {{"serve", "--windows-service"}, "--windows-service needs --data FOLDER"},
        {{"--port", "COM1", "serve"}, "the service names its printers with serve --printer"},
        {{"token", "add"}, "token: NAME is required"},
        {{"jobs"}, "jobs lists a print service's journal: give --service"},
        {{"sale", "s.json", "--token", "t"}, "--token needs --service"},
        {{"sale", "s.json", "--service", "http://h:1"}, "--service needs --token"},
        {{"sale", "s.json", "--service", "https://h:1", "--token", "t"},
         "--service https://h:1: expected http://HOST:PORT"},
        {{"status", "--service", "http://h:1", "--token", "t"}, "--service applies to sale,"},
        {{"report", "x", "--service", "http://h:1", "--token", "t", "--port", "COM1"},
         "--service sends to a print service: leave --port"},
        {{"report", "x", "--service", "http://h:1", "--token", "t", "--key", std::string(129, 'k')},
         "--key " + std::string(129, 'k') + ": expected 1 to 128"},
        {{"jobs", "--service", "http://h:1", "--token", "t", "--state", "lost"},
         "--state lost: expected queued,"},
        {{"jobs", "--service", "http://h:1", "--token", "t", "--since", "yesterday"},
         "--since yesterday: expected an ISO 8601"},
    };
    for (const Case& c : cases) {
        const ParsedCommandLine parsed = ParseCommandLine(c.args);
        EXPECT_TRUE(!parsed.invocation && parsed.exitCode == kExitUsage && parsed.output.empty());
        EXPECT_THAT(parsed.error, StartsWith("corvid: " + c.message)) << parsed.error;
    }
}

TEST(CommandLine, OptionsMayComeBeforeOrAfterTheCommand) {
    const ParsedCommandLine parsed =
        ParseCommandLine({"sale", "s.json", "--port", "com7", "--deadline", "2.5", "--trace"});
    ASSERT_TRUE(parsed.invocation) << parsed.error;
    const Invocation& inv = *parsed.invocation;
    EXPECT_EQ(inv.command, Command::kSale);
    EXPECT_EQ(inv.words, std::vector<std::string>{"s.json"});
    ASSERT_TRUE(inv.port);
    EXPECT_EQ(inv.port->number, 7);
    EXPECT_DOUBLE_EQ(inv.deadlineSeconds, 2.5);
    EXPECT_TRUE(inv.trace);

    const Invocation defaults = *ParseCommandLine({"status"}).invocation;
    EXPECT_FALSE(defaults.port);  // the simulator
    EXPECT_DOUBLE_EQ(defaults.deadlineSeconds, 60);
}

TEST(CommandLine, ArgumentsOfTheDocumentCommands) {
    const ParsedCommandLine device = ParseCommandLine({"--port", "/dev/ttyUSB0", "status"});
    if (CanOpenDeviceFiles()) {
        EXPECT_EQ(device.invocation->port->device, "/dev/ttyUSB0");
    } else {
        EXPECT_THAT(device.error, HasSubstr("name the port as COMn"));
    }
    const Invocation date = *ParseCommandLine({"set-date", "29-02-2024"}).invocation;
    EXPECT_EQ(date.when, automation::DateSerial(2024, 2, 29));
    const Invocation time = *ParseCommandLine({"set-time", "23:59:58"}).invocation;
    EXPECT_EQ(time.when, automation::TimeSerial(23, 59, 58));
    const Invocation memory = *ParseCommandLine({"memory", "5", "12", "--json"}).invocation;
    EXPECT_EQ(memory.from, 5);
    EXPECT_EQ(memory.to, 12);
    EXPECT_TRUE(memory.json);
}

TEST(CommandLine, ThePrintServiceCommands) {
    const ParsedCommandLine serve = ParseCommandLine(
        {"serve", "--printer", "front=COM3", "--printer", "back=7", "--listen", "[::1]:9000",
         "--data", "state", "--allow-origin", "http://localhost:3000", "--allow-origin",
         "https://pos.example", "--on-open-document", "cancel"});
    ASSERT_TRUE(serve.invocation) << serve.error;
    const ServeOptions& options = serve.invocation->serve;
    ASSERT_EQ(options.printers.size(), 2u);
    EXPECT_EQ(options.printers[1].name, "back");
    EXPECT_EQ(options.printers[1].port.number, 7);
    EXPECT_EQ(options.listenAddress, "::1");
    EXPECT_EQ(options.listenPort, 9000);
    EXPECT_EQ(options.dataFolder, "state");
    EXPECT_EQ(options.allowedOrigins.size(), 2u);
    EXPECT_EQ(options.onOpenDocument, OpenDocumentPolicy::kCancel);
    const ServeOptions defaults = ParseCommandLine({"serve"}).invocation->serve;
    EXPECT_EQ(defaults.listenAddress + ":" + std::to_string(defaults.listenPort), "127.0.0.1:8720");
    EXPECT_EQ(defaults.onOpenDocument, OpenDocumentPolicy::kComplete);

    const Invocation token =
        *ParseCommandLine({"token", "remove", "till-2", "--data", "d"}).invocation;
    EXPECT_EQ(token.command, Command::kTokenRemove);
    EXPECT_EQ(token.tokenName, "till-2");
    EXPECT_EQ(token.serve.dataFolder, "d");

    const Invocation sale = *ParseCommandLine({"--service", "http://127.0.0.1:8720/", "--token",
                                               "T", "--key", "k 1", "sale", "s.json"})
                                 .invocation;
    ASSERT_TRUE(sale.service);
    EXPECT_EQ(sale.service->host + ":" + std::to_string(sale.service->port), "127.0.0.1:8720");
    EXPECT_EQ(sale.service->token, "T");
    EXPECT_EQ(sale.service->key, "k 1");
    const Invocation jobs =
        *ParseCommandLine({"jobs", "--service", "http://shop", "--token", "T", "--since",
                           "2024-03-15T10:30:00-04:00", "--state", "done"})
             .invocation;
    EXPECT_EQ(jobs.service->port, 80);
    EXPECT_EQ(jobs.jobsFilter.since, "2024-03-15T10:30:00-04:00");
    EXPECT_EQ(jobs.jobsFilter.state, "done");
}

}  // namespace
}  // namespace corvid::tool
