#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace railwright {

/// Help text of a step.
struct StepDescription {
    std::string_view Name;
    /// Form of the value in NAME=VALUE, or empty.
    std::string_view Value;
    std::string_view Help;
    /// The words that Value allows: one of them, or several between commas if IsList. Empty if any value may
    /// follow.
    std::vector<std::string_view> Words;
    bool IsList = false;
};

std::vector<StepDescription> TrackStepDescriptions();
std::vector<StepDescription> ElementStepDescriptions();

/// Result of running the steps. If Done is false, Reason names the step and the problem.
struct StepResult {
    bool Done = true;
    std::string Reason;
};

/// Called with the index of each step before it runs. May be empty.
using StepBegins = std::function<void(std::size_t)>;

/// Runs tools on Track in order, each given as NAME or NAME=VALUE. Checks all steps before it runs the first.
StepResult ApplyTrackSteps(std::span<const std::string> steps, const StepBegins& begins);

/// Runs tools on Element in the same way.
StepResult ApplyElementSteps(std::span<const std::string> steps, const StepBegins& begins);

/// @return the NAME of NAME or NAME=VALUE.
std::string_view NameOfStep(std::string_view step);

/// @return all steps with the forms of their values, one per line.
std::string StepsHelp();

} // namespace railwright
