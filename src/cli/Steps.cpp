#include "cli/Steps.h"

#include "base/Types.h"
#include "cli/Suggestion.h"
#include "element/ElementDocument.h"
#include "platform/CodePage.h"
#include "tools/mNLE_Reverse.h"
#include "tools/mNLE_Rotate.h"
#include "tools/mNLT_3DSRenamer.h"
#include "tools/mNLT_Backwards.h"
#include "tools/mNLT_Mirror.h"
#include "tools/mNLT_Move.h"
#include "tools/mNLT_Remove.h"
#include "tools/mNLT_Rotate.h"
#include "tools/mNLT_Scale.h"
#include "tools/mNLT_ShuttleMake.h"
#include "tools/mNLT_Smoother.h"
#include "tools/mNLT_TunnelTest.h"
#include "track/TrackDocument.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <vector>

namespace railwright {
namespace {

/// Thrown when a step does not fit.
struct BadStep {
    std::string Reason;
};

/// Runs a checked step. Throws BadStep if the step does not fit the document.
using Action = std::function<void()>;

constexpr std::string_view TrackOnly = "track-only";

std::string Quoted(std::string_view word) {
    return "'" + std::string(word) + "'";
}

std::vector<std::string_view> SplitAtCommas(std::string_view value) {
    std::vector<std::string_view> pieces;
    for (std::size_t comma = value.find(','); comma != std::string_view::npos; comma = value.find(',')) {
        pieces.push_back(value.substr(0, comma));
        value.remove_prefix(comma + 1);
    }
    pieces.push_back(value);
    return pieces;
}

/// Removes a closing ",track-only" from a list of pieces.
/// @return whether the free and fundamental nodes are included.
bool TakeSupports(std::vector<std::string_view>& pieces) {
    const bool trackOnly = pieces.size() > 1 && pieces.back() == TrackOnly;
    if (trackOnly)
        pieces.pop_back();
    return !trackOnly;
}

float NumberFrom(std::string_view word) {
    const bool hasPlus = word.starts_with('+') && !word.starts_with("+-");
    const std::string_view digits = hasPlus ? word.substr(1) : word;
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::invalid_argument || end != digits.data() + digits.size())
        throw BadStep{Quoted(word) + " is not a number"};
    if (error == std::errc::result_out_of_range) // also for a number too close to 0
        number = std::strtod(std::string(digits).c_str(), nullptr);
    const auto stored = static_cast<float>(number);
    if (!std::isfinite(stored))
        throw BadStep{Quoted(word) + " is not a finite number"};
    return stored;
}

template <std::size_t Count>
std::array<float, Count> NumbersFrom(const std::vector<std::string_view>& pieces) {
    if (pieces.size() != Count)
        throw BadStep{Count == 1 ? "one number is needed" : std::to_string(Count) + " numbers are needed"};
    std::array<float, Count> numbers{};
    for (std::size_t i = 0; i < Count; ++i)
        numbers[i] = NumberFrom(pieces[i]);
    return numbers;
}

/// A word of a fixed choice and its meaning.
template <class Meaning>
struct Choice {
    std::string_view Word;
    Meaning Means;
};
template <class Meaning>
Choice(const char*, Meaning) -> Choice<Meaning>;

template <class Choices>
std::string WordsOf(const Choices& choices) {
    std::string words;
    for (const auto& choice : choices)
        words += (words.empty() ? "" : ", ") + std::string(choice.Word);
    return words;
}

template <class Choices>
auto ChosenFrom(const Choices& choices, std::string_view word) {
    for (const auto& choice : choices)
        if (choice.Word == word)
            return choice.Means;
    throw BadStep{Quoted(word) + " is none of " + WordsOf(choices)};
}

constexpr std::array Classes = {
    Choice{"track", &TrackDataClasses::Track},
    Choice{"tunnels", &TrackDataClasses::Tunnels},
    Choice{"custom-colors", &TrackDataClasses::CustomColors},
    Choice{"free-nodes", &TrackDataClasses::FreeNodes},
    Choice{"fundamental-nodes", &TrackDataClasses::FundamentalNodes},
    Choice{"prefab-supports", &TrackDataClasses::PreFabSupports},
    Choice{"support-beams", &TrackDataClasses::SupportBeams},
    Choice{"catwalks", &TrackDataClasses::WoodCatwalks},
    Choice{"terrain", &TrackDataClasses::Terrain},
    Choice{"trees", &TrackDataClasses::Trees},
    Choice{"objects", &TrackDataClasses::SceneryObjects},
    Choice{"comments", &TrackDataClasses::AuthorComments},
    Choice{"environment", &TrackDataClasses::PreferredEnvironment},
};
constexpr std::array MirrorModes = {Choice{"north-south", MirrorMode::NorthSouth},
                                    Choice{"east-west", MirrorMode::EastWest}};
constexpr std::array TunnelModes = {Choice{"toggle", TunnelMode::Toggle}, Choice{"all", TunnelMode::All},
                                    Choice{"none", TunnelMode::None}};

Action Remove(std::string_view value) {
    TrackDataClasses classes;
    for (const std::string_view word : SplitAtCommas(value))
        classes.*ChosenFrom(Classes, word) = true;
    return [classes] { RemoveTrackData(classes); };
}

Action Move(std::string_view value) {
    auto pieces = SplitAtCommas(value);
    const bool supports = TakeSupports(pieces);
    const auto [x, y, z] = NumbersFrom<3>(pieces);
    return [offset = Vector3{x, y, z}, supports] { MoveTrack(offset, supports); };
}

template <void (*Tool)(float, bool)>
Action WithNumber(std::string_view value) {
    auto pieces = SplitAtCommas(value);
    const bool supports = TakeSupports(pieces);
    return [number = NumbersFrom<1>(pieces)[0], supports] { Tool(number, supports); };
}

Action Mirror(std::string_view value) {
    auto pieces = SplitAtCommas(value);
    const bool supports = TakeSupports(pieces);
    const std::string_view word = pieces.size() == 1 ? pieces.front() : value;
    return [mode = ChosenFrom(MirrorModes, word), supports] { MirrorTrack(mode, supports); };
}

Action Tunnels(std::string_view value) {
    return [mode = ChosenFrom(TunnelModes, value)] { SetTunnels(mode); };
}

Action Shuttle(std::string_view) {
    return [] {
        if (Track.SegmentList.ClosedCircuit)
            throw BadStep{"the track is a closed circuit already"};
        MakeShuttle();
    };
}

Action Smooth(std::string_view) {
    return [] {
        if (Track.BezierCurve.NodeCount > SmootherNodeLimit)
            throw BadStep{"the track has more than " + std::to_string(SmootherNodeLimit) + " nodes"};
        SmoothTrackNodes();
    };
}

template <void (*Tool)()>
Action Plain(std::string_view) {
    return Tool;
}

Action Rename(std::string_view value) {
    constexpr std::string_view thisOnly = ",this-only";
    const bool allOfSameName = !value.ends_with(thisOnly);
    if (!allOfSameName)
        value.remove_suffix(thisOnly.size());
    const std::size_t comma = value.find(',');
    if (comma == std::string_view::npos)
        throw BadStep{"an index and a name are needed"};
    std::int32_t index = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + comma, index);
    if (error != std::errc{} || end != value.data() + comma)
        throw BadStep{Quoted(value.substr(0, comma)) + " is not the number of an object"};
    const std::string_view typed = value.substr(comma + 1);
    if (const std::string_view outside = FirstOutside(typed, SystemCodePage()); !outside.empty())
        throw BadStep{"a track file cannot store the character " + Quoted(outside)};
    const text name = FromUtf8(typed, SystemCodePage());
    if (name.size() < ShortestObjectName)
        throw BadStep{"a name has at least " + std::to_string(ShortestObjectName) + " characters"};
    return [index, name, allOfSameName] {
        if (index < 1 || index > Track.SceneryObjects.Count)
            throw BadStep{"there is no object " + std::to_string(index) + ", the track has " +
                          std::to_string(Track.SceneryObjects.Count)};
        RenameSceneryObject(index - 1, name, allOfSameName);
    };
}

template <int Axis>
Action TurnElement(std::string_view value) {
    return [degrees = NumberFrom(value)] { RotateElement(Axis, degrees); };
}

template <const auto& Choices>
std::vector<std::string_view> ChoiceWords() {
    std::vector<std::string_view> words;
    for (const auto& choice : Choices)
        words.push_back(choice.Word);
    return words;
}

/// A kind of step: its help and how to create it from a value.
struct StepKind {
    std::string_view Name;
    /// Form of the value, or empty.
    std::string_view Value;
    std::string_view Help;
    Action (*Make)(std::string_view value);
    /// The words that the value is chosen from. Null for other values.
    std::vector<std::string_view> (*Words)() = nullptr;

    bool HasValue() const { return !Value.empty(); }
};

constexpr std::array TrackSteps = {
    StepKind{"remove", "CLASS[,CLASS...]", "remove data of these classes", Remove, ChoiceWords<Classes>},
    StepKind{"move", "X,Y,Z[,track-only]", "move by metres to the east, up and to the south", Move},
    StepKind{"scale", "FACTOR[,track-only]", "scale about the origin", WithNumber<ScaleTrack>},
    StepKind{"rotate", "DEGREES[,track-only]", "turn about the vertical axis through the origin",
             WithNumber<RotateTrack>},
    StepKind{"mirror", "DIRECTION[,track-only]", "flip in this direction", Mirror, ChoiceWords<MirrorModes>},
    StepKind{"tunnels", "WHICH", "put segments into tunnels or take them out", Tunnels,
             ChoiceWords<TunnelModes>},
    StepKind{"shuttle", "", "lay an open track back on itself", Shuttle},
    StepKind{"backwards", "", "make the track run the other way", Plain<RebuildBackwards>},
    StepKind{"smooth", "", "take kinks out of a track of up to 501 nodes", Smooth},
    StepKind{"rename", "INDEX,NAME[,this-only]",
             "give the object with that number, and those of the same name, another name", Rename},
};
constexpr std::array ElementSteps = {
    StepKind{"reverse", "", "swap start and end", Plain<ReverseElement>},
    StepKind{"rotate-x", "DEGREES", "turn about the X axis", TurnElement<ElementAxis::X>},
    StepKind{"rotate-y", "DEGREES", "turn about the Y axis", TurnElement<ElementAxis::Y>},
    StepKind{"rotate-z", "DEGREES", "turn about the Z axis", TurnElement<ElementAxis::Z>},
};

std::string ListOf(const char* documentKind, std::span<const StepKind> kinds) {
    std::string list = std::string("Steps for ") + documentKind + ":\n";
    for (const StepKind& kind : kinds)
        list += "  " + std::string(kind.Name) + (kind.HasValue() ? "=" + std::string(kind.Value) : "") + '\n';
    return list;
}

Action ActionFor(std::span<const StepKind> kinds, const char* documentKind, std::string_view step) {
    const std::size_t equals = step.find('=');
    const std::string_view name = NameOfStep(step);
    for (const StepKind& kind : kinds) {
        if (kind.Name != name)
            continue;
        if (kind.HasValue() != (equals != std::string_view::npos))
            throw BadStep{kind.HasValue() ? "a value is needed" : "it takes no value"};
        return kind.Make(kind.HasValue() ? step.substr(equals + 1) : "");
    }
    throw BadStep{std::string("there is no such step for ") + documentKind + DidYouMean(name, kinds)};
}

StepResult Apply(std::span<const StepKind> kinds, const char* documentKind,
                 std::span<const std::string> steps, const StepBegins& begins) {
    std::string_view inHand;
    try {
        std::vector<Action> actions;
        for (const std::string& step : steps) {
            inHand = step;
            actions.push_back(ActionFor(kinds, documentKind, step));
        }
        for (std::size_t i = 0; i < actions.size(); ++i) {
            inHand = steps[i];
            if (begins)
                begins(i);
            actions[i]();
        }
        return {};
    } catch (const BadStep& bad) {
        return {false, "step " + Quoted(inHand) + ": " + bad.Reason};
    }
}

std::vector<StepDescription> Descriptions(std::span<const StepKind> kinds) {
    std::vector<StepDescription> all;
    for (const StepKind& kind : kinds)
        all.push_back({kind.Name, kind.Value, kind.Help,
                       kind.Words == nullptr ? std::vector<std::string_view>() : kind.Words(),
                       kind.Value.ends_with("...]")});
    return all;
}

} // namespace

std::vector<StepDescription> TrackStepDescriptions() {
    return Descriptions(TrackSteps);
}

std::vector<StepDescription> ElementStepDescriptions() {
    return Descriptions(ElementSteps);
}

std::string StepsHelp() {
    return ListOf("a track", TrackSteps) + ListOf("an element", ElementSteps) + "CLASS: " + WordsOf(Classes) +
           "\nDIRECTION: " + WordsOf(MirrorModes) + "\nWHICH: " + WordsOf(TunnelModes);
}

std::string_view NameOfStep(std::string_view step) {
    return step.substr(0, step.find('='));
}

StepResult ApplyTrackSteps(std::span<const std::string> steps, const StepBegins& begins) {
    return Apply(TrackSteps, "a track", steps, begins);
}

StepResult ApplyElementSteps(std::span<const std::string> steps, const StepBegins& begins) {
    return Apply(ElementSteps, "an element", steps, begins);
}

} // namespace railwright
