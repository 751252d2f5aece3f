#pragma once

#include "CPopTemplate.h"
#include "KeptTexts.h"
#include "MDArray.h"

#include <QMap>
#include <QString>

class CModelTable;
class CrewTable;
class CRowBatch;
class CVrkCliMod;
class KeptChoice;
class OrgStructDialog;
class QPushButton;
class QTableWidget;
class QTextCodec;
class TemplateFiller;
class TemplatesWidget;
struct TEventNciParse;

/// What opening and closing a workshift have in common: the tables by name, the keys of the place, the crew table, the
/// template side, and the first or last record of the shift. The dialog owns no data; it writes to the server, and
/// the journal follows by the change events.
class WorkshiftDialog : public CPopTemplate
{
    Q_OBJECT

public:
    ~WorkshiftDialog() override;

    void setOrgStructDialog(OrgStructDialog* dialog) { m_orgStructDialog = dialog; }
    void setWorkerKey(const QString& key) { m_workerKey = key; }
    /// Also opens the department's templates.
    void setDepartmentKey(const QString& key);
    /// Also opens the templates of the type of organization.
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

    /// Where times and crew are kept; \a property is that of the templates on offer.
    static QString keptPlace(const QString& property, const QString& department)
    {
        return QStringLiteral("shift/%1/%2").arg(property, department);
    }

signals:
    /// Nobody listens, which is meant: the log and the host's status line tell of a failure.
    void error(const QString& title, const QString& message);

protected:
    WorkshiftDialog(QWidget* parent, int flag);

    /// Ties the shared parts to the form that the derived dialog has set up; \a property is what the templates on
    /// offer have to carry, \a apply the button that Ctrl+Enter presses.
    void setUpForm(QTableWidget* crew, TemplatesWidget* templates, TemplateFiller* filler,
                   const QString& property, QPushButton* apply);
    /// The widget beside the text that has to be put right before the button can be pressed; null when none has.
    virtual QWidget* wrongField() const { return nullptr; }
    /// The times and the crew that the user has chosen; no values when they are as at the beginning.
    virtual KeptTexts::Values chosen() const = 0;
    /// Times and crew that were chosen earlier fit no more.
    virtual bool isOver(const KeptTexts::Values& kept) const = 0;
    /// Chooses these times again; the crew has been chosen.
    virtual void chooseTimes(const KeptTexts::Values& kept) = 0;
    /// These workers as values of chosen(), with a caption that names the times, too.
    KeptTexts::Values chosenCrew(const QStringList& workers, const QString& times) const;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    /// Escape closes, as everywhere; what was typed for the template is offered again.
    void keyPressEvent(QKeyEvent* event) override;
    /// What keeps the text from being written, in a sentence; empty when nothing does.
    QString missingText() const;

    CModelTable* table(const QString& name) const { return m_tables.value(name); }
    void setTable(const char* name, CModelTable* table) { m_tables.insert(QLatin1String(name), table); }
    QTextCodec* codec() const;
    CVrkCliMod* module() const;

    /// Shows a template's text in the filler; \a signature is for the log line of a template without text.
    void reloadTemplateText(MDRData* record, const QString& signature);
    /// Lets the user add a worker of the department to the crew.
    void addWorker();
    void removeWorkers();
    /// Back to the crew that a fresh dialog starts with.
    virtual void clearWorkers() = 0;
    virtual void updateWorkshiftControls() = 0;

    /// The crew as rows of LogbookWorkersWorkshift; posts one row a worker.
    void addCrewRows(CRowBatch& batch, const QByteArray& workshiftKey, bool opening) const;
    /// The record about opening or closing, with the filled template as its text. \a pairs gets the field names and
    /// the values as the log shows them.
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
    QString m_property; ///< of the templates on offer
    QMap<QString, CModelTable*> m_tables;
};

/// A number as the log shows it.
QString logNumber(double number);
