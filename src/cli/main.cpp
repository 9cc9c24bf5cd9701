#include "cli/CommandLineTool.h"
#include "platform/CommandLine.h"

#include <iostream>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return railwright::RunCommandLineTool(railwright::StartCommandLine(argc, argv), std::cout, std::cerr,
                                          railwright::ErrorsGoToTerminal() ? &std::cerr : nullptr);
}
