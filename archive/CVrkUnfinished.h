#pragma once

#include "CVrkCliMod.h"
#include "KeyNames.h"

#include <memory>
#include <QHash>
#include <QVector>

class ListOutput;
class QLabel;
class QSpinBox;
class QToolButton;
class RecordList;
class Row;
class UnfinishedFilter;
struct TEventNciParse;

/// The window "Незавершённое": the records of the user's department from the last days in which something
/// is unfinished (RecordRules). It follows every change and changes nothing. Number of days and kinds are
/// kept for the next start.
class CVrkUnfinished : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkUnfinished(CVrkCliApp* app);
    ~CVrkUnfinished() override;

    /// On failure the window shows the reason in place of the list.
    bool ModuleStart() override;
    int MessageData(HFNCliParam* block) override;
    /// Reads everything again.
    void ModSesReconnect() override { reload(); }

    static constexpr int usualDays = 30;

private:
    struct Shift {
        bool isOurs = false;
        bool isClosed = false;
        double startTime = 0;
        double endTime = 0;
    };

    void makeBar();
    void makeOutput();
    void reload();
    /// Adds a fresh record of the list if something is unfinished in it, otherwise discards it.
    void take(MDRData* record);
    void recordEvent(const TEventNciParse& event);
    void shiftEvent(const TEventNciParse& event);
    Shift shiftOf(const Row& row) const;
    /// The shift belongs to another department, also if the server cannot be asked.
    Shift shift(const QByteArray& key);
    /// Start of the listed period.
    double firstTime() const;
    void setKinds(int kinds);
    void showCounts();

    KeyNames m_names;
    QByteArray m_departmentKey;
    QHash<QByteArray, Shift> m_shifts;
    std::unique_ptr<RecordList> m_list; ///< uses the names until it is destroyed
    UnfinishedFilter* m_filter;
    QSpinBox* m_days;
    QVector<QToolButton*> m_kinds; ///< one for each RecordRules::Lack, checked while that kind is shown
    QLabel* m_summary;
    ListOutput* m_output = nullptr;
    QString m_failure; ///< why the list could not be read; empty if it was
    bool m_isStarted = false;
};
