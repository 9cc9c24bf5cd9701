#pragma once

namespace railwright {

/// The classes of data that can be removed from a track, in the order in which the user sees them.
struct TrackDataClasses {
    bool Track = false;
    bool Tunnels = false;
    bool CustomColors = false;
    bool FreeNodes = false;
    bool FundamentalNodes = false;
    bool PreFabSupports = false;
    bool SupportBeams = false;
    bool WoodCatwalks = false;
    bool Terrain = false;
    bool Trees = false;
    bool SceneryObjects = false;
    bool AuthorComments = false;
    bool PreferredEnvironment = false;
};

/// Removes the chosen classes from Track by setting their counts to 0 and their flags to false; the records
/// stay in memory. If the curve is removed too, tunnels and custom colours stay as they are.
void RemoveTrackData(const TrackDataClasses& Classes);

} // namespace railwright
