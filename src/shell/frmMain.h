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

/// The window: menu bar, list of tools, title strip, and sixteen panels of which one is in front.
class frmMain final : public QMainWindow {
public:
    frmMain();
    ~frmMain() override;

    /// The one window of the process.
    static frmMain& Instance();

    /// Size of what stands below the menu, in pixels of a screen of the usual resolution.
    static QSize ClientSize();

    /// Starts the program: first panel, menus, simulator's folder, and the file of the command line.
    /// @param commandLine all that stands behind the program's name, one file name or nothing.
    void Form_Load(std::string commandLine);

    /// Brings a panel to the front, with its title, its previews and the mark beside its label.
    /// @param iTab one of Tabs.
    void ShowTab(std::int16_t iTab);
    /// Enables menus and labels as iDocumentKind asks.
    void UpdateMenus();
    /// Marks the document as changed, and the title with a star.
    void HasChanged();
    /// @return whether the title has the star of a changed document.
    bool HasStar() const { return windowTitle().endsWith('*'); }
    /// Shows the name of the document's file in the title, without a star.
    void ShowFileName();

    static void mnuOpen_Click();
    static void mnuSaveAs_Click();
    static void mnuExit_Click();

    /// The two previews.
    QtPictureBox& Plan() { return *pbView[0]; }
    QtPictureBox& Side() { return *pbView[1]; }
    /// A panel by its number, whose class is `Kind`.
    template <class Kind>
    Kind& Panel(std::int16_t iTab) {
        return static_cast<Kind&>(BuiltPanel(static_cast<std::size_t>(iTab)));
    }
    /// The same, or null while it has no controls yet.
    template <class Kind>
    Kind* PanelIfBuilt(std::int16_t iTab) {
        return static_cast<Kind*>(panels[static_cast<std::size_t>(iTab)].get());
    }
    WindowHandle Handle() const { return static_cast<WindowHandle>(winId()); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// A track or element that is dropped on the window is opened, after a question about unsaved changes.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildTitleStrip(QWidget& window);
    void BuildToolList(QWidget& window);
    void BuildFrames(QWidget& window);
    /// Fills the panel's frame with controls unless that is done.
    ToolPanel& BuiltPanel(std::size_t tab);
    /// Builds what the start has left out because it is not seen.
    void BuildAllPanels();
    void BuildMenu();
    void EnableLabels(ToolGroup group, bool enabled);

    /// Asks about unsaved changes. @return No if there are none.
    MessageAnswer AskAboutChanges() const;
    /// @return whether the window may close.
    bool Form_Unload();
    /// Opens the dropped file unless the user wants to keep changes that are not saved.
    void OpenDropped();

    /// A file that was dropped, and the moment at which it opens.
    FilePath dropped;
    QTimer afterDrop;
    /// The moment behind the first painting.
    QTimer afterPaint;
    /// As many as ToolLabelRows, in the same order.
    std::vector<LinkLabel*> toolLabels;
    QLabel* lblTitle = nullptr;
    QLabel* lblIndicator = nullptr;
    std::array<ucFrame*, Tabs::Count> ucFTab{};
    std::array<QtPictureBox*, 2> pbView{};
    std::array<std::unique_ptr<ToolPanel>, Tabs::Count> panels;
};

} // namespace railwright
