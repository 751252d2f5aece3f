#pragma once

#include "CVrkCliMod.h"
#include "JournalFigures.h"
#include "KeyNames.h"

#include <memory>
#include <QTimer>

class FiguresModel;
class ListOutput;
class QComboBox;
class QDateEdit;
class QLabel;
class QProgressBar;
class QSpinBox;
class QTableView;
class QToolBar;

/// The window "Статистика": the figures of the journal (JournalFigures) for a period and a department, as a table with
/// bars. It reads the records page by page between the events of the window, so it can be used and interrupted
/// meanwhile, and changes nothing.
class CVrkStatistics : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkStatistics(CVrkCliApp* app);
    ~CVrkStatistics() override;

    /// On failure the window shows the reason in place of the table.
    bool ModuleStart() override;
    void ModSesReconnect() override { reload(); }

private:
    void makeChoice();
    void makeActions();
    void makePage();
    void createConnections();
    void setPeriod();
    void periodTyped();
    void reload();
    void readOn();
    void interrupt();
    void tell(const QString& summary, const QVector<JournalFigures::Figure>& figures = {});
    void setReading(bool isReading);
    QString described() const;
    QHash<QByteArray, QString> departmentNames() const;

    KeyNames m_names;
    std::unique_ptr<JournalFigures> m_figures; ///< while it reads
    QTimer m_next;                             ///< the next page
    FiguresModel* m_model;
    ListOutput* m_output = nullptr;
    QTableView* m_table;
    QComboBox* m_departments;
    QComboBox* m_periods;
    QDateEdit* m_from;
    QDateEdit* m_to;
    QSpinBox* m_late;
    QAction* m_stop = nullptr;
    QProgressBar* m_progress;
    QAction* m_progressPlace = nullptr; ///< hides it
    QLabel* m_summary;
    JournalFigures::Choice m_choice; ///< of the figures shown or being read
    QString m_about;                 ///< the same in words
    bool m_isStarted = false;
};
