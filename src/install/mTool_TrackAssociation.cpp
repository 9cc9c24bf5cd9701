#include "install/mTool_TrackAssociation.h"

#include "install/mWinRegistry.h"
#include "platform/CodePage.h"

#include <array>
#include <cstddef>

namespace railwright {

std::string sAssocFolder;

namespace {

constexpr const char* FileType = "NoLimits.Trackfile";

/// An entry of a track's menu in Windows Explorer.
struct Verb {
    const char* Key;
    const char* Caption;
    /// Program in the simulator's folder, with the switches before the track.
    const char* Command;
};

constexpr std::array Verbs = {
    Verb{"Ride", "Ride!", "NoLimitsSimulator.exe -s"}, Verb{"Edit", "Edit", "NoLimitsEditor.exe"},
    Verb{"Tera", "Terraform", "NoLimitsTerraformer.exe"}, Verb{"Tool", "Railwright", "Railwright.exe"}};

/// Number of verbs, from the first, that a double-click can run.
constexpr std::size_t DoubleClickVerbs = 3;

/// Icons in the simulator's folder. The next choice after the last is the user's own icon.
constexpr std::array Icons = {"NoLimitsSimulator.exe,0", "NoLimitsEditor.exe,0",  "RailwrightIcons.dll,0",
                              "RailwrightIcons.dll,1",   "RailwrightIcons.dll,2", "RailwrightIcons.dll,3",
                              "RailwrightIcons.dll,4"};

/// Sets the default value of a key; `value` is UTF-8.
void SetKey(const std::string& key, const std::string& value) {
    RegistryInput stored = FromUtf8(value, SystemCodePage());
    WriteRegistryValue(HKEY_CLASSES_ROOT, key, REG_SZ, "", stored);
}

void SetVerb(const Verb& verb, bool offered) {
    const std::string key = std::string(FileType) + "\\Shell\\" + verb.Key;
    const std::string commandKey = key + "\\Command";
    if (offered) {
        SetKey(key, verb.Caption);
        SetKey(commandKey, sAssocFolder + verb.Command + " \"%1\"");
    } else { // the inner key first, as a key with subkeys is not deleted
        DeleteRegistryKey(HKEY_CLASSES_ROOT, commandKey);
        DeleteRegistryKey(HKEY_CLASSES_ROOT, key);
    }
}

} // namespace

void PrepareFileAssociation(const std::string& sNoLimitsPath) {
    sAssocFolder = sNoLimitsPath;
    if (!sAssocFolder.empty() && !sAssocFolder.ends_with('\\'))
        sAssocFolder += '\\';
}

void SetTrackAssociation(const AssociationChoices& choices) {
    if (sAssocFolder.empty())
        return;
    SetKey(".nltrack", FileType);
    const std::array offered = {choices.bRide, choices.bEdit, choices.bTerraform, choices.bTool};
    for (std::size_t i = 0; i < Verbs.size(); ++i)
        SetVerb(Verbs[i], offered[i]);

    if (const auto verb = static_cast<std::size_t>(choices.iDoubleClick); verb < DoubleClickVerbs)
        SetKey(std::string(FileType) + "\\Shell", Verbs[verb].Key);

    const std::string iconKey = std::string(FileType) + "\\DefaultIcon";
    if (const auto icon = static_cast<std::size_t>(choices.iIcon); icon < Icons.size())
        SetKey(iconKey, sAssocFolder + Icons[icon]);
    else if (icon == Icons.size())
        SetKey(iconKey, choices.sIconFile + ",0");
}

} // namespace railwright
