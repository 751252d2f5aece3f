#pragma once

#include "LogbookTables.h"
#include "WorkshiftDialog.h"

#include <functional>
#include <memory>
#include <QDateTime>
#include <utility>

namespace Ui
{
class OpenWorkshiftDialog;
}

/// Opens a workshift: a shift from the department's timetable, its interval, the crew, and the record about
/// opening, filled from an "open" template. Writes the workshift, its crew and the record one after
/// another; if a later write fails, the earlier ones are undone.
class OpenWorkshiftDialog : public WorkshiftDialog
{
    Q_OBJECT

public:
    /// \a parent is the module.
    explicit OpenWorkshiftDialog(QWidget* parent, int flag = -1);
    ~OpenWorkshiftDialog() override;

    void setOrganizationKey(const QString& key) { m_organizationKey = key; }
    void setShiftsTable(CModelTable* table) { setTable(LogbookTable::Shifts, table); }
    void setOrganizationsTable(CModelTable* table) { setTable(LogbookTable::Organizations, table); }

    /// The occurrence of a shift today: its bounds are times of day; it ends tomorrow if it passes
    /// midnight. \a now is the session's time.
    static std::pair<QDateTime, QDateTime> toCurrentInterval(double start, double end, const QDateTime& now);

public slots:
    void apply();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void createConnections();
    void reloadShifts();
    void showIntervals();
    void changeSelectedShift();
    void uploadLastWorkshift();
    void setDefaultWorkshiftComposition();
    void clearWorkers() override;
    void updateWorkshiftControls() override;
    QWidget* wrongField() const override;
    KeptTexts::Values chosen() const override;
    bool isOver(const KeptTexts::Values& kept) const override;
    void chooseTimes(const KeptTexts::Values& kept) override;
    void setInterval(const std::pair<QDateTime, QDateTime>& interval);
    void updateStateControls() override;
    void templateSelected();

    // OpenWorkshiftDialog_autofill.cpp
    void changeIntervalTemplate();
    void autoFillTemplate();
    void autoFillWorker();
    void autoFillDepartment();
    void autoFillOrganization();
    void autoFillWorkshiftWorkers();
    void autoFillWorkshiftWorkersGroups();
    void autoFillNamed(const QString& parameter, const char* tableName, const QString& key,
                       const QString& signature, const QString& notFound);
    /// Fills the parameter with a name and the user's key; an empty name is only logged.
    void autoFillUser(const char* parameter, const char* what, const char* function,
                      const std::function<QString()>& userName);

    // OpenWorkshiftDialog_apply.cpp
    void openWorkshift();
    void addWorkshift(CRowBatch& batch, const QByteArray& key, double from, double to, double now) const;

    QDateTime start() const;
    QDateTime end() const;
    /// The message that the journal will not accept a shift of this length; empty if it will.
    QString tooLongText() const;

    QString m_organizationKey;
    QDateTime m_lastWorkshiftEnd;               ///< invalid if unknown
    std::pair<QDateTime, QDateTime> m_proposed; ///< the initial interval of the dialog
    int m_longestShift = 0;                     ///< in seconds; 0 if unknown
    std::unique_ptr<Ui::OpenWorkshiftDialog> m_form;
};
