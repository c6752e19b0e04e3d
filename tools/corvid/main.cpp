// corvid: talk to a fiscal printer from the command line.
#include <iostream>
#include <string>
#include <vector>

#include "corvid/abrupt_exit.h"
#include "corvid/tool_run.h"

int main(int argc, char** argv) {
    // Every line reaches the terminal, pipe or file as it is written, so a run that is
    // killed or ends at its deadline keeps its log. (unitbuf rather than a line-buffered
    // stdout: the Windows C runtime treats line buffering as full buffering.)
    std::cout << std::unitbuf;
    corvid::tool::ExitAtOnceOnInterrupt();
    return corvid::tool::RunCommandLine(std::vector<std::string>(argv + 1, argv + argc), std::cout,
                                        std::cerr);
}
