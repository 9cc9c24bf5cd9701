#include "tools/mNLT_3DSRenamer.h"

#include "platform/CodePage.h"
#include "track/TrackDocument.h"

#include <span>

namespace railwright {

void RenameSceneryObject(std::int32_t Index, const text& NewName, bool AllOfSameName) {
    const auto count = static_cast<std::size_t>(Track.SceneryObjects.Count);
    const auto objects = std::span(Track.SceneryObjects.Items).first(count);
    const auto place = static_cast<std::size_t>(Index);
    if (place >= count)
        return;
    SceneryObject& chosen = objects[place];
    if (!AllOfSameName) {
        chosen.FileName = NewName;
        return;
    }
    const text oldName = LowerCase(chosen.FileName, SystemCodePage());
    for (SceneryObject& object : objects)
        if (LowerCase(object.FileName, SystemCodePage()) == oldName)
            object.FileName = NewName;
}

} // namespace railwright
