// Sets the association of track files once, for the test with Windows' registry tools.

#include "install/mTool_TrackAssociation.h"
#include "platform/CommandLine.h"

#include <iostream>

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = railwright::StartCommandLine(argc, argv);
    if (arguments.size() != 5 || arguments[2].size() != 4) {
        std::cerr << "usage: set_association FOLDER DOUBLECLICK VERBS ICON ICONFILE\n"
                     "VERBS is 1 or 0 for ride, edit, terraform and Railwright, 1101 for example.\n";
        return 2;
    }
    const auto offers = [&](std::size_t verb) { return arguments[2][verb] == '1'; };
    railwright::PrepareFileAssociation(arguments[0]);
    railwright::SetTrackAssociation({.iDoubleClick = static_cast<std::int16_t>(std::stoi(arguments[1])),
                                     .bRide = offers(0),
                                     .bEdit = offers(1),
                                     .bTerraform = offers(2),
                                     .bTool = offers(3),
                                     .iIcon = static_cast<std::int16_t>(std::stoi(arguments[3])),
                                     .sIconFile = arguments[4]});
}
