#include "cli/Dump.h"
#include "cli/Steps.h"
#include "fuzz/Document.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "platform/svg/SvgPictureBox.h"
#include "tools/mNLT_Overview.h"

#include <sstream>

using namespace railwright;
using namespace railwright::fuzz;

/// Asks everything about the document in hand. @return its drawings.
static std::string Drawings(bool isTrack) {
    const railwright::testing::MemoryFiles none;
    (isTrack ? AnalyzeTrack : AnalyzeElement)();
    SvgPictureBox plan, side;
    (isTrack ? DrawTrackPreview : DrawElementPreview)(plan, side);
    Require(!(isTrack ? BuildTrackOverview(track.File, {}) + DumpTrack() : DumpElement()).empty(),
            "there is something to tell");
    return plan.Document() + side.Document();
}

/// The input is a file, which a loader takes to its last chunk, and behind the last NUL steps as the command
/// line has them, each on a line of its own. A step that does not fit is passed over.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const bool isTrack = size == 0 || (*data | 0x20U) != 'e';
    const Kind& kind = isTrack ? track : element;
    const Bytes input(data, data + size);
    if (!Load(kind, input))
        return 0;
    std::istringstream lines(std::string(std::find(input.rbegin(), input.rend(), 0).base(), input.end()));
    std::string step;
    for (int i = 0; i < 16 && std::getline(lines, step); ++i)
        (isTrack ? ApplyTrackSteps : ApplyElementSteps)(std::span(&step, 1));
    const std::string drawings = Drawings(isTrack);
    Require(drawings.find("nan") == std::string::npos && drawings.find("inf") == std::string::npos,
            "all that is drawn has a place");
    RequireToComeBack(kind);
    // An element's first node is only stored as the origin, near which a tool may have left it.
    Require(Drawings(isTrack) == drawings || !isTrack, "what was saved is drawn as it was before");
    return 0;
}
