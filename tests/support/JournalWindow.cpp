#include "JournalWindow.h"

#include "OrgStructDialog.h"
#include "RecordValue.h"
#include "TemplateFiller.h"
#include "Typing.h"
#include "VrkTableProxyModel.h"

#include <QDateEdit>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

JournalWindow::JournalWindow(const TestStore& store, const QString& login, const QByteArray& department)
    : m_client(store, login, department), m_window(std::make_unique<CVrkLogBook>(&m_client.app()))
{
    start(login);
}

JournalWindow::JournalWindow(std::unique_ptr<Store> store, const QString& login, const QString& department,
                             const QString& organization)
    : m_client(std::move(store))
{
    CStringParams& parameters = m_client.app().m_user_params;
    parameters.setValue(QStringLiteral("KEYLINK"), QStringLiteral("USER_") + login.toUpper());
    parameters.setValue(QStringLiteral("DEPARTMENTKEY"), department);
    parameters.setValue(QStringLiteral("ORGANIZATIONKEY"), organization);
    m_window = std::make_unique<CVrkLogBook>(&m_client.app());
    start(login);
}

void JournalWindow::start(const QString& login)
{
    if (!m_window->ModuleStart())
        qFatal("the journal of %s does not start", qPrintable(login));
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        qFatal("the window does not show");
    m_home = child<LogBookWidget>("homeLogbook");
}

CPopMessageBox* JournalWindow::box() const
{
    for (CPopMessageBox* one : m_window->findChildren<CPopMessageBox*>())
        if (one->isVisible())
            return one;
    return nullptr;
}

void JournalWindow::answer(QDialogButtonBox::ButtonRole role)
{
    const CPopMessageBox* shown = box();
    const QDialogButtonBox* buttons = shown ? shown->buttonBox() : nullptr;
    for (QAbstractButton* button : buttons ? buttons->buttons() : QList<QAbstractButton*>()) {
        if (buttons->buttonRole(button) == role) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    qFatal("nobody asks for this answer");
}

void JournalWindow::requestOpening(const QDateTime& start)
{
    trigger("openWorkshiftAction");
    const QDateTime end = start.addDays(1);
    childOf<QDateEdit>(opening(), "startDateEdit")->setDate(start.date());
    childOf<QTimeEdit>(opening(), "startTimeEdit")->setTime(start.time());
    childOf<QDateEdit>(opening(), "endDateEdit")->setDate(end.date());
    childOf<QTimeEdit>(opening(), "endTimeEdit")->setTime(end.time());
}

void JournalWindow::requestClosing(QDialogButtonBox::ButtonRole role)
{
    trigger("closeWorkshiftAction");
    if (box())
        answer(role);
}

void JournalWindow::choose(const QWidget* dialog, const char* workerKey)
{
    QTest::mouseClick(childOf<QToolButton>(dialog, "addWorkerButton"), Qt::LeftButton);
    for (OrgStructDialog* structure : m_window->findChildren<OrgStructDialog*>()) {
        if (!structure->isVisible())
            continue;
        OrgStruct::SelectedItem item;
        item.type = OrgStruct::Person;
        item.worker.keyLink = QLatin1String(workerKey);
        structure->hide();
        emit structure->itemSelected(item);
        return;
    }
    qFatal("the structure is not shown");
}

void JournalWindow::type(const QWidget* dialog, int parameter, const QString& text)
{
    auto* input = childOf<QWidget>(dialog, qPrintable(QStringLiteral("parameterInput_%1").arg(parameter)));
    if (auto* line = qobject_cast<QLineEdit*>(input))
        line->selectAll();
    else if (auto* lines = qobject_cast<QTextEdit*>(input))
        lines->selectAll();
    typeText(input, text);
}

QString JournalWindow::filled(const QWidget* dialog)
{
    return dialog->findChild<TemplateFiller*>()->filledTemplate(true);
}

MDRData* JournalWindow::record(const QString& key)
{
    const QByteArray wanted = key.toUtf8();
    const MDRRange found = MDARecsWith(m_home->table(QStringLiteral("LogbookRecords"))->data.array, "KeyLink",
                                       wanted.constData());
    return found.count > 0 ? found.data[0] : nullptr;
}

void JournalWindow::select(const char* key)
{
    auto* view = childOf<QTableView>(m_home, "recordsTable");
    const auto* proxy = qobject_cast<VrkTableProxyModel*>(view->model());
    for (int row = 0; row < proxy->rowCount(); ++row) {
        if (MDRValue::bytes(Row(proxy->record(row)).value("KeyLink")) == key) {
            view->setCurrentIndex(proxy->index(row, 4));
            return;
        }
    }
    qFatal("record %s is not shown", key);
}
