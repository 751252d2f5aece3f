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
/// first the recently used and the pinned templates (if a user is set), then those of the department, of
/// its type of organization, and the common ones. The tables belong to the caller and may be refilled at
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
    /// Needed only for the captions of the levels; both may be missing.
    void setDepartmentsTable(CModelTable* table);
    void setOrgTypesTable(CModelTable* table);
    /// The department and the type of organization whose templates are available. An empty key: no
    /// templates of that level.
    void setRootDepKeyLink(const QString& key);
    void setRootOrgKeyLink(const QString& key);
    /// Restricts the tree to templates that have all named properties (\a present), or none of them. An
    /// empty list removes the restriction.
    void setTemplateProps(const QStringList& props, bool present);
    /// Shows the groups of recent and pinned templates, kept for this worker and the department set by
    /// setRootDepKeyLink. Without a key these groups are hidden.
    void setUserKey(const QString& workerKey);

    /// The tables have changed. If hidden, the tree is rebuilt when it is next shown or queried. If
    /// visible, the tree keeps its selection and expanded branches; it emits selectionChanged() at once,
    /// but only if the selected template no longer exists.
    void reloadTemplates();
    /// Whether any template is available, independent of the search.
    bool hasTemplates() const;
    /// Selects the first template of the levels, department first; clears the selection if there is none.
    void selectFirstTemplate();
    void clearSelection();
    /// Selects the template with this key; false and no change if it is not available.
    bool selectTemplate(const QString& key);
    /// Chooses the pinned template with this number, from 1 on, as Enter does; false if there is none.
    bool activatePinned(int number);
    /// The chosen template, a record of the templates table, or null. Get it again after each change of the
    /// table.
    MDRData* currentTemplate() const;
    QString currentTemplateKey() const { return m_chosen; }

    /// The chosen template was used: it becomes the first of the recent ones.
    void noteUse();
    /// Clears the search line and gives it the focus. Typing filters the tree, arrow keys move in it, Enter
    /// chooses.
    void startSearch();

signals:
    /// Another template or none is chosen. Not emitted when the same one is chosen again.
    void selectionChanged();
    /// The user has chosen with Enter or a double click, possibly the same template: the focus may move on
    /// to its text.
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
    QSet<QString> m_toggled; ///< keys of branches that the user has expanded or collapsed against their
                             ///< default
    QString m_userKey;
    QString m_chosen;      ///< key of the chosen template
    QString m_chosenGroup; ///< group of the tree in which it was chosen
    bool m_stale = true;
    bool m_arranging = false; ///< the widget is changing the tree, not the user
};
