// Inside the command-line parser: what the parser fills in before it is checked, shared by
// the files that add the commands.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "corvid/command_line.h"

namespace corvid::tool::command_line {

// A mistake on the command line, in the words the tool prints.
struct Mistake {
    std::string message;
};

struct Arguments {
    Invocation inv;
    std::string portText;
    CLI::Option* portOption = nullptr;
    std::string word;
    std::vector<std::string> lines;
    std::string dateOrTime;
    std::string reportKind;
    // The print service's words, checked once the command is known.
    std::vector<std::string> printers;
    std::string listen;
    std::string onOpenDocument = "complete";
    std::optional<std::string> serviceUrl;
    std::optional<std::string> token;
    std::optional<std::string> key;
    std::vector<std::pair<Command, CLI::App*>> commands;

    CLI::App* Add(CLI::App& app, Command command, const char* name, const char* help) {
        CLI::App* sub = app.add_subcommand(name, help);
        commands.emplace_back(command, sub);
        return sub;
    }
};

// --service, --token and --key.
void AddServiceOptions(CLI::App& app, Arguments& a);
// serve, token add|list|remove, jobs.
void AddServiceCommands(CLI::App& app, Arguments& a);
// The service's words into the invocation, once the command is known; throws Mistake.
void CheckServiceWords(Arguments& a);

}  // namespace corvid::tool::command_line
