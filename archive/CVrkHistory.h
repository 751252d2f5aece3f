#pragma once

#include "ChangeText.h"
#include "CVrkCliMod.h"
#include "KeyNames.h"

#include <QSet>

class ChangeTable;
class QLabel;
class QToolBar;
class VrkPreview;

/// The window "История записи": who changed a record, its comments and files, when and how, from the change log.
/// The notice "showRecord" with the record's key opens it. It follows every change and changes nothing.
class CVrkHistory : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkHistory(CVrkCliApp* app);
    ~CVrkHistory() override;

    /// On failure the window shows the reason in place of the list.
    bool ModuleStart() override;
    int MessageData(HFNCliParam* block) override;
    /// Reads everything again.
    void ModSesReconnect() override { reload(); }

public slots:
    void slot_modNotify(QString name, QVariant value) override;

private:
    void makeBar();
    QAction* addButton(QToolBar* bar, const char* name, const char* icon, const QString& text,
                       void (CVrkHistory::*request)());
    void reload();
    void showInJournal();
    void copyAll();
    void print();

    KeyNames m_names;
    ChangeText m_text;
    QByteArray m_recordKey;
    QSet<QByteArray> m_keys; ///< of the rows whose changes are shown
    ChangeTable* m_table;
    QLabel* m_caption;
    VrkPreview* m_preview;
    QVector<QAction*> m_actions; ///< those that need a record
    bool m_isStarted = false;
};
