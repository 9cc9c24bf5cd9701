#pragma once

#include "platform/Desktop.h"
#include "platform/qt/QtPictureBox.h"
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

/// Numbers of panels that others than the window speak of.
namespace Tabs {
inline constexpr std::int16_t About = 0;
inline constexpr std::int16_t Overview = 1;
inline constexpr std::int16_t ShuttleMake = 8;
inline constexpr std::int16_t EnvironmentOrganizer = 12;
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

    /// Starts the program: first panel, menus, simulator's folder, and the file of the command line.
    /// @param commandLine all that stands behind the program's name, one file name or nothing.
    void Form_Load(std::string commandLine);

    /// Brings a panel to the front, with its title, its previews and the mark beside its label.
    /// @param iTab 0 to 15.
    void ShowTab(std::int16_t iTab);
    /// Enables menus and labels as iDocumentKind asks.
    void UpdateMenus();
    /// Marks the document as changed, and the title with a star.
    void HasChanged();
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
        return static_cast<Kind&>(*panels[static_cast<std::size_t>(iTab)]);
    }
    WindowHandle Handle() const { return static_cast<WindowHandle>(winId()); }

protected:
    void closeEvent(QCloseEvent* event) override;
    /// A file that is dropped on the window opens as if it were chosen in the dialog.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildTitleStrip(QWidget& window);
    void BuildToolList(QWidget& window);
    void BuildPanels(QWidget& window);
    void BuildMenu();

    /// Asks about unsaved changes.
    /// @return whether the window may close.
    bool Form_Unload();

    /// A file that was dropped, and the moment at which it opens.
    std::string dropped;
    QTimer afterDrop;
    std::vector<LinkLabel*> toolLabels;
    QLabel* lblTitle = nullptr;
    QLabel* lblIndicator = nullptr;
    std::array<ucFrame*, Tabs::Count> ucFTab{};
    std::array<QtPictureBox*, 2> pbView{};
    std::array<std::unique_ptr<ToolPanel>, Tabs::Count> panels;
};

} // namespace railwright
