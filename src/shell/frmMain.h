#pragma once

#include "platform/Desktop.h"
#include "shell/QtPictureBox.h"
#include "shell/ToolPanel.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <QMainWindow>
#include <QTimer>

class QLabel;

namespace railwright {

class LinkLabel;
class ucFrame;
enum class ToolGroup;

/// The numbers of the panels.
namespace Tabs {
inline constexpr std::int16_t About = 0;
inline constexpr std::int16_t Overview = 1;
inline constexpr std::int16_t RemoveData = 2;
inline constexpr std::int16_t Move = 3;
inline constexpr std::int16_t Scale = 4;
inline constexpr std::int16_t Rotate = 5;
inline constexpr std::int16_t Mirror = 6;
inline constexpr std::int16_t TunnelTest = 7;
inline constexpr std::int16_t ShuttleMake = 8;
inline constexpr std::int16_t BackwardsRebuild = 9;
inline constexpr std::int16_t ElementReverse = 10;
inline constexpr std::int16_t ElementRotate = 11;
inline constexpr std::int16_t EnvironmentOrganizer = 12;
inline constexpr std::int16_t FileAssociation = 13;
inline constexpr std::int16_t NodeSmoother = 14;
inline constexpr std::int16_t Renamer = 15;
inline constexpr std::size_t Count = 16;
} // namespace Tabs

/// The window: menu bar, list of tools, title strip, and sixteen panels, one of which is visible.
class frmMain final : public QMainWindow {
public:
    frmMain();
    ~frmMain() override;

    /// Returns the only window of the process.
    static frmMain& Instance();

    /// Returns the size of the area below the menu, in pixels at 96 dpi.
    static QSize ClientSize();

    /// Starts the program: first panel, menus, simulator's folder, and the file from the command line.
    /// @param commandLine everything after the program's name: one file name, or empty.
    void Form_Load(const std::string& commandLine);

    /// Shows a panel with its title, its previews and the mark next to its label.
    /// @param iTab one of Tabs.
    void ShowTab(std::int16_t iTab);
    /// Enables menus and labels according to iDocumentKind.
    void UpdateMenus();
    /// Marks the document as changed, with a star in the title.
    void HasChanged();
    bool HasStar() const { return windowTitle().endsWith('*'); }
    /// Shows the name of the document's file in the title, without a star.
    void ShowFileName();

    static void mnuOpen_Click();
    static void mnuSaveAs_Click();
    static void mnuExit_Click();

    /// Return the preview from above and the preview from the side.
    QtPictureBox& Plan() { return *pbView[0]; }
    QtPictureBox& Side() { return *pbView[1]; }
    /// Refreshes the panels that show Track. Panels that are created later read it then.
    void RefreshPanels(const TrackMeasures& measures);
    WindowHandle Handle() const { return static_cast<WindowHandle>(winId()); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// Accept a track or element dropped on the window. It is opened after a question about unsaved changes.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildTitleStrip(QWidget& window);
    void BuildToolList(QWidget& window);
    void BuildFrames(QWidget& window);
    /// Returns the panel. Builds its controls on the first call.
    ToolPanel& BuiltPanel(std::size_t tab);
    /// Builds the panels that the start skipped because they are not visible.
    void BuildAllPanels();
    void BuildMenu();
    void EnableLabels(ToolGroup group, bool enabled);

    /// Asks the user about unsaved changes. @return No if there are none.
    MessageAnswer AskAboutChanges() const;
    /// Returns whether the window may close.
    bool Form_Unload();
    /// Opens the dropped file, after a question about unsaved changes.
    void OpenDropped();

    /// The dropped file, and the timer that opens it.
    FilePath dropped;
    QTimer afterDrop;
    /// Fires after the first painting.
    QTimer afterPaint;
    /// One per row of ToolLabelRows, in the same order.
    std::vector<LinkLabel*> toolLabels;
    QLabel* lblTitle = nullptr;
    QLabel* lblIndicator = nullptr;
    std::array<ucFrame*, Tabs::Count> ucFTab{};
    std::array<QtPictureBox*, 2> pbView{};
    std::array<std::unique_ptr<ToolPanel>, Tabs::Count> panels;
};

} // namespace railwright
