#pragma once

#include "MDArray.h"
#include "VrkExport.h"

#include <memory>
#include <QSet>
#include <QStringList>
#include <QWidget>

class CModelTable;
class QAction;
class QKeyEvent;
class QModelIndex;
class QTextCodec;
class QTimer;
class TemplateFavourites;
class TemplatesModel;
struct TemplatesSource;
namespace Ui
{
class TemplatesWidget;
}

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
    /// Whether any template is open here, whatever is searched for.
    bool hasTemplates() const;
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
    void markStale();
    void refresh();
    void arrange();
    void restoreExpanded(const QModelIndex& parent);
    bool isOpenByDefault(const QModelIndex& branch) const;
    void filter(const QString& query);
    void highlight(const QModelIndex& index);
    void highlightChosen();
    void follow(const QModelIndex& index);
    void choose(const QModelIndex& index);
    void activate(const QModelIndex& index);
    void setChosen(const QString& key, const QString& group);
    void noteExpanded(const QModelIndex& branch, bool expanded);
    bool searchKey(QKeyEvent* event);
    bool treeKey(QKeyEvent* event);
    void showMenu(const QPoint& position);
    void togglePinned();

    std::unique_ptr<Ui::TemplatesWidget> m_form;
    TemplatesModel* m_model;
    std::unique_ptr<TemplatesSource> m_source;
    std::unique_ptr<TemplateFavourites> m_favourites;
    QAction* m_pinAction;
    QTimer* m_refreshTimer;
    QSet<QString> m_toggled; ///< keys of branches that the user opened or closed against their default
    QString m_userKey;
    QString m_chosen;      ///< key of the chosen template
    QString m_chosenGroup; ///< where in the tree it was chosen
    bool m_stale = true;
    bool m_arranging = false; ///< the tree is changed by the widget, not by the user
};
