#pragma once

#include "CVrkCliMod.h"
#include "KeyNames.h"

#include <QHash>
#include <QVector>

class QLabel;
class QSpinBox;
class QToolButton;
class RecordList;
class UnfinishedFilter;
struct TEventNciParse;

/// The window "Незавершённое": the records of the user's department, over so many days, that something is left undone in
/// (RecordRules). It follows every change by itself and changes nothing. Days and kinds are kept for the next start.
class CVrkUnfinished : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkUnfinished(CVrkCliApp* app);
    ~CVrkUnfinished() override;

    /// False leaves the window up with the reason in place of the list.
    bool ModuleStart() override;
    int MessageOn() override;
    int MessageData(HFNCliParam* block) override;
    /// Reads everything anew.
    void ModSesReconnect() override;

    static constexpr int usualDays = 30;

private:
    struct Shift {
        bool isOurs = false;
        bool isClosed = false;
        double startTime = 0;
        double endTime = 0;
    };

    void makeBar();
    void reload();
    QString select(const QString& condition) const;
    /// Adds a fresh record of the list when something is left undone in it, discards it otherwise.
    void take(MDRData* record);
    void recordEvent(const TEventNciParse& event);
    void shiftEvent(const TEventNciParse& event);
    /// Of another department, also while the server does not tell.
    Shift shift(const QByteArray& key);
    /// Since when records are listed.
    double firstTime() const;
    void setKinds(int kinds);
    void showCounts();

    KeyNames m_names;
    QByteArray m_departmentKey;
    QHash<QByteArray, Shift> m_shifts;
    RecordList* m_list;
    UnfinishedFilter* m_filter;
    QSpinBox* m_days;
    QVector<QToolButton*> m_kinds; ///< one a kind of RecordRules::Lack, checked when it is shown
    QLabel* m_summary;
    QString m_failure; ///< why the list could not be read; empty when it was
    bool m_isStarted = false;
};
