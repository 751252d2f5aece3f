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
    bool playTheme(const QString& theme, const QString& title);
    bool playScenes(CVrkCliMod* window);
    bool sceneWindow(CVrkCliMod* window);
    bool sceneNewRecord(CVrkCliMod* window);
    bool sceneColleague(CVrkCliMod* window);
    bool sceneApproval(CVrkCliMod* window);
    bool sceneVisa(CVrkCliMod* window);
    bool sceneDeletion(CVrkCliMod* window);
    bool sceneReading(CVrkCliMod* window);
    bool sceneSearch(CVrkCliMod* window);
    bool sceneMarks(CVrkCliMod* window);
    bool sceneExecution(CVrkCliMod* window);
    bool sceneOrigin(CVrkCliMod* window);
    bool sceneComments(CVrkCliMod* window);
    bool sceneFiles(CVrkCliMod* window);
    bool sceneReport(CVrkCliMod* window);
    bool sceneArchive(CVrkCliMod* window);
    bool sceneStorm(CVrkCliMod* window);
    bool sceneLostStore(CVrkCliMod* window);
    bool sceneLetters(CVrkCliMod* window);
    bool sceneHandover(CVrkCliMod* window);
    bool sceneNextUser(Workstation* workstation);
    bool sceneOpening(CVrkCliMod* window);

    // Tour_records.cpp: copies, reading comments, intervals, the crew, and a shift that was forgotten
    bool sceneCopying(CVrkCliMod* window);
    bool sceneInbox(CVrkCliMod* window);
    bool sceneInterval(CVrkCliMod* window);
    bool sceneAddedWorker(CVrkCliMod* window);
    bool sceneOverdue(const QString& theme);

    // Tour_past.cpp: what happened before the open shift
    bool playPast(CVrkCliMod* journal);
    bool sceneUnfinished(CVrkCliMod* journal);
    bool sceneAllShifts(CVrkCliMod* journal);

    // Tour_templates.cpp: an administrator at the same desk, and the effect of his work in the journal
    bool playTemplates(CVrkCliMod* journal);
    bool sceneOwnTemplate(CVrkCliMod* window);
    bool sceneConverter(CVrkCliMod* window);
    bool sceneConverted(CVrkCliMod* window);
    bool chooseOwnTemplate(QWidget* dialog);
    bool sceneConvertedRecord(CVrkCliMod* journal);

    /// Runs vrk-admin; false with its error output as errorText().
    bool admin(const QStringList& arguments);
    bool fail(const QString& text);
    void picture(const QString& caption);

    TourBook m_book;
    QString m_folder;
    QString m_store; ///< URL of the present theme's store
    QString m_check; ///< result of the check of the stores
    QString m_errorText;
};
