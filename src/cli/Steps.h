#pragma once

#include <span>
#include <string>

namespace railwright {

/// Whether the steps of a command line were carried out, and if not, which one does not fit and why.
struct StepResult {
    bool Done = true;
    std::string Reason;
};

/// Runs tools on Track, each given as NAME or NAME=VALUE, in order. All are looked at before the first is
/// run.
StepResult ApplyTrackSteps(std::span<const std::string> steps);

/// The same on Element.
StepResult ApplyElementSteps(std::span<const std::string> steps);

} // namespace railwright
