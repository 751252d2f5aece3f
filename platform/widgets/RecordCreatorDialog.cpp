#include "RecordCreatorDialog.h"

#include "CLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "KeptDraft.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "ui_RecordCreatorDialog.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QShortcut>

namespace
{
const QSize UsualSize(1200, 650);
const char* const SplitterSetting = "recordCreator/splitter";

/// A disabled but readable field keeps the colours of enabled text.
void setReadable(QWidget* field, bool readable)
{
    QPalette palette;
    if (readable) {
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
            palette.setColor(QPalette::Disabled, role, field->palette().color(QPalette::Active, role));
    }
    field->setPalette(palette);
}
} // namespace

RecordCreatorDialog::RecordCreatorDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_form(new Ui::RecordCreatorDialog),
      m_unsaved(new KeptDraft(this, KeptTexts::of(this), [this] { return unsaved(); }))
{
    m_form->setupUi(this);
    m_form->directionGroup->setId(m_form->noDirectionButton, DirectionNone);
    m_form->directionGroup->setId(m_form->fromButton, DirectionLeft);
    m_form->directionGroup->setId(m_form->toButton, DirectionRight);
    m_form->splitter->setStretchFactor(1, 1);
    m_form->templateFiller->setOrientation(Qt::Vertical);
    m_form->eventTimeEdit->installEventFilter(this);
    resize(UsualSize);
    connectWidgets();
}

RecordCreatorDialog::~RecordCreatorDialog()
{
    m_unsaved->release();
}

void RecordCreatorDialog::connectWidgets()
{
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(Qt::CTRL | enter, this);
        connect(shortcut, &QShortcut::activated, this, &RecordCreatorDialog::saveByKey);
    }
    auto* search = new QShortcut(QKeySequence::Find, this);
    connect(search, &QShortcut::activated, this, [this] {
        if (m_form->templatesWidget->isVisible())
            m_form->templatesWidget->startSearch();
    });
    connect(m_form->saveButton, &QPushButton::clicked, this, &RecordCreatorDialog::save);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &RecordCreatorDialog::requestClose);
    connect(m_form->templatesWidget, &TemplatesWidget::selectionChanged, this,
            &RecordCreatorDialog::chooseTemplate);
    connect(m_form->templatesWidget, &TemplatesWidget::templateActivated, this,
            &RecordCreatorDialog::focusText);
    connect(m_form->templateFiller, &TemplateFiller::templateChanged, this,
            &RecordCreatorDialog::updateControls);
    connect(m_form->counterpartEdit, &WorkerEdit::changed, this, &RecordCreatorDialog::updateControls);
    connect(m_form->counterpartEdit, &WorkerEdit::treeRequested, this,
            &RecordCreatorDialog::chooseCounterpart);
    connect(m_form->eventTimeEdit, &QDateTimeEdit::dateTimeChanged, this,
            &RecordCreatorDialog::eventTimeEdited);
    connect(m_form->nowButton, &QToolButton::clicked, this,
            [this] { m_form->eventTimeEdit->setDateTime(m_module->session()->HfnTimeToSesTime()); });
    connect(m_form->templateFiller, &TemplateFiller::templateChanged, m_unsaved, &KeptDraft::touch);
    connect(m_form->counterpartEdit, &WorkerEdit::changed, m_unsaved, &KeptDraft::touch);
    connect(m_form->eventTimeEdit, &QDateTimeEdit::dateTimeChanged, m_unsaved, &KeptDraft::touch);
    for (QAbstractButton* direction : m_form->directionGroup->buttons())
        connect(direction, &QAbstractButton::clicked, m_unsaved, &KeptDraft::touch);
    for (NoticeBar* bar : {m_form->noticeBar, m_form->failureBar, m_form->questionBar})
        connect(bar, &NoticeBar::chosen, this, &RecordCreatorDialog::answer);
}

/// Before saving, the current field accepts its input, as it does when it loses the focus. A missing value
/// gets the focus.
void RecordCreatorDialog::saveByKey()
{
    const QPointer<QWidget> field = focusWidget();
    if (field)
        field->clearFocus();
    save();
    if (isVisible() && !focusWidget() && !goToMissing() && field)
        field->setFocus();
}

bool RecordCreatorDialog::goToMissing()
{
    if (m_mode != Mode::Create && m_mode != Mode::Edit)
        return false;
    if (m_form->templateFiller->focusMissing())
        return true;
    if (!m_form->counterpartEdit->isResolved()) {
        m_form->counterpartEdit->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

/// Enter in the fields around the text: go to the next one.
bool RecordCreatorDialog::goOn()
{
    if (m_form->eventTimeEdit->hasFocus())
        m_form->counterpartEdit->setFocus(Qt::TabFocusReason);
    else if (m_form->counterpartEdit->isAncestorOf(focusWidget()))
        focusText();
    else
        return false;
    return true;
}

void RecordCreatorDialog::init(CVrkCliMod* module)
{
    m_module = module;
    m_form->templatesWidget->setTextCodec(module->session()->codec());
    m_form->templateFiller->setModule(module);
    m_form->counterpartEdit->setModule(module);
}

void RecordCreatorDialog::setRecordsTable(CModelTable* table)
{
    m_records = table;
}

void RecordCreatorDialog::setWorkerKey(const QString& key)
{
    if (key == m_workerKey)
        return;
    m_workerKey = key;
    m_form->templatesWidget->setUserKey(key);
    updateControls();
}

void RecordCreatorDialog::setDepartmentKey(const QString& key)
{
    m_departmentKey = key;
    m_form->templatesWidget->setRootDepKeyLink(key);
    m_unsaved->setPlace(QStringLiteral("record/") + key);
    m_form->templateFiller->setKept(QStringLiteral("values/record/") + key, QString(),
                                    TemplateFiller::OthersOnly);
}

void RecordCreatorDialog::setOrgTypeKey(const QString& key)
{
    m_form->templatesWidget->setRootOrgKeyLink(key);
}

void RecordCreatorDialog::setWorkshiftKey(const QString& key)
{
    m_workshiftKey = key;
    updateControls();
}

void RecordCreatorDialog::chooseCounterpart()
{
    if (!m_orgStruct) {
        m_orgStruct = new OrgStructDialog(this, -1);
        m_orgStruct->widget()->init(m_module);
        m_orgStruct->widget()->setSelectionType(OrgStruct::Person);
        connect(
            m_orgStruct, &OrgStructDialog::itemSelected, this,
            [this](const OrgStruct::SelectedItem& item) { showCounterpart(item.worker.keyLink.toUtf8()); });
    }
    OrgStruct::Worker chosen;
    chosen.keyLink = QString::fromUtf8(m_form->counterpartEdit->workerKey());
    m_orgStruct->widget()->setCurrectItem(chosen);
    m_orgStruct->show();
}

void RecordCreatorDialog::updateControls()
{
    const bool creating = m_mode == Mode::Create;
    const bool writable = creating || m_mode == Mode::Edit || m_mode == Mode::Orphaned;
    m_form->templatesWidget->setVisible(creating);
    m_form->keepOpenCheck->setVisible(creating);
    for (QWidget* field : fields()) {
        if (field->isEnabled() == writable)
            continue;
        field->setEnabled(writable);
        if (!qobject_cast<QAbstractButton*>(field))
            setReadable(field, !writable);
    }
    m_form->saveButton->setVisible(m_mode != Mode::Read);
    m_form->cancelButton->setText(m_mode == Mode::Read ? tr("Закрыть") : tr("Отмена"));

    const QString reason = holdReason();
    m_form->saveButton->setEnabled(reason.isEmpty());
    m_form->saveButton->setToolTip(reason.isEmpty() ? tr("Ctrl+Enter") : reason);
    m_form->holdLabel->setText(reason);
    m_form->holdLabel->setVisible(m_mode != Mode::Read && !reason.isEmpty());
}

QVector<QWidget*> RecordCreatorDialog::fields() const
{
    return {m_form->templateFiller, m_form->eventTimeEdit, m_form->nowButton,      m_form->noDirectionButton,
            m_form->fromButton,     m_form->toButton,      m_form->counterpartEdit};
}

QString RecordCreatorDialog::holdReason() const
{
    switch (m_mode) {
    case Mode::Nothing:
    case Mode::Read:
        return tr("Запись открыта только для чтения");
    case Mode::Orphaned:
        return tr("Эту запись изменить больше нельзя");
    case Mode::Create:
        if (m_workerKey.isEmpty())
            return tr("Не известен автор записи");
        if (m_workshiftKey.isEmpty())
            return tr("Нет открытой смены");
        break;
    case Mode::Edit:
        break;
    }
    const TemplateFiller* filler = m_form->templateFiller;
    if (filler->filledTemplate(true).isEmpty())
        return tr("Выберите шаблон");
    if (!filler->isFilled())
        return filler->missing();
    if (!m_form->counterpartEdit->isResolved())
        return tr("Выберите собеседника из списка");
    return QString();
}

void RecordCreatorDialog::hideBars()
{
    m_form->noticeBar->hide();
    m_form->failureBar->hide();
    m_form->questionBar->hide();
}

void RecordCreatorDialog::showFailure(const QString& text)
{
    m_form->failureBar->tell(NoticeBar::Error, text);
}

void RecordCreatorDialog::requestClose()
{
    if (isDirty())
        askUnsaved();
    else
        leave();
}

void RecordCreatorDialog::askUnsaved()
{
    QVector<NoticeBar::Choice> choices;
    if (m_mode == Mode::Orphaned)
        choices.append({SaveAsNew, tr("Сохранить новой записью"), QStringLiteral("saveAsNewButton")});
    else if (holdReason().isEmpty())
        choices.append({SaveText, tr("Сохранить"), QStringLiteral("saveTextButton")});
    choices.append({DropText, tr("Не сохранять"), QStringLiteral("dropTextButton")});
    choices.append({Stay, tr("Вернуться"), QStringLiteral("stayButton")});
    const bool complete = m_mode == Mode::Orphaned || holdReason().isEmpty();
    m_form->questionBar->tell(NoticeBar::Question,
                              complete ? tr("Текст не сохранён. Сохранить его?")
                                       : tr("Текст не сохранён и заполнен не полностью."),
                              choices);
    m_form->questionBar->focusChoice(complete ? choices.first().id : Stay); // Enter must not lose anything
}

void RecordCreatorDialog::answer(int answer)
{
    m_form->questionBar->hide();
    switch (answer) {
    case SaveText:
        save();
        break;
    case DropText:
        m_form->templateFiller->forgetValues();
        m_unsaved->forget();
        leave();
        break;
    case Stay:
        m_openAsked = false;
        focusText();
        break;
    case KeepMine:
        m_conflict = false;
        save();
        break;
    case TakeTheirs:
        takeTheirs();
        break;
    case SaveAsNew:
        saveAsNew();
        break;
    case DropRestored:
        dropRestored();
        break;
    case ReloadTables:
        m_form->failureBar->hide();
        loadTables();
        updateControls();
        break;
    }
}

void RecordCreatorDialog::leave()
{
    m_mode = Mode::Nothing;
    if (m_openAsked)
        open();
    else
        close();
}

void RecordCreatorDialog::showEvent(QShowEvent* event)
{
    restoreLayout();
    open();
    CPopTemplate::showEvent(event);
}

void RecordCreatorDialog::hideEvent(QHideEvent* event)
{
    keepUnsaved();
    m_mode = Mode::Nothing;
    saveLayout();
    if (m_orgStruct)
        m_orgStruct->close();
    CPopTemplate::hideEvent(event);
}

void RecordCreatorDialog::closeEvent(QCloseEvent* event)
{
    // If the user closes the window by its frame, he is asked; a close() of the program keeps the text for
    // the next time.
    if (event->spontaneous() && isDirty()) {
        event->ignore();
        askUnsaved();
        return;
    }
    CPopTemplate::closeEvent(event);
}

void RecordCreatorDialog::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !(event->modifiers() & ~Qt::KeypadModifier) && goOn())
        return;
    if (event->key() != Qt::Key_Escape || event->modifiers() != Qt::NoModifier)
        QWidget::keyPressEvent(event);
    else if (m_form->questionBar->isVisible())
        answer(Stay);
    else
        requestClose();
}

bool RecordCreatorDialog::eventFilter(QObject* watched, QEvent* event)
{
    // The wheel, turned over the window by accident, must not change the time of the event.
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F5) {
        m_form->nowButton->click();
        return true;
    }
    return CPopTemplate::eventFilter(watched, event);
}

void RecordCreatorDialog::restoreLayout()
{
    const QSettings settings;
    if (!m_form->splitter->restoreState(settings.value(QLatin1String(SplitterSetting)).toByteArray()))
        m_form->splitter->setSizes({width() / 3, width() - width() / 3});
}

void RecordCreatorDialog::saveLayout() const
{
    if (!m_form->templatesWidget->isVisibleTo(this))
        return; // without the tree the splitter has no state to save
    QSettings settings;
    settings.setValue(QLatin1String(SplitterSetting), m_form->splitter->saveState());
}
