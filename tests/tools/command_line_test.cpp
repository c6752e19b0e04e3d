#include "corvid/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/dates.h"
#include "corvid/port_device.h"

namespace corvid::tool {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(CommandLine, HelpGoesToStandardOutputAndSucceeds) {
    for (const auto& args : {std::vector<std::string>{"--help"}, {"sale", "--help"}, {"-h"}}) {
        const ParsedCommandLine parsed = ParseCommandLine(args);
        EXPECT_FALSE(parsed.invocation);
        EXPECT_EQ(parsed.exitCode, 0);
        EXPECT_EQ(parsed.error, "");
        EXPECT_THAT(parsed.output, HasSubstr("Usage: corvid"));
    }
    EXPECT_THAT(ParseCommandLine({"sale", "--help"}).output, HasSubstr("FILE"));
}

TEST(CommandLine, MistakesSayWhichWordIsWrong) {
    struct Case {
        std::vector<std::string> args;
        std::string message;
    };
    const Case cases[] = {
        {{"frobnicate"}, "unknown command 'frobnicate'"},
        {{"--port", "COM3", "salee", "x.json"}, "unknown command 'salee'"},
        {{}, "no command given"},
        {{"status", "--port"}, "--port needs a value"},
        {{"--deadline"}, "--deadline needs a value"},
        {{"--port", "", "status"}, "--port is empty"},
        {{"--port", "COM0", "status"}, "--port COM0: port numbers run from 1 to 99"},
        {{"--port", "printer", "status"}, "--port printer: expected COMn"},
        {{"--deadline", "0", "status"}, "--deadline: expected a number of seconds above 0"},
        {{"--deadline", "ten", "status"}, "--deadline: expected a number of seconds above 0"},
        {{"status", "now"}, "unexpected argument 'now'"},
        {{"send"}, "send: COMMAND is required"},
        {{"report", "y"}, "report: KIND: expected x (the X report) or z"},
        {{"footer", "27", "x"}, "footer: N: Value 27 not in range 1 to 26"},
        {{"set-date", "2024-03-15"}, "set-date: expected a date written dd-mm-yyyy"},
        {{"set-time", "24:00:00"}, "set-time: expected a time written hh:mm:ss"},
        {{"--port", "5", "demo"}, "demo runs on the built-in simulated printer"},
        {{"--json", "report", "x"}, "--json applies to status, report z, summary and memory"},
        {{"memory", "12", "5"}, "memory: FROM comes after TO"},
        {{"memory", "5"}, "memory: TO is required"},
    };
    for (const Case& c : cases) {
        const ParsedCommandLine parsed = ParseCommandLine(c.args);
        EXPECT_FALSE(parsed.invocation) << c.message;
        EXPECT_EQ(parsed.exitCode, kExitUsage) << c.message;
        EXPECT_EQ(parsed.output, "");
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
    EXPECT_EQ(ParseCommandLine({"report", "z"}).invocation->reportKind, 'Z');
    EXPECT_EQ(ParseCommandLine({"nonfiscal", "a", "b c"}).invocation->words,
              (std::vector<std::string>{"a", "b c"}));
    const Invocation date = *ParseCommandLine({"set-date", "29-02-2024"}).invocation;
    EXPECT_EQ(date.when, automation::DateSerial(2024, 2, 29));
    const Invocation time = *ParseCommandLine({"set-time", "23:59:58"}).invocation;
    EXPECT_EQ(time.when, automation::TimeSerial(23, 59, 58));
    EXPECT_FALSE(ParseCommandLine({"set-time"}).invocation->when);  // now, when run
    const Invocation memory = *ParseCommandLine({"memory", "5", "12", "--json"}).invocation;
    EXPECT_EQ(memory.from, 5);
    EXPECT_EQ(memory.to, 12);
    EXPECT_TRUE(memory.json);
}

}  // namespace
}  // namespace corvid::tool
