#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace railwright {

/// What users are told of a step.
struct StepDescription {
    std::string_view Name;
    /// The form of what follows behind NAME=; empty if nothing does.
    std::string_view Value;
    std::string_view Help;
    /// The words of which Value takes one, or some between commas if IsList; none if it is no such choice.
    std::vector<std::string_view> Words;
    bool IsList = false;
};

std::vector<StepDescription> TrackStepDescriptions();
std::vector<StepDescription> ElementStepDescriptions();

/// Whether the steps of a command line were carried out, and if not, which one does not fit and why.
struct StepResult {
    bool Done = true;
    std::string Reason;
};

/// Called with the index of each step that begins; it may be empty.
using StepBegins = std::function<void(std::size_t)>;

/// Runs tools on Track, each given as NAME or NAME=VALUE, in order. All are looked at before the first is
/// run.
StepResult ApplyTrackSteps(std::span<const std::string> steps, const StepBegins& begins);

/// The same on Element.
StepResult ApplyElementSteps(std::span<const std::string> steps, const StepBegins& begins);

/// @return NAME of NAME or NAME=VALUE.
std::string_view NameOfStep(std::string_view step);

/// @return all steps with the forms of their values, in lines.
std::string StepsHelp();

} // namespace railwright
