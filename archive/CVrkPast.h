#pragma once

#include "ChangeText.h"
#include "CVrkCliMod.h"
#include "KeyNames.h"
#include "ShiftPast.h"

#include <memory>

class CMDArray;
struct MDRData;
class QComboBox;
class QDateTimeEdit;
class NoticeBar;
class QLabel;
class QPlainTextEdit;
class QToolBar;
class RecordList;

/// The window "Журнал на момент": a workshift as it stood at a chosen time, with its crew, records, comments and
/// files, from the change log. It steps from change to change and changes nothing. The notice "showRecord" with
/// the key of a record opens the workshift of that record.
class CVrkPast : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkPast(CVrkCliApp* app);
    ~CVrkPast() override;

    /// On failure the window shows the reason in place of the list.
    bool ModuleStart() override;
    int MessageData(HFNCliParam* block) override;
    void ModSesReconnect() override { loadShift(); }

public slots:
    void slot_modNotify(QString name, QVariant value) override;

private:
    void makeBars();
    QAction* addStep(QToolBar* bar, const char* name, const char* icon, const QString& text, int key,
                     void (CVrkPast::*request)());
    void createConnections();
    void fillShifts();
    /// Those of the department that are no longer in the journal, the latest first.
    QVector<RowChange> archivedShifts();
    void loadShift();
    void goTo(int place);
    void goToTime();
    void stepBack() { goTo(m_past.previous(m_place)); }
    void stepOn() { goTo(m_past.next(m_place)); }
    void showPlace();
    void showBanner();
    void showRecords();
    void showCrew();
    void showRemarks();
    MDRData* recordOf(const RowChange& change, const QHash<QByteArray, int>& comments,
                      const QHash<QByteArray, int>& files, CMDArray& records) const;
    QByteArray shiftKey() const;

    KeyNames m_names;
    ChangeText m_text;
    ShiftPast m_past;
    int m_place = -1; ///< the last change that is shown; -1 before the first
    bool m_isStarted = false;
    QString m_failure; ///< why the shift could not be read
    QComboBox* m_departments;
    QComboBox* m_shifts;
    QDateTimeEdit* m_time;
    QAction* m_back = nullptr;
    QAction* m_on = nullptr;
    NoticeBar* m_banner;
    QLabel* m_change;
    QPlainTextEdit* m_crew;
    QPlainTextEdit* m_remarks;
    std::unique_ptr<RecordList> m_list; ///< uses the names until it is destroyed
};
