#include "cli/Steps.h"

namespace railwright {
namespace {

StepResult Apply(std::span<const std::string> steps) {
    return steps.empty() ? StepResult{} : StepResult{false, "there is no step '" + steps.front() + "'"};
}

} // namespace

StepResult ApplyTrackSteps(std::span<const std::string> steps) {
    return Apply(steps);
}

StepResult ApplyElementSteps(std::span<const std::string> steps) {
    return Apply(steps);
}

} // namespace railwright
