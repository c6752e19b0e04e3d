// Command-line options of corvid-sim, turned into a simulator configuration.
#pragma once

#include <string>
#include <vector>

#include "sim/simulator.h"

namespace corvid::sim {

struct Options {
    SimulatorConfig config;
    bool printTranscript = false;
    bool help = false;
    bool version = false;
};

// Parses the arguments after the program name; throws std::invalid_argument with a
// message naming the offending option.
Options ParseOptions(const std::vector<std::string>& args);

// The usage text printed by --help.
std::string Usage();

}  // namespace corvid::sim
