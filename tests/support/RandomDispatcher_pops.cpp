#include "AppendWorkerDialog.h"
#include "CommentCreatorDialog.h"
#include "DateTimeRangeDialog.h"
#include "HtmlParser.h"
#include "LocationInfo.h"
#include "MarkTimeDialog.h"
#include "NoticeBar.h"
#include "OrgStructDialog.h"
#include "RandomDispatcher.h"
#include "RecordCreatorDialog.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"
#include "WorkshiftsDialog.h"

#include <QDateTimeEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

/// Actions in the pop-ups above the window.

namespace
{
const char* const templateKeys[] = {"TPL_ORDER", "TPL_TRIP", "TPL_TEXT"};

/// A bar with a new message keeps the previous buttons until the next turn of the event loop.
QAbstractButton* visibleButton(const QWidget* dialog, const char* name)
{
    QCoreApplication::processEvents(); // and then shows the new ones
    for (auto* button : dialog->findChildren<QAbstractButton*>(QLatin1String(name)))
        if (button->isVisible())
            return button;
    return nullptr;
}

QString shownText(const QWidget* dialog)
{
    return dialog->findChild<TemplateFiller*>()->filledTemplate(true);
}
} // namespace

void RandomDispatcher::actIn(CPopTemplate* pop)
{
    m_told << QLatin1String(pop->metaObject()->className());
    if (auto* box = qobject_cast<CPopMessageBox*>(pop))
        actInBox(box);
    else if (auto* creator = qobject_cast<RecordCreatorDialog*>(pop))
        actInCreator(creator);
    else if (auto* comment = qobject_cast<CommentCreatorDialog*>(pop))
        actInComment(comment);
    else if (qobject_cast<MarkTimeDialog*>(pop))
        actInMark(pop);
    else if (auto* opening = qobject_cast<OpenWorkshiftDialog*>(pop))
        actInOpening(opening);
    else if (auto* closing = qobject_cast<CloseWorkshiftDialog*>(pop))
        actInClosing(closing);
    else if (qobject_cast<AppendWorkerDialog*>(pop))
        actInAppending(pop);
    else if (qobject_cast<DateTimeRangeDialog*>(pop))
        actInRange(pop);
    else if (qobject_cast<OrgStructDialog*>(pop))
        actInStructure(pop);
    else if (auto* shifts = qobject_cast<WorkshiftsDialog*>(pop)) {
        auto* list = in<QListWidget>(shifts, "workshiftsList");
        list->setCurrentRow(pick(list->count()));
        if (!press(in<QAbstractButton>(pop, pick(5) ? "applyButton" : "cancelButton")))
            pop->close();
    } else {
        pop->close(); // it can only be read
    }
}

void RandomDispatcher::actInBox(CPopMessageBox* box)
{
    m_mayBeRefused = true; // the question may now concern another record
    QAbstractButton* button = box->buttonBox()->buttons().constFirst();
    const bool isYes = pick(3) > 0;
    for (QAbstractButton* one : box->buttonBox()->buttons())
        if (box->ButtonRole(one) == (isYes ? QDialogButtonBox::YesRole : QDialogButtonBox::NoRole))
            button = one;
    m_told << box->title() << button->text();
    if (pick(6) == 0)
        box->close();
    else
        press(button);
}

bool RandomDispatcher::pressInBar(RecordCreatorDialog* dialog)
{
    QVector<QAbstractButton*> buttons;
    for (const NoticeBar* bar : dialog->findChildren<NoticeBar*>())
        for (auto* button : bar->findChildren<QAbstractButton*>())
            if (button->isVisible())
                buttons.append(button);
    if (buttons.isEmpty())
        return false;
    QAbstractButton* button = buttons.at(pick(buttons.size()));
    m_told << button->objectName();
    for (const char* dropping : {"dropTextButton", "dropRestoredButton", "takeTheirsButton"})
        if (button->objectName() == QLatin1String(dropping))
            drop(shownText(dialog));
    press(button);
    return true;
}

void RandomDispatcher::actInCreator(RecordCreatorDialog* dialog)
{
    m_mayBeRefused = true;
    auto* templates = dialog->findChild<TemplatesWidget*>();
    auto* save = in<QAbstractButton>(dialog, "saveButton");
    const int what = pick(20);
    if (what < 2 && pressInBar(dialog))
        return;
    if (templates->isVisible() && (what == 2 || templates->currentTemplateKey().isEmpty())) {
        const char* const key = templateKeys[pick(3)];
        m_told << QLatin1String(key);
        templates->selectTemplate(QLatin1String(key));
    } else if (what == 3) {
        auto* time = in<QDateTimeEdit>(dialog, "eventTimeEdit");
        if (time->isEnabled())
            time->setDateTime(time->dateTime().addSecs(60 * (pick(120) - 60)));
    } else if (what == 4) {
        in<QAbstractButton>(dialog, pick(2) ? "fromButton" : "toButton")->click();
    } else if (what == 5) {
        m_told << QStringLiteral("closes");
        dialog->close(); // like an event closes it: without a question
    } else if (what == 6) {
        m_told << QStringLiteral("Esc");
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else if (what < 14 && save->isVisible() && save->isEnabled()) {
        m_told << QStringLiteral("save");
        press(save);
    } else if (!typeInCreator(dialog) && !pressInBar(dialog)) {
        press(in<QAbstractButton>(dialog, "cancelButton"));
    }
}

bool RandomDispatcher::typeInCreator(RecordCreatorDialog* dialog)
{
    const HtmlParser parser(shownText(dialog).toStdString());
    const int count = static_cast<int>(parser.countParameters());
    int parameter = pick(count);
    for (int i = 0; i < count; ++i) // the empty ones first
        if (parser.displayText(unsigned(i)) == parser.propertyValue(unsigned(i), "locname"))
            parameter = i;
    const auto* input = in<QWidget>(dialog, qPrintable(QStringLiteral("parameterInput_%1").arg(parameter)));
    if (count == 0 || !input || !input->isEnabled())
        return false;
    drop(QString::fromStdString(parser.displayText(unsigned(parameter))));
    JournalWindow::type(dialog, parameter, newText());
    return true;
}

void RandomDispatcher::actInComment(CommentCreatorDialog* dialog)
{
    m_mayBeRefused = true;
    auto* edit = in<QTextEdit>(dialog, "commentEdit");
    auto* apply = in<QAbstractButton>(dialog, "applyButton");
    QVector<QAbstractButton*> buttons;
    for (const NoticeBar* bar : dialog->findChildren<NoticeBar*>())
        for (auto* button : bar->findChildren<QAbstractButton*>())
            if (button->isVisible())
                buttons.append(button);
    const int what = pick(8);
    if (what < 2 && !buttons.isEmpty()) {
        QAbstractButton* button = buttons.at(pick(buttons.size()));
        m_told << button->objectName();
        if (button->objectName() == QLatin1String("dropKeptButton"))
            return;
        if (button->objectName() == QLatin1String("takeKeptButton"))
            drop(edit->toPlainText()); // it is replaced
        press(button);
    } else if (what == 2) {
        m_told << QStringLiteral("cancel");
        drop(edit->toPlainText());
        press(in<QAbstractButton>(dialog, "cancelButton"));
    } else if (apply->isEnabled()) {
        m_told << QStringLiteral("apply");
        press(apply);
    } else {
        drop(edit->toPlainText());
        edit->selectAll();
        edit->insertPlainText(newText());
    }
}

void RandomDispatcher::actInMark(CPopTemplate* dialog)
{
    m_mayBeRefused = true;
    const auto radios = dialog->findChildren<QRadioButton*>();
    radios.at(pick(radios.size()))->click();
    if (auto* time = in<QTimeEdit>(dialog, "timeEdit"))
        time->setTime(QTime(pick(24), pick(60)));
    const char* const button = pick(4) ? "applyButton" : "cancelButton";
    m_told << QLatin1String(button);
    if (pick(3))
        press(in<QAbstractButton>(dialog, button));
}

void RandomDispatcher::actInOpening(OpenWorkshiftDialog* dialog)
{
    m_mayBeRefused = true;
    switch (pick(5)) {
    case 0:
        press(in<QAbstractButton>(dialog, "addWorkerButton"));
        break;
    case 1:
        press(in<QAbstractButton>(dialog, pick(3) ? "removeWorkerButton" : "cancelButton"));
        break;
    default: {
        const QByteArray department = m_window->home().location()->departmentKey().toUtf8();
        const double last =
            m_store
                .value(QStringLiteral("SELECT max(endTime) FROM LogbookWorkshifts WHERE DepartmentKey='%1'")
                           .arg(QString::fromUtf8(department)))
                .toDouble();
        const QDateTime start =
            last > 0 ? QDateTime::fromSecsSinceEpoch(qint64(last)) : QDateTime::currentDateTime();
        const QDateTime end = start.addSecs(3600 * (1 + pick(8)));
        in<QDateEdit>(dialog, "startDateEdit")->setDate(start.date());
        in<QTimeEdit>(dialog, "startTimeEdit")->setTime(start.time());
        in<QDateEdit>(dialog, "endDateEdit")->setDate(end.date());
        in<QTimeEdit>(dialog, "endTimeEdit")->setTime(end.time());
        m_told << QStringLiteral("apply");
        press(in<QAbstractButton>(dialog, "applyButton"));
    }
    }
}

void RandomDispatcher::actInClosing(CloseWorkshiftDialog* dialog)
{
    m_mayBeRefused = true;
    switch (pick(6)) {
    case 0:
        press(in<QAbstractButton>(dialog, "addWorkerButton"));
        break;
    case 1:
        press(in<QAbstractButton>(dialog, "cancelButton"));
        break;
    default:
        if (press(in<QAbstractButton>(dialog, "closeWorkshiftButton"))) {
            m_told << QStringLiteral("apply");
        } else if (in<QWidget>(dialog, "parameterInput_0")) {
            drop(shownText(dialog));
            JournalWindow::type(dialog, 0, newText());
        }
    }
}

void RandomDispatcher::actInAppending(CPopTemplate* dialog)
{
    m_mayBeRefused = true;
    static const char* const buttons[] = {"addButton", "addButton", "applyButton", "cancelButton"};
    const char* const button = buttons[pick(4)];
    m_told << QLatin1String(button);
    press(in<QAbstractButton>(dialog, button));
}

void RandomDispatcher::actInRange(CPopTemplate* dialog)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime start = now.addSecs(-3600 * (1 + pick(40)));
    in<QDateEdit>(dialog, "endDateEdit")->setDate(now.date());
    in<QTimeEdit>(dialog, "endTimeEdit")->setTime(now.time());
    in<QDateEdit>(dialog, "startDateEdit")->setDate(start.date());
    in<QTimeEdit>(dialog, "startTimeEdit")->setTime(start.time());
    if (pick(5) == 0 || !press(in<QAbstractButton>(dialog, "applyButton")))
        press(in<QAbstractButton>(dialog, "cancelButton"));
}

/// Like a double click on an item of the tree: closes the dialog and reports the choice.
void RandomDispatcher::actInStructure(CPopTemplate* dialog)
{
    auto* structure = qobject_cast<OrgStructDialog*>(dialog);
    structure->hide();
    if (pick(6) == 0)
        return;
    OrgStruct::SelectedItem item;
    if (structure->objectName() == QLatin1String("departmentDialog")) {
        static const char* const places[][2] = {
            {"ORG_NETS", "DEP_ZAR"}, {"ORG_CENTER", "DEP_ODS"}, {"ORG_NETS", "DEP_CDS"}};
        const auto& place = places[pick(3)];
        item.type = OrgStruct::Department;
        item.organizationKey = QLatin1String(place[0]);
        item.departmentKey = QLatin1String(place[1]);
        m_told << item.departmentKey;
    } else {
        static const char* const workers[] = {"WORKER_IVANOV", "WORKER_PETROV", "WORKER_SIDOROVA",
                                              "WORKER_SMIRNOV_ZAR"};
        item.type = OrgStruct::Person;
        item.worker.keyLink = QLatin1String(workers[pick(4)]);
        m_told << item.worker.keyLink;
    }
    emit structure->itemSelected(item);
}

void RandomDispatcher::closePops()
{
    for (int rounds = 0; rounds < 10 && !pops().isEmpty(); ++rounds)
        for (CPopTemplate* pop : pops()) {
            if (auto* comment = qobject_cast<CommentCreatorDialog*>(pop))
                drop(in<QTextEdit>(comment, "commentEdit")->toPlainText());
            pop->close();
        }
}

QStringList RandomDispatcher::lostTexts()
{
    closePops();
    const QString sql = QStringLiteral("SELECT count(*) FROM ChangeLog WHERE newRow LIKE '%TEXT%'");
    const QSet<QString> typed = m_typed;
    for (const QString& text : typed)
        if (m_store.value(QString(sql).replace(QLatin1String("TEXT"), text)).toInt() > 0)
            m_typed.remove(text);
    if (!m_typed.isEmpty())
        strikeOffered();
    const QStringList lost = m_typed.values();
    m_typed.clear();
    return lost;
}

void RandomDispatcher::strikeOffered()
{
    // All kept texts are offered one after another when the dialogs are shown again.
    m_window->home().createRecordRequest();
    auto* creator = m_window->window().findChild<RecordCreatorDialog*>();
    for (int rounds = 0; rounds < 20; ++rounds) {
        drop(shownText(creator));
        QAbstractButton* restored = visibleButton(creator, "dropRestoredButton");
        if (!restored)
            break;
        restored->click();
    }
    for (const char* key : templateKeys) {
        creator->findChild<TemplatesWidget*>()->selectTemplate(QLatin1String(key));
        drop(shownText(creator));
    }
    creator->close();

    for (auto* comments : m_window->window().findChildren<CommentCreatorDialog*>()) {
        comments->show();
        for (int rounds = 0; rounds < 20; ++rounds) { // each replaces the previous one
            QAbstractButton* kept = visibleButton(comments, "takeKeptButton");
            if (!kept)
                break;
            kept->click();
            drop(in<QTextEdit>(comments, "commentEdit")->toPlainText());
        }
        comments->close();
    }

    auto* closing = m_window->closing();
    closing->show();
    closing->findChild<TemplatesWidget*>()->selectTemplate(QStringLiteral("TPL_CLOSE"));
    drop(shownText(closing));
    closing->close();
}
