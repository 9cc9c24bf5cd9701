#pragma once

namespace railwright {

/// The classes of data that can be stripped out of a track, in the order in which the user sees them.
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

/// Empties the chosen classes of Track by their counts and flags; the records stay in memory. Once the curve
/// is removed, tunnels and custom colours stay as they are.
void RemoveTrackData(const TrackDataClasses& Classes);

} // namespace railwright
