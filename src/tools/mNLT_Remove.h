#pragma once

namespace railwright {

/// The classes of data that can be removed from a track, in the order of the panel.
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

/// Removes the chosen classes from Track. Sets their counts to 0 and their flags to false; the records stay
/// in memory. If the curve is removed, tunnels and custom colours are not changed.
void RemoveTrackData(const TrackDataClasses& Classes);

} // namespace railwright
