#pragma once

#include "OrgStruct.h"
#include "VrkExport.h"

#include <memory>
#include <QAbstractItemView>
#include <QWidget>

class CVrkCliMod;
struct TEventNciParse;

/// The tree of organizations: types of organization, organizations, departments with their subdepartments,
/// workers. Deleted workers are left out. A search line stands above it: typing narrows the tree, the arrow
/// keys move in it, Enter chooses.
class VRK_EXPORT OrgStructWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OrgStructWidget(QWidget* parent = nullptr);
    ~OrgStructWidget() override;

    /// Loads the reference tables through the module's session. Once.
    void init(CVrkCliMod* module);
    /// Restricts the tree to a department and what is below it; an unknown key gives an empty tree.
    void setRootDepartment(const QString& key);
    void resetRoot();
    /// OrgStruct::ItemType, one or several joined: what may be selected. Levels below the lowest of them are
    /// hidden. 8, the workers, at first.
    void setSelectionType(int type);
    int selectionType() const;
    void setSelectionMode(QAbstractItemView::SelectionMode mode);
    /// Makes the worker with this keyLink current, whatever else stands in the value; an unknown key clears
    /// the current item. A search that would hide him is cleared.
    void setCurrectItem(const OrgStruct::Worker& worker);
    /// The current item with all that is known about it; type 0 when there is none or it is of no selectable
    /// type.
    OrgStruct::SelectedItem selectedItem() const;
    /// Follows changes of the reference tables.
    void MessageData(TEventNciParse* event);
    /// Empties the search line and puts the keyboard there.
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
