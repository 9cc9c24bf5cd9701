#pragma once

#include "shell/Controls.h"
#include "shell/ToolPanel.h"
#include "shell/frmMain.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>

#include <QLatin1String>

namespace railwright {

class ucFrame;

/// A panel. Its index in the table is its number.
struct PanelRow {
    const char* Title;
    bool HasPreviews;
    std::unique_ptr<ToolPanel> (*Make)(ucFrame& frame);
};
extern const std::array<PanelRow, Tabs::Count> PanelRows;

/// A heading in the list of tools.
struct HeadingRow {
    const char* Name;
    const char* Caption;
    Place Where;
};
extern const std::span<const HeadingRow> HeadingRows;

/// The groups in the list of tools. Each is a control array and is enabled as a whole.
enum class ToolGroup { Track, Element, NoLimits };
/// Returns the name of the group's control array.
const char* ArrayOf(ToolGroup group);

/// A label in the list of tools that shows a panel.
struct ToolLabelRow {
    ToolGroup Group;
    /// Index in the control array.
    int Index;
    const char* Caption;
    int Top;
    int Width;
    std::int16_t Tab;
};
extern const std::span<const ToolLabelRow> ToolLabelRows;

inline constexpr QLatin1String Separator("-");

/// A menu, an entry or a separator.
struct MenuRow {
    const char* Name;
    QLatin1String Caption;
    /// The name of the menu that contains it; null for a menu of the bar.
    const char* Above;
    /// The action; null for a menu or a separator.
    void (*Click)();
    bool IsEnabled = true;
};
extern const std::span<const MenuRow> MenuRows;

} // namespace railwright
