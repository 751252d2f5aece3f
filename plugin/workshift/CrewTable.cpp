#include "CrewTable.h"

#include "HfnWrapper.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"

#include <QHeaderView>
#include <QTableWidget>

namespace
{
enum Column { NameColumn, RolesColumn, ColumnCount };
} // namespace

CrewTable::CrewTable(QTableWidget* view, const QTextCodec* codec, QObject* parent)
    : QObject(parent), m_view(view), m_codec(codec)
{
    view->setColumnCount(ColumnCount);
    view->setHorizontalHeaderLabels({tr("ФИО"), tr("Должность")});
    view->setShowGrid(true);
    view->setAlternatingRowColors(true);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->horizontalHeader()->setStretchLastSection(true);
    view->horizontalHeader()->setSectionResizeMode(
        QHeaderView::ResizeToContents); // a crew is a handful of rows
    view->verticalHeader()->hide();
}

void CrewTable::setTables(CModelTable* workers, CModelTable* roles, CModelTable* workerRoles)
{
    m_workers = workers;
    m_roles = roles;
    m_workerRoles = workerRoles;
}

bool CrewTable::contains(const QString& workerKey) const
{
    return workerKeys().contains(workerKey);
}

void CrewTable::append(const QString& workerKey, bool selectable)
{
    const int row = m_view->rowCount();
    m_view->insertRow(row);
    const QString name = m_names == FullNames ? HfnWrapper::workerFullName(m_codec, m_workers, workerKey)
                                              : HfnWrapper::workerShortName(m_codec, m_workers, workerKey);
    if (name.isEmpty())
        return;

    auto* nameItem = new QTableWidgetItem(QIcon(QStringLiteral(":/icons/employee.png")), name);
    auto* rolesItem =
        new QTableWidgetItem(HfnWrapper::workerRoles(m_codec, m_roles, m_workerRoles, workerKey));
    for (QTableWidgetItem* item : {nameItem, rolesItem}) {
        item->setData(Qt::UserRole, workerKey);
        item->setFlags(selectable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::ItemFlags());
    }
    m_view->setItem(row, NameColumn, nameItem);
    m_view->setItem(row, RolesColumn, rolesItem);
}

void CrewTable::removeCurrent()
{
    const QModelIndex current = m_view->selectionModel()->currentIndex();
    if (current.isValid())
        m_view->removeRow(current.row());
}

void CrewTable::clear()
{
    m_view->setRowCount(0);
}

QStringList CrewTable::workerKeys() const
{
    QStringList keys;
    for (int row = 0; row < m_view->rowCount(); ++row) {
        if (const QTableWidgetItem* item = m_view->item(row, NameColumn))
            keys << item->data(Qt::UserRole).toString();
    }
    return keys;
}

void CrewTable::choose(OrgStructDialog* dialog, const QString& departmentKey,
                       const std::function<void(const QString&)>& chosen)
{
    // A cancelled choice leaves its connection behind, which would answer the next one as well.
    QObject::disconnect(dialog, SIGNAL(itemSelected(OrgStruct::SelectedItem)), nullptr, nullptr);
    connect(dialog, &OrgStructDialog::itemSelected, this,
            [this, dialog, chosen](const OrgStruct::SelectedItem& item) {
                const QString key = item.worker.keyLink;
                const std::function<void(const QString&)> receiver =
                    chosen; // lives on when the connection goes
                QObject::disconnect(dialog, SIGNAL(itemSelected(OrgStruct::SelectedItem)), nullptr, nullptr);
                dialog->widget()->resetRoot();
                if (!contains(key))
                    receiver(key);
            });
    dialog->widget()->setRootDepartment(departmentKey);
    dialog->widget()->setSelectionType(OrgStruct::Person);
    dialog->show();
}
