#pragma once

#include "TourBook.h"

#include <QCoreApplication>
#include <QString>

class CVrkCliMod;
class QWidget;
class Workstation;

/// Plays the demo story through the real windows, with keys and clicks, and writes a page of captioned
/// pictures: once in light and once in dark colours, each on its own demo store.
class Tour
{
    Q_DECLARE_TR_FUNCTIONS(Tour)

public:
    /// Pictures and stores go into \a folder; vrk-admin must be next to this program.
    explicit Tour(const QString& folder);

    /// False with errorText() if a scene could not be played.
    bool play();

    QString errorText() const { return m_errorText; }
    /// One line for the log that describes the result.
    QString summary() const;

private:
    // Each of these throws a TourHands::Fault if it cannot be played.
    void playTheme(const QString& theme, const QString& title);
    void playScenes(CVrkCliMod* window);
    void sceneWindow(CVrkCliMod* window);
    void sceneNewRecord(CVrkCliMod* window);
    void sceneColleague(CVrkCliMod* window);
    void sceneApproval(CVrkCliMod* window);
    void sceneVisa(CVrkCliMod* window);
    void sceneDeletion(CVrkCliMod* window);
    void sceneReading(CVrkCliMod* window);
    void sceneSearch(CVrkCliMod* window);
    void sceneMarks(CVrkCliMod* window);
    void sceneExecution(CVrkCliMod* window);
    void sceneOrigin(CVrkCliMod* window);
    void sceneComments(CVrkCliMod* window);
    void sceneFiles(CVrkCliMod* window);
    void sceneReport(CVrkCliMod* window);
    void sceneArchive(CVrkCliMod* window);
    void sceneStorm(CVrkCliMod* window);
    void sceneLostStore(CVrkCliMod* window);
    void sceneLetters(CVrkCliMod* window);
    void sceneHandover(CVrkCliMod* window);
    void sceneNextUser(Workstation* workstation);
    void sceneOpening(CVrkCliMod* window);

    // Tour_records.cpp: copies, reading comments, intervals, the crew, and a shift that was forgotten
    void sceneCopying(CVrkCliMod* window);
    void sceneInbox(CVrkCliMod* window);
    void sceneInterval(CVrkCliMod* window);
    void sceneAddedWorker(CVrkCliMod* window);
    void sceneOverdue(const QString& theme);

    // Tour_past.cpp: what happened before the open shift
    void playPast(CVrkCliMod* journal);
    void sceneUnfinished(CVrkCliMod* journal);
    void sceneAllShifts(CVrkCliMod* journal);
    void sceneHistory(CVrkCliMod* journal);
    void sceneMoment(CVrkCliMod* journal);

    // Tour_evidence.cpp: what happens if somebody alters the history
    void sceneAlarm(const QString& theme);
    void sceneOutsider(const QString& theme);

    // Tour_templates.cpp: an administrator at the same desk, and the effect of his work in the journal
    void playTemplates(CVrkCliMod* journal);
    void sceneOwnTemplate(CVrkCliMod* window);
    void sceneConverter(CVrkCliMod* window);
    void sceneConverted(CVrkCliMod* window);
    void chooseOwnTemplate(QWidget* dialog);
    void sceneConvertedRecord(CVrkCliMod* journal);

    /// The URL of a store of this name that does not exist yet.
    QString newStore(const QString& name) const;
    /// Runs vrk-admin; throws its error output.
    void admin(const QStringList& arguments);
    void picture(const QString& caption);

    TourBook m_book;
    QString m_folder;
    QString m_store; ///< URL of the present theme's store
    QString m_check; ///< result of the check of the stores
    QString m_errorText;
};
