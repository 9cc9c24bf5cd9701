// Runs each line of standard input as the arguments of railwright-cli, all in one process. Prints the line,
// the command's output and its status.

#include "cli/CommandLineTool.h"
#include "platform/CommandLine.h"

#include <iostream>
#include <iterator>
#include <sstream>

int main(int argc, char** argv) {
    railwright::StartCommandLine(argc, argv);
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::cout << "> " << line << '\n';
        const int status = railwright::RunCommandLineTool({std::istream_iterator<std::string>(words), {}},
                                                          std::cout, std::cout);
        std::cout << "status " << status << '\n';
    }
}
