#pragma once

#include "OrgStruct.h"
#include "VrkExport.h"

#include <memory>
#include <QAbstractItemView>
#include <QWidget>

class CVrkCliMod;
struct TEventNciParse;

/// The tree of organizations: types of organization, organizations, departments with their subdepartments,
/// workers. Deleted workers are not shown. It has a search line at the top: typing filters the tree, the
/// arrow keys move in it, Enter chooses.
class VRK_EXPORT OrgStructWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OrgStructWidget(QWidget* parent = nullptr);
    ~OrgStructWidget() override;

    /// Loads the reference tables through the module's session. Call it once.
    void init(CVrkCliMod* module);
    /// Restricts the tree to a department and its subtree; an unknown key gives an empty tree.
    void setRootDepartment(const QString& key);
    void resetRoot();
    /// Which items may be selected: OrgStruct::ItemType flags. Levels below the lowest of them are hidden.
    /// The default is 8, the workers.
    void setSelectionType(int type);
    int selectionType() const;
    void setSelectionMode(QAbstractItemView::SelectionMode mode);
    /// Makes the worker with this keyLink current; other members are ignored. An unknown key clears the
    /// current item. A search that would hide him is cleared.
    void setCurrectItem(const OrgStruct::Worker& worker);
    /// The current item with all its data; type 0 if there is none or it is not selectable.
    OrgStruct::SelectedItem selectedItem() const;
    /// Applies changes of the reference tables.
    void MessageData(TEventNciParse* event);
    /// Clears the search line and gives it the focus.
    void startSearch();

signals:
    /// Another item is current, or none.
    void currentChanged();
    /// A selectable item was chosen by double click or Enter.
    void itemActivated();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
