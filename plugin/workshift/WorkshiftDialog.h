#pragma once

#include "CPopTemplate.h"
#include "KeptTexts.h"
#include "MDArray.h"

#include <QMap>
#include <QString>

class CModelTable;
class CrewTable;
class CRowBatch;
class KeptChoice;
class OrgStructDialog;
class QPushButton;
class QTableWidget;
class QTextCodec;
class QToolButton;
class TemplateFiller;
class TemplatesWidget;
struct TEventNciParse;

/// The common base of opening and closing a workshift: the tables by name, the keys of department and
/// worker, the crew table, the template part, and the first or last record of the shift. The dialog owns no
/// data; it writes to the server, and the journal follows the change events.
class WorkshiftDialog : public CPopTemplate
{
    Q_OBJECT

public:
    ~WorkshiftDialog() override;

    void setOrgStructDialog(OrgStructDialog* dialog) { m_orgStructDialog = dialog; }
    void setWorkerKey(const QString& key) { m_workerKey = key; }
    /// Also makes the department's templates available.
    void setDepartmentKey(const QString& key);
    /// Also makes the templates of the type of organization available.
    void setOrgTypeKey(const QString& key);

    void setWorkersTable(CModelTable* table);
    void setRolesTable(CModelTable* table);
    void setWorkerRolesTable(CModelTable* table);
    /// These four go to the template tree as well.
    void setCatsTemplateTable(CModelTable* table);
    void setTemplatesTable(CModelTable* table);
    void setDepartmentsTable(CModelTable* table);
    void setOrgTypesTable(CModelTable* table);

    void MessageData(TEventNciParse* event);
    void reloadTemplates();

    /// The place of kept times and crew; \a property is that of the available templates.
    static QString keptPlace(const QString& property, const QString& department)
    {
        return QStringLiteral("shift/%1/%2").arg(property, department);
    }

public slots:
    /// Deliberately empty: parameters are edited inside the filler.
    void showEditor(const QString& parameterName, unsigned int index);

signals:
    /// Deliberate: nobody is connected; the log and the host's status line report a failure.
    void error(const QString& title, const QString& message);

protected:
    WorkshiftDialog(QWidget* parent, int flag);

    /// The shared parts of a derived dialog's form.
    struct Form {
        QTableWidget* crew;
        QToolButton* addWorker;
        QToolButton* removeWorker;
        QToolButton* clearWorkers;
        TemplatesWidget* templates;
        TemplateFiller* filler;
        QPushButton* cancel;
        QPushButton* apply; ///< pressed by Ctrl+Enter
    };
    /// Connects them; templates must have the property \a property.
    void setUpForm(const Form& form, const QString& property);
    /// The widget outside the text that must be corrected before the button can be pressed; null if none.
    virtual QWidget* wrongField() const { return nullptr; }
    /// The times and the crew that the user has chosen; no values if they are unchanged.
    virtual KeptTexts::Values chosen() const = 0;
    /// Times and crew that were chosen earlier are no longer valid.
    virtual bool isOver(const KeptTexts::Values& kept) const = 0;
    /// Chooses these times again; the crew has been chosen.
    virtual void chooseTimes(const KeptTexts::Values& kept) = 0;
    /// These workers as values of chosen(), with a caption that also names the times.
    KeptTexts::Values chosenCrew(const QStringList& workers, const QString& times) const;
    /// The text typed for the template is offered again.
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    /// Why the text cannot be written, in a sentence; empty if it can.
    QString missingText() const;

    CModelTable* table(const QString& name) const { return m_tables.value(name); }
    void setTable(const char* name, CModelTable* table) { m_tables.insert(QLatin1String(name), table); }
    QTextCodec* codec() const;

    /// Shows a template's text in the filler; \a signature is used in the log line about a template without
    /// text.
    void reloadTemplateText(MDRData* record, const QString& signature);
    /// Lets the user add a worker of the department to the crew.
    void addWorker();
    void removeWorkers();
    /// Resets the crew to that of a fresh dialog.
    virtual void clearWorkers() = 0;
    virtual void updateWorkshiftControls() = 0;
    virtual void updateStateControls() = 0;

    /// Adds the crew as rows of LogbookWorkersWorkshift, one for each worker.
    void addCrewRows(CRowBatch& batch, const QByteArray& workshiftKey, bool opening) const;
    /// The record about opening or closing, with the filled template as its text. \a pairs receives the
    /// field names and the values in the form of the log.
    void addRecord(CRowBatch& batch, const QByteArray& workshiftKey, double time, QStringList* pairs) const;
    bool send(const char* table, const CRowBatch& batch) const;

    OrgStructDialog* m_orgStructDialog = nullptr;
    QString m_workerKey;
    QString m_departmentKey;
    QString m_orgTypeKey;
    CrewTable* m_crew = nullptr;
    TemplatesWidget* m_templates = nullptr;
    TemplateFiller* m_filler = nullptr;
    KeptChoice* m_kept = nullptr;

private:
    void setCrewTables();
    void choose(const KeptTexts::Values& kept);
    void applyByKey();

    QTableWidget* m_crewView = nullptr;
    QPushButton* m_apply = nullptr;
    QString m_property; ///< required property of the templates
    QMap<QString, CModelTable*> m_tables;
};

/// A number in the form of the log.
QString logNumber(double number);
