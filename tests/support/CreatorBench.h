#pragma once

#include "CModelTable.h"
#include "FailingStore.h"
#include "RecordCreatorDialog.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"
#include "TestClient.h"
#include "TEventNciParse.h"
#include "WorkerEdit.h"

#include <QAbstractButton>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>

/// The record dialog of a dispatcher in the open shift of DEP_CDS, used like in the journal's tab, on a
/// store whose requests can be made to fail.
class CreatorBench
{
public:
    explicit CreatorBench(const TestStore& store, const QString& login = QStringLiteral("ivanov"));
    ~CreatorBench();

    /// Shows the dialog for a new record, or for the record with this key.
    void create();
    void edit(const QByteArray& key);
    /// Reads the records of the open shift into the table, like a tab that loads.
    void loadRecords();
    MDRData* record(const QByteArray& key);

    template <typename Widget>
    Widget* find(const char* name)
    {
        return dialog->findChild<Widget*>(QLatin1String(name));
    }
    TemplatesWidget* templates() { return find<TemplatesWidget>("templatesWidget"); }
    TemplateFiller* filler() { return find<TemplateFiller>("templateFiller"); }
    QDateTimeEdit* eventTime() { return find<QDateTimeEdit>("eventTimeEdit"); }
    WorkerEdit* counterpart() { return find<WorkerEdit>("counterpartEdit"); }
    QLineEdit* counterpartLine() { return find<QLineEdit>("workerLine"); }
    QAbstractButton* button(const char* name) { return find<QAbstractButton>(name); }
    void click(const char* name);
    /// The reason below the text why saving is disabled; empty while it is hidden.
    QString holdText()
    {
        const auto* label = find<QLabel>("holdLabel");
        return label->isVisible() ? label->text() : QString();
    }
    /// Text of a bar, empty while it is hidden.
    QString bar(const char* name);
    QString notice() { return bar("noticeBar"); }
    QString failure() { return bar("failureBar"); }
    QString question() { return bar("questionBar"); }

    /// Chooses a template and sets its parameters of these base names, one after another.
    void choose(const char* templateKey, std::initializer_list<std::pair<const char*, QString>> values = {});
    void set(const char* parameter, const QString& text, const QString& key = QString());
    /// The shown text of the first parameter with this base name.
    QString shown(const char* parameter);

    std::shared_ptr<FailingStore::Plan> plan;
    TestClient client;
    TestModule module;
    CModelTable records;
    RecordCreatorDialog* dialog;
};
