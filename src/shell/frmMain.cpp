#include "shell/frmMain.h"

#include "base/FileName.h"
#include "shell/Controls.h"
#include "shell/WindowTables.h"
#include "shell/mMain.h"
#include "shell/ucFrame.h"

#include <algorithm>

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStyle>
#include <QUrl>

// Resources in a static library must be initialized explicitly, or they are silently missing.
static void ReadyArtwork() {
    Q_INIT_RESOURCE(artwork);
}

namespace railwright {
namespace {

frmMain* theWindow = nullptr;

constexpr Place Client = {0, 0, 9495, 6675};
constexpr Place TitleStrip = {1860, 60, 7575, 375};
constexpr Place ToolList = {60, 60, 1755, 6555};
constexpr Place PanelArea = {1860, 480, 7575, 6135};
constexpr std::array Views = {Place{1920, 540, 3360, 3360}, Place{6000, 540, 3360, 3360}};
constexpr std::array ViewNames = {"Preview from above", "Preview from the side"};

/// Escapes "[*]", which the toolkit would replace in a title.
QString Literally(const std::string& title) {
    return QString::fromStdString(title).replace("[*]", "[*][*]");
}

} // namespace

frmMain::frmMain() {
    ReadyArtwork();
    theWindow = this;
    setObjectName("frmMain");
    // No maximize button, because the size is fixed.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    setWindowTitle("Railwright");
    setWindowIcon(Artwork("window"));
    setFont(ControlFont());
    setAcceptDrops(true);
    afterDrop.setSingleShot(true);
    connect(&afterDrop, &QTimer::timeout, this, [this] { OpenDropped(); });
    afterPaint.setSingleShot(true);
    connect(&afterPaint, &QTimer::timeout, this, [this] { BuildAllPanels(); });

    auto* const window = new QWidget(this);
    window->setFixedSize(ClientSize());
    BuildMenu();
    BuildTitleStrip(*window);
    BuildToolList(*window);
    BuildFrames(*window);
    setCentralWidget(window);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    adjustSize();
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size(), screen()->availableGeometry()));
}

frmMain::~frmMain() {
    theWindow = nullptr;
}

QSize frmMain::ClientSize() {
    return InPixels(Client).size();
}

frmMain& frmMain::Instance() {
    return *theWindow;
}

void frmMain::BuildTitleStrip(QWidget& window) {
    auto* const strip = Placed(new ucFrame(&window), "ucFrame2", TitleStrip);
    strip->setAccessibleName("Document");
    auto* const open =
        new PictureButton(*strip, "imgToolBar(0)", "Open...", Artwork("open"), {60, 60, 240, 240});
    auto* const save =
        new PictureButton(*strip, "imgToolBar(1)", "Save As...", Artwork("save"), {420, 60, 240, 240});
    connect(open, &QPushButton::clicked, this, [] { mnuOpen_Click(); });
    connect(save, &QPushButton::clicked, this, [] { mnuSaveAs_Click(); });
    lblTitle =
        AddLabel(*strip, "lblTitle", "Railwright", {3540, 90, 3975, 195}, ControlFont(8.25, {.Bold = true}));
    lblTitle->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void frmMain::BuildToolList(QWidget& window) {
    auto* const list = Placed(new ucFrame(&window), "ucFrame1", ToolList);
    list->setAccessibleName("Tools");
    const QFont bold = ControlFont(8.25, {.Bold = true});
    for (const HeadingRow& row : HeadingRows)
        AddLabel(*list, row.Name, row.Caption, row.Where, bold);
    for (const ToolLabelRow& row : ToolLabelRows) {
        auto* const label = new LinkLabel(*list, Indexed(ArrayOf(row.Group), row.Index), row.Caption,
                                          {180, row.Top, row.Width, 195});
        connect(label, &QPushButton::clicked, this, [this, tab = row.Tab] { ShowTab(tab); });
        toolLabels.push_back(label);
    }
    lblIndicator = AddLabel(*list, "lblIndicator", ">", {60, 600, 90, 210}, bold);
}

void frmMain::BuildFrames(QWidget& window) {
    for (std::size_t tab = 0; tab < Tabs::Count; ++tab) {
        ucFTab[tab] = Placed(new ucFrame(&window), Indexed("ucFTab", static_cast<int>(tab)), PanelArea);
        ucFTab[tab]->setAccessibleName(PanelRows[tab].Title);
        ucFTab[tab]->hide();
    }
    for (std::size_t index = 0; index < pbView.size(); ++index) {
        pbView[index] =
            Placed(new QtPictureBox(&window), Indexed("pbView", static_cast<int>(index)), Views[index]);
        pbView[index]->setAccessibleName(ViewNames[index]);
    }
}

ToolPanel& frmMain::BuiltPanel(std::size_t tab) {
    if (panels[tab] == nullptr)
        panels[tab] = PanelRows[tab].Make(*ucFTab[tab]);
    return *panels[tab];
}

void frmMain::BuildAllPanels() {
    for (std::size_t tab = 0; tab < Tabs::Count; ++tab)
        BuiltPanel(tab);
}

void frmMain::RefreshPanels(const TrackMeasures& measures) {
    BuiltPanel(Tabs::Overview); // does not read Track when it is created
    for (const auto& panel : panels)
        if (panel != nullptr)
            panel->Refresh(measures);
}

void frmMain::BuildMenu() {
    for (const MenuRow& row : MenuRows) {
        auto* const above = row.Above == nullptr ? nullptr : menuBar()->findChild<QMenu*>(row.Above);
        if (row.Click == nullptr && row.Caption != Separator) {
            QMenu* const menu =
                above == nullptr ? menuBar()->addMenu(row.Caption) : above->addMenu(row.Caption);
            menu->setObjectName(row.Name);
            continue;
        }
        QAction* const entry =
            row.Caption == Separator ? above->addSeparator() : above->addAction(row.Caption);
        entry->setObjectName(row.Name);
        entry->setEnabled(row.IsEnabled);
        // Keeps the system from moving an entry to its own menu.
        entry->setMenuRole(QAction::NoRole);
        if (row.Click != nullptr)
            connect(entry, &QAction::triggered, this, [click = row.Click] { click(); });
    }
    OpenWithF10(*menuBar());
}

void frmMain::Form_Load(const std::string& commandLine) {
    ShowTab(Tabs::About);
    UpdateMenus();
    if (!LocateNoLimitsPath()) {
        EnableLabels(ToolGroup::NoLimits, false);
        for (const char* const name : {"mnuNLEnvOrganizer", "mnuNLFileAssoc"})
            menuBar()->findChild<QAction*>(name)->setEnabled(false);
    }
    if (commandLine.empty())
        return;
    OpenNoLimitsFile(FilePath::FromUser(commandLine));
}

void frmMain::ShowTab(std::int16_t iTab) {
    const auto tab = static_cast<std::size_t>(iTab);
    ToolPanel& panel = BuiltPanel(tab);
    for (ucFrame* const frame : ucFTab)
        frame->setVisible(frame == ucFTab[tab]);
    const PanelRow& row = PanelRows[tab];
    lblTitle->setText(row.Title);
    panel.Prepare();
    for (QtPictureBox* const view : pbView)
        view->setVisible(row.HasPreviews);
    const auto label = std::find_if(ToolLabelRows.begin(), ToolLabelRows.end(),
                                    [&](const ToolLabelRow& each) { return each.Tab == iTab; });
    if (label != ToolLabelRows.end())
        lblIndicator->move(lblIndicator->x(), InPixels(label->Top));
    lblIndicator->setVisible(label != ToolLabelRows.end());
}

void frmMain::UpdateMenus() {
    const bool isTrack = iDocumentKind == CurrentDocument::Track;
    const bool isElement = iDocumentKind == CurrentDocument::Element;
    menuBar()->findChild<QMenu*>("mnuT")->setEnabled(isTrack);
    menuBar()->findChild<QMenu*>("mnuE")->setEnabled(isElement);
    menuBar()->findChild<QAction*>("mnuSaveAs")->setEnabled(isTrack || isElement);
    EnableLabels(ToolGroup::Track, isTrack);
    EnableLabels(ToolGroup::Element, isElement);
}

void frmMain::EnableLabels(ToolGroup group, bool enabled) {
    for (std::size_t i = 0; i < toolLabels.size(); ++i)
        if (ToolLabelRows[i].Group == group)
            toolLabels[i]->setEnabled(enabled);
}

void frmMain::HasChanged() {
    bDocumentChanged = true;
    setWindowTitle(Literally("Railwright: " + sDocumentFile.Name().Shown() + "*"));
}

void frmMain::ShowFileName() {
    setWindowTitle(Literally("Railwright: " + sDocumentFile.Name().Shown()));
}

void frmMain::mnuOpen_Click() {
    OpenNoLimitsFile({});
}

void frmMain::mnuSaveAs_Click() {
    SaveNoLimitsFile();
}

void frmMain::mnuExit_Click() {
    EndProcess();
}

MessageAnswer frmMain::AskAboutChanges() const {
    return bDocumentChanged
               ? ShowMessageBox(Handle(), "There are unsaved changes to the file.\r\nSave changes?",
                                "Unsaved Changes", MessageButtons::YesNoCancel, MessageIcon::Question)
               : MessageAnswer::No;
}

bool frmMain::Form_Unload() {
    const MessageAnswer answer = AskAboutChanges();
    // After a failed save the window stays open, so that the changes are not lost.
    if (answer == MessageAnswer::Yes)
        return SaveNoLimitsFile();
    return answer != MessageAnswer::Cancel;
}

void frmMain::OpenDropped() {
    const MessageAnswer answer = AskAboutChanges();
    if (answer == MessageAnswer::Yes)
        SaveNoLimitsFile();
    const bool keepsChanges = bDocumentChanged && answer != MessageAnswer::No;
    if (!keepsChanges)
        OpenNoLimitsFile(dropped);
}

/// Returns the dragged file if it is a single track or element; otherwise an empty path.
static FilePath DraggedFile(const QDropEvent& event) {
    const QList<QUrl> addresses = event.mimeData()->urls();
    const std::string file = addresses.size() == 1 ? addresses.first().toLocalFile().toStdString() : "";
    const bool isKnown = HasExtension(file, TrackExtension) || HasExtension(file, ElementExtension);
    return isKnown ? FilePath::FromUser(file) : FilePath();
}

/// Accepts the drop as a copy. For a move, the source program might delete the file.
static void AcceptCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(*event).IsEmpty())
        AcceptCopy(*event);
}

void frmMain::dropEvent(QDropEvent* event) {
    AcceptCopy(*event);
    dropped = DraggedFile(*event);
    // Open the file later: the source program waits until the drop is finished.
    afterDrop.start();
}

void frmMain::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (panels.back() == nullptr)
        afterPaint.start();
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->setAccepted(Form_Unload());
}

} // namespace railwright
