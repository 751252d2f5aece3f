#include "CrewTable.h"

#include "CMDArray.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnWrapper.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordValue.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QTextCodec>

namespace
{
enum Column { NameColumn, RolesColumn, ColumnCount };
} // namespace

CrewTable::CrewTable(QTableWidget* view, CVrkCliSes* session, QObject* parent)
    : QObject(parent), m_view(view), m_session(session)
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

void CrewTable::append(const QString& workerKey, bool selectable)
{
    const int row = m_view->rowCount();
    m_view->insertRow(row);
    const bool hasName = m_names == ShortNames ||
                         !HfnWrapper::workerFullName(m_session->codec(), m_workers, workerKey).isEmpty();
    // Deliberate: a chosen crew member without a full name leaves a row without cells. The opener always
    // has cells.
    if (workerKey.isEmpty() || (selectable && !hasName))
        return;

    auto* nameItem =
        new QTableWidgetItem(QIcon(QStringLiteral(":/icons/employee.png")), shownName(workerKey));
    auto* rolesItem =
        new QTableWidgetItem(HfnWrapper::workerRoles(m_session->codec(), m_roles, m_workerRoles, workerKey));
    for (QTableWidgetItem* item : {nameItem, rolesItem}) {
        item->setData(Qt::UserRole, workerKey);
        item->setFlags(selectable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::ItemFlags());
    }
    m_view->setItem(row, NameColumn, nameItem);
    m_view->setItem(row, RolesColumn, rolesItem);
}

void CrewTable::appendRows(const CModelTable* crew)
{
    for (int i = 0; crew && i < crew->data.RecCount(); ++i)
        append(QString::fromUtf8(Row(MDARec(crew->data.array, 0, i)).bytes(Field::WorkerKey)));
}

QString CrewTable::shownName(const QString& workerKey) const
{
    const QTextCodec* codec = m_session->codec();
    const QString name = m_names == FullNames ? HfnWrapper::workerFullName(codec, m_workers, workerKey)
                                              : HfnWrapper::workerShortName(codec, m_workers, workerKey);
    if (!name.isEmpty())
        return name;
    CMDArray answer;
    answer = m_session->SqlRequest(
        QStringLiteral("SELECT U.login FROM Users AS U JOIN Workers AS W ON W.UserKey = U.KeyLink "
                       "WHERE W.KeyLink = '%1'")
            .arg(workerKey)
            .toUtf8());
    const QString login = Row(MDARec(answer.array, 0, 0)).text(Field::login, codec);
    return login.isEmpty() ? QStringLiteral("—") : login;
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
    // A cancelled choice leaves its connection, which would also receive the next choice.
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
