#include "CVrkArchive.h"

#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "FileSaver.h"
#include "HfnTime.h"
#include "ListOutput.h"
#include "LogbookFields.h"
#include "RecordList.h"
#include "Row.h"
#include "SearchMenu.h"
#include "ui_CVrkArchive.h"
#include "VrkTableProxyModel.h"
#include "VrkTableTool.h"

#include <QAction>
#include <QCompleter>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTableView>

namespace
{
constexpr int typingMs = 300;
} // namespace

CVrkArchive::CVrkArchive(CVrkCliApp* app) : CVrkCliMod(app), m_form(new Ui::CVrkArchive)
{
    m_form->setupUi(this);
    setObjectName(QStringLiteral("CVrkArchive"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setModuleStyle();

    m_form->wordsEdit->addAction(icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    const QString help = tr("Слова находятся в любой форме и в любом порядке.\n"
                            "\"отключена линия\" – в кавычках: слова рядом, в этом порядке\n"
                            "-учебная, -\"вывод в ремонт\" – после минуса: записи без этих слов\n"
                            "ВЛ* – слова, которые так начинаются");
    m_form->wordsEdit->setToolTip(help);
    m_form->equipmentEdit->setToolTip(help);
    m_form->statusCombo->addItem(tr("Любое"), -1);
    m_form->statusCombo->addItem(icon(QStringLiteral("apply")), tr("Утверждённые"), StatusApproved);
    m_form->statusCombo->addItem(QIcon(QStringLiteral(":/archive/draft.png")), tr("Черновики"), StatusDraft);
    m_form->statusCombo->addItem(QIcon(QStringLiteral(":/archive/deleted.png")), tr("Удалённые"),
                                 StatusDeleted);
    m_form->periodCombo->addItem(tr("За всё время"), Always);
    m_form->periodCombo->addItem(tr("За неделю"), Week);
    m_form->periodCombo->addItem(tr("За месяц"), Month);
    m_form->periodCombo->addItem(tr("За год"), Year);
    m_form->periodCombo->addItem(tr("С моей прошлой смены"), SinceOwnShift);
    m_form->periodCombo->addItem(tr("По датам:"), Chosen);
    for (QComboBox* combo : {m_form->departmentCombo, m_form->workerCombo})
        makeTypable(combo);
    m_form->moreButton->hide();
    m_form->searchButton->setDefault(true);
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingMs);
    for (QLineEdit* edit : {m_form->wordsEdit, m_form->equipmentEdit})
        edit->installEventFilter(this);
}

CVrkArchive::~CVrkArchive()
{
    // An edit with the focus finishes its editing when the window goes, after the form.
    for (QLineEdit* edit : {m_form->wordsEdit, m_form->equipmentEdit})
        edit->disconnect(this);
    delete m_form->list; // it uses the names until it is destroyed
}

void CVrkArchive::makeTypable(QComboBox* combo)
{
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
    combo->completer()->setFilterMode(Qt::MatchContains);
    combo->setMinimumContentsLength(16);
    QLineEdit* edit = combo->lineEdit();
    connect(edit, &QLineEdit::textChanged, edit, [edit] {
        if (!edit->hasFocus())
            edit->setCursorPosition(0); // the begin of a long name is shown
    });
    connect(combo->lineEdit(), &QLineEdit::editingFinished, combo, [combo] {
        const int named = combo->findText(combo->currentText(), Qt::MatchFixedString);
        const int index = named >= 0 ? named : combo->currentIndex();
        combo->setCurrentIndex(index);
        combo->setEditText(combo->itemText(index));
    });
}

bool CVrkArchive::ModuleStart()
{
    m_name = tr("Поиск по архиву");
    SetModTitle(m_name, QString());
    if (!m_names.load(this)) {
        m_form->list->setEnabled(false);
        m_form->foundLabel->setText(tr("Не удалось загрузить данные!"));
        return false;
    }
    m_form->list->init(this, &m_names);
    m_form->list->setColumnVisible(Field::lacks, false);
    m_form->filterBar->init(this, &m_names, m_form->list);
    makeOutput();
    m_form->departmentCombo->addItem(tr("Все подразделения"), QByteArray());
    for (const KeyNames::Entry& department : m_names.departments())
        m_form->departmentCombo->addItem(department.name, department.key);
    m_form->searchesButton->init(m_app->settings(), [this] { return content(); });
    clear();
    createConnections();
    m_isStarted = true;
    m_form->wordsEdit->setFocus();
    searchAnew();
    return true;
}

void CVrkArchive::makeOutput()
{
    m_output = new ListOutput(this, m_form->list->view(), [this] {
        const QDate today = session()->HfnTimeToSesTime().date();
        const bool isMore = m_form->moreButton->isVisibleTo(this);
        ListOutput::About about;
        about.title = tr("Печать: %1").arg(m_name);
        about.name =
            QStringLiteral("%1 %2 %3")
                .arg(tr("Поиск"), m_form->wordsEdit->text(), today.toString(QStringLiteral("yyyy-MM-dd")));
        about.remark = isMore ? tr("Это последние %1 записей, есть и более ранние.").arg(m_limit) : QString();
        about.content = QStringLiteral("%1: %2\n%3").arg(m_name, caption(), m_found);
        const QString hidden = m_form->filterBar->hiddenText();
        if (!hidden.isEmpty())
            about.content += QStringLiteral(", ") + hidden;
        return about;
    });
    m_form->mainLayout->insertWidget(1, m_output->saver());
    m_form->printButton->setDefaultAction(m_output->printAction());
    m_form->tableButton->setDefaultAction(m_output->tableAction());
    for (QToolButton* button : {m_form->printButton, m_form->tableButton}) {
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
    }
}

QString CVrkArchive::caption() const
{
    QStringList parts;
    if (!m_form->wordsEdit->text().trimmed().isEmpty())
        parts << m_form->wordsEdit->text().simplified();
    if (!m_form->equipmentEdit->text().trimmed().isEmpty())
        parts << tr("оборудование: %1").arg(m_form->equipmentEdit->text().simplified());
    parts << m_form->departmentCombo->currentText();
    if (m_form->workerCombo->currentIndex() > 0)
        parts << m_form->workerCombo->currentText();
    if (m_form->statusCombo->currentIndex() > 0)
        parts << m_form->statusCombo->currentText().toLower();
    if (m_form->periodCombo->currentData().toInt() == Chosen)
        parts << m_form->fromEdit->text() + QStringLiteral(" – ") + m_form->toEdit->text();
    else if (m_form->periodCombo->currentIndex() > 0)
        parts << m_form->periodCombo->currentText().toLower();
    return parts.join(QStringLiteral(", "));
}

double CVrkArchive::endOfOwnShift() const
{
    const QString user = m_app->m_user_params.getValue(QStringLiteral("KEYLINK"), QString());
    const QString own = QStringLiteral("(SELECT KeyLink FROM Workers WHERE UserKey = '%1')").arg(user);
    CMDArray answer;
    answer = session()->SqlRequest(
        QStringLiteral(
            "SELECT W.endTime FROM LogbookWorkshifts AS W WHERE W.CloseWorkerKey <> '' AND "
            "(W.OpenWorkerKey IN %1 OR W.KeyLink IN (SELECT C.WorkshiftKey FROM LogbookWorkersWorkshift AS C "
            "WHERE C.WorkerKey IN %1)) ORDER BY W.endTime DESC LIMIT 1")
            .arg(own)
            .toUtf8());
    return answer.array && answer.RecCount() > 0 ? Row(MDARec(answer.array, 0, 0)).time(Field::endTime) : 0.0;
}

KeptSearch CVrkArchive::content() const
{
    KeptSearch search;
    search.name = caption();
    search.words = m_form->wordsEdit->text();
    search.equipment = m_form->equipmentEdit->text();
    search.departmentKey = m_form->departmentCombo->currentData().toByteArray();
    search.workerKey = m_form->workerCombo->currentData().toByteArray();
    search.status = m_form->statusCombo->currentData().toInt();
    search.period = m_form->periodCombo->currentData().toInt();
    if (search.period == Chosen) {
        search.from = m_form->fromEdit->date();
        search.to = m_form->toEdit->date();
    }
    return search;
}

void CVrkArchive::setContent(const KeptSearch& search)
{
    clear();
    const auto choose = [](QComboBox* combo, const QVariant& key) {
        combo->setCurrentIndex(qMax(0, combo->findData(key)));
    };
    {
        const QSignalBlocker blockers[] = {
            QSignalBlocker(m_form->wordsEdit),       QSignalBlocker(m_form->equipmentEdit),
            QSignalBlocker(m_form->departmentCombo), QSignalBlocker(m_form->workerCombo),
            QSignalBlocker(m_form->statusCombo),     QSignalBlocker(m_form->periodCombo),
            QSignalBlocker(m_form->fromEdit),        QSignalBlocker(m_form->toEdit)};
        m_form->wordsEdit->setText(search.words);
        m_form->equipmentEdit->setText(search.equipment);
        choose(m_form->departmentCombo, search.departmentKey);
        fillWorkers();
        choose(m_form->workerCombo, search.workerKey);
        choose(m_form->statusCombo, search.status);
        choose(m_form->periodCombo, search.period);
        if (search.from.isValid() && search.to.isValid()) {
            m_form->fromEdit->setDate(search.from);
            m_form->toEdit->setDate(search.to);
        }
    }
    searchAnew();
}

void CVrkArchive::createConnections()
{
    connect(m_form->filterBar, &FilterBar::changed, this, &CVrkArchive::showFiltered);
    connect(m_form->searchesButton, &SearchMenu::chosen, this, &CVrkArchive::setContent);
    // What was searched by typing alone may be half a word.
    const auto remember = [this] {
        const KeptSearch search = content();
        if (!search.words.trimmed().isEmpty() || !search.equipment.trimmed().isEmpty())
            m_form->searchesButton->book().remember(search);
    };
    for (QLineEdit* edit : {m_form->wordsEdit, m_form->equipmentEdit})
        connect(edit, &QLineEdit::editingFinished, this, remember);
    connect(m_form->searchButton, &QPushButton::clicked, this, remember);
    connect(&m_typing, &QTimer::timeout, this, &CVrkArchive::searchAnew);
    for (QLineEdit* edit : {m_form->wordsEdit, m_form->equipmentEdit}) {
        connect(edit, &QLineEdit::textChanged, &m_typing, QOverload<>::of(&QTimer::start));
        connect(edit, &QLineEdit::returnPressed, this, &CVrkArchive::searchAnew);
    }
    const auto chosen = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_form->departmentCombo, chosen, this, &CVrkArchive::fillWorkers);
    for (QComboBox* combo :
         {m_form->departmentCombo, m_form->workerCombo, m_form->statusCombo, m_form->periodCombo})
        connect(combo, chosen, this, &CVrkArchive::searchAnew);
    for (QDateEdit* edit : {m_form->fromEdit, m_form->toEdit})
        connect(edit, &QDateEdit::dateChanged, this, &CVrkArchive::searchAnew);
    connect(m_form->searchButton, &QPushButton::clicked, this, &CVrkArchive::searchAnew);
    connect(m_form->clearButton, &QPushButton::clicked, this, [this] {
        clear();
        m_form->filterBar->reset();
        searchAnew();
        m_form->wordsEdit->setFocus();
    });
    connect(m_form->moreButton, &QPushButton::clicked, this, &CVrkArchive::showMore);

    auto* words = new QAction(this);
    words->setShortcut(QKeySequence::Find);
    addAction(words);
    connect(words, &QAction::triggered, m_form->wordsEdit, [this] {
        m_form->wordsEdit->setFocus();
        m_form->wordsEdit->selectAll();
    });
    auto* again = new QAction(this);
    again->setShortcut(QKeySequence::Refresh);
    addAction(again);
    connect(again, &QAction::triggered, this, &CVrkArchive::searchAnew);
}

void CVrkArchive::clear()
{
    const QList<QWidget*> all{m_form->wordsEdit,   m_form->equipmentEdit, m_form->departmentCombo,
                              m_form->workerCombo, m_form->statusCombo,   m_form->periodCombo,
                              m_form->fromEdit,    m_form->toEdit};
    for (QWidget* one : all)
        one->blockSignals(true);
    m_form->wordsEdit->clear();
    m_form->equipmentEdit->clear();
    const QByteArray own = m_app->m_user_params.getValue(QStringLiteral("DEPARTMENTKEY"), QString()).toUtf8();
    m_form->departmentCombo->setCurrentIndex(qMax(0, m_form->departmentCombo->findData(own)));
    fillWorkers();
    m_form->workerCombo->setCurrentIndex(0);
    m_form->statusCombo->setCurrentIndex(0);
    m_form->periodCombo->setCurrentIndex(0);
    const QDate today = session()->HfnTimeToSesTime().date();
    m_form->fromEdit->setDate(today.addMonths(-1));
    m_form->toEdit->setDate(today);
    for (QWidget* one : all)
        one->blockSignals(false);
}

void CVrkArchive::fillWorkers()
{
    QComboBox* combo = m_form->workerCombo;
    const QByteArray former = combo->currentData().toByteArray();
    const bool wasBlocked = combo->blockSignals(true);
    combo->clear();
    combo->addItem(tr("Любой"), QByteArray());
    for (const KeyNames::Entry& worker :
         m_names.workers(m_form->departmentCombo->currentData().toByteArray()))
        combo->addItem(worker.name, worker.key);
    combo->setCurrentIndex(qMax(0, combo->findData(former)));
    combo->blockSignals(wasBlocked);
}

RecordQuery CVrkArchive::query() const
{
    RecordQuery query;
    query.words = m_form->wordsEdit->text();
    query.equipment = m_form->equipmentEdit->text();
    query.departmentKey = m_form->departmentCombo->currentData().toByteArray();
    query.workerKey = m_form->workerCombo->currentData().toByteArray();
    query.status = m_form->statusCombo->currentData().toInt();
    const QDateTime now = session()->HfnTimeToSesTime();
    switch (m_form->periodCombo->currentData().toInt()) {
    case Week:
        query.from = DateTime_To_HfnTime(now.addDays(-7));
        break;
    case Month:
        query.from = DateTime_To_HfnTime(now.addMonths(-1));
        break;
    case Year:
        query.from = DateTime_To_HfnTime(now.addYears(-1));
        break;
    case SinceOwnShift:
        query.from = endOfOwnShift();
        break;
    case Chosen:
        query.from = DateTime_To_HfnTime(QDateTime(m_form->fromEdit->date(), QTime(0, 0)));
        query.to = DateTime_To_HfnTime(QDateTime(m_form->toEdit->date().addDays(1), QTime(0, 0)));
        break;
    default:
        break;
    }
    query.limit = m_limit + 1; // an extra record shows that there are more
    return query;
}

void CVrkArchive::searchAnew()
{
    m_typing.stop();
    m_limit = hitsAtOnce;
    const bool byDates = m_form->periodCombo->currentData().toInt() == Chosen;
    for (QWidget* one : {static_cast<QWidget*>(m_form->fromEdit), static_cast<QWidget*>(m_form->dashLabel),
                         static_cast<QWidget*>(m_form->toEdit)})
        one->setVisible(byDates);
    search();
}

void CVrkArchive::showMore()
{
    m_limit += hitsAtOnce;
    search();
    m_form->list->setFocus();
}

void CVrkArchive::search()
{
    QElapsedTimer clock;
    clock.start();
    CMDArray answer;
    answer = session()->SearchRecords(query());
    if (!answer.array) {
        m_form->foundLabel->setText(tr("Поиск не удался: %1").arg(session()->lastErrorText()));
        return;
    }
    const qint64 taken = clock.elapsed();
    const int found = answer.RecCount();
    if (found > m_limit)
        MDARecDel(MDARec(answer.array, 0, found - 1));
    const SearchWords::Query words = SearchWords::query(m_form->wordsEdit->text());
    QString hint = tr("Ничего не найдено. Попробуйте меньше слов, другое подразделение или другой период.");
    if (words.hasPhrases() || !words.excluded.isEmpty())
        hint +=
            tr("\n\nСлова в кавычках должны стоять рядом и в этом порядке, записи со словами после минуса "
               "исключены: попробуйте без кавычек и минуса.");
    m_emptyText = hint;
    m_form->list->replace(answer.array, SearchWords::terms(m_form->wordsEdit->text()) +
                                            SearchWords::terms(m_form->equipmentEdit->text()));
    m_form->list->setColumnVisible(Field::DepartmentKey,
                                   m_form->departmentCombo->currentData().toByteArray().isEmpty());
    tell(found, taken);
    m_form->filterBar->refresh();
}

void CVrkArchive::showFiltered()
{
    const int shown = m_form->list->tool()->proxy()->rowCount();
    m_form->list->setEmptyText(shown == 0 && m_form->filterBar->hidden() > 0
                                   ? tr("Все найденные записи скрыты. Их вернёт кнопка «Показать все».")
                                   : m_emptyText);
    m_output->setEnabled(shown > 0);
}

void CVrkArchive::tell(int found, qint64 milliseconds)
{
    const bool isMore = found > m_limit;
    m_form->moreButton->setVisible(isMore);
    m_found = isMore ? tr("Показаны последние %1, есть и более ранние").arg(m_limit)
                     : tr("Найдено записей: %1").arg(found);
    m_form->foundLabel->setText(m_found + tr(" (%1 мс)").arg(milliseconds));
}

bool CVrkArchive::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down &&
        m_form->list->view()->isVisible()) {
        m_form->list->setFocus();
        return true;
    }
    return CVrkCliMod::eventFilter(watched, event);
}
