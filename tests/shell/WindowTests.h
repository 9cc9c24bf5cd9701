#pragma once

#include <QObject>

namespace railwright::testing {

/// Window, navigation and artwork.
class NavigationTests final : public QObject {
    Q_OBJECT
private slots:
    void StartsWithNothing();
    void StandsWhereTheTablesSay();
    void ReachesEveryPanel_data();
    void ReachesEveryPanel();
    void EnablesByTheDocument();
    void IsReachedByTheKeyboard();
    void OpensThePagesOfTheInternet();
    void DrawsFrameAndPreviewsSharp();
};

/// Opening, saving, closing.
class DocumentTests final : public QObject {
    Q_OBJECT
private slots:
    void OpensTheFileOfTheCommandLine();
    void AsksForTheSimulator();
    void OpensOverUnsavedChanges();
    void FailsToOpen_data();
    void FailsToOpen();
    void Saves();
    void FailsToSave();
    void PassesNamesThroughTheDialogs();
    void ClosesAsAnswered();
    void ExitsAtOnce();
};

/// The controls of the panels.
class PanelTests final : public QObject {
    Q_OBJECT
private slots:
    void ChangesTheDocument_data();
    void ChangesTheDocument();
    void CaptionsFollowTheScrollBars();
    void GreysWhatGoesWithTheTrack();
    void FollowsTheTrackInShuttleMake();
    void RenamesObjects();
    void RefusesLongTracksInTheSmoother();
    void ChoosesTheFileAssociation();
};

} // namespace railwright::testing
