#pragma once

#include "MDArray.h"
#include "VrkExport.h"

#include <memory>
#include <QStringList>
#include <QWidget>

class CModelTable;
class QTextCodec;

/// The tree of template categories and templates that a department may use, with a search line above it:
/// first the templates used lately and the pinned ones (when a user is told), then those of the department,
/// of its type of organization, and the common ones. The tables belong to the caller and may be refilled at
/// any time, followed by reloadTemplates(); the widget keeps keys, never records.
class VRK_EXPORT TemplatesWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TemplatesWidget(QWidget* parent = nullptr);
    ~TemplatesWidget() override;

    /// Code page of the texts in the tables.
    void setTextCodec(QTextCodec* codec);
    void setCatsTemplateTable(CModelTable* table);
    void setTemplatesTable(CModelTable* table);
    /// Only for the captions of the levels; both may be missing.
    void setDepartmentsTable(CModelTable* table);
    void setOrgTypesTable(CModelTable* table);
    /// The department and the type of organization whose templates are open. An empty key: no templates of
    /// that level.
    void setRootDepKeyLink(const QString& key);
    void setRootOrgKeyLink(const QString& key);
    /// Restricts the tree to templates that carry all named properties (\a present), or none of them. An
    /// empty list lifts the restriction.
    void setTemplateProps(const QStringList& props, bool present);
    /// Turns the groups of recent and pinned templates on, kept for this worker and the department told by
    /// setRootDepKeyLink. Without a key there are no such groups.
    void setUserKey(const QString& workerKey);

    /// The tables have changed. Hidden: the tree is built anew at the next showing or question. Visible: the
    /// tree keeps its selection and expanded branches; selectionChanged() comes, at once, only when the
    /// selected template is gone.
    void reloadTemplates();
    /// Selects the first template of the levels, department first; none clears the selection.
    void selectFirstTemplate();
    void clearSelection();
    /// Selects the template with this key; false and no change when it is not open here.
    bool selectTemplate(const QString& key);
    /// The chosen template, a record of the templates table, or null. Look it up anew after each change of
    /// the table.
    MDRData* currentTemplate() const;
    QString currentTemplateKey() const;

    /// The chosen template was used: it comes first among the recent ones.
    void noteUse();
    /// Empties the search line and puts the keyboard there. Typing narrows the tree, arrow keys move in it,
    /// Enter chooses.
    void startSearch();

signals:
    /// Another template is chosen, or none any more. Not sent for choosing the same one again.
    void selectionChanged();
    /// The user has chosen by Enter or double click, the same template included: the keyboard may go on to
    /// its text.
    void templateActivated();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
