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

}  // namespace
}  // namespace corvid::tool
