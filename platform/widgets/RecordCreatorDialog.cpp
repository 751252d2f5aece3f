#include "RecordCreatorDialog.h"

#include "CLiteModel.h"
#include "CreatorTables.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DraftRow.h"
#include "KeptDraft.h"
#include "TemplateFiller.h"
#include "ui_RecordCreatorDialog.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QSettings>
#include <QShortcut>

namespace
{
const QSize UsualSize(1200, 650);
const char* const SplitterSetting = "recordCreator/splitter";
} // namespace

RecordCreatorDialog::RecordCreatorDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_form(new Ui::RecordCreatorDialog),
      m_tables(new CreatorTables),
      m_row(new DraftRow),
      m_unsaved(new KeptDraft(this, KeptTexts::of(this), [this] { return unsaved(); }))
{
    m_form->setupUi(this);
    m_form->splitter->setStretchFactor(1, 1);
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
    for (int number = 1; number <= 9; ++number) {
        auto* shortcut = new QShortcut(Qt::ALT | Qt::Key(Qt::Key_0 + number), this);
        connect(shortcut, &QShortcut::activated, this, [this, number] { choosePinned(number); });
    }
    connect(m_form->saveButton, &QPushButton::clicked, this, &RecordCreatorDialog::save);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &RecordCreatorDialog::requestClose);
    connect(m_form->templatesWidget, &TemplatesWidget::selectionChanged, this,
            &RecordCreatorDialog::chooseTemplate);
    connect(m_form->templatesWidget, &TemplatesWidget::templateActivated, this,
            &RecordCreatorDialog::focusText);
    connect(m_form->recordFields, &RecordFields::changed, this, &RecordCreatorDialog::updateControls);
    connect(m_form->recordFields, &RecordFields::changed, m_unsaved, &KeptDraft::touch);
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
    if (!isVisible() || focusWidget())
        return;
    const bool fillable = m_mode == Mode::Create || m_mode == Mode::Edit;
    if (!(fillable && m_form->recordFields->focusMissing()) && field)
        field->setFocus();
}

void RecordCreatorDialog::init(CVrkCliMod* module)
{
    m_module = module;
    m_form->templatesWidget->setTextCodec(module->session()->codec());
    m_form->recordFields->init(module, m_tables.get());
}

void RecordCreatorDialog::setRecordsTable(CModelTable* table)
{
    m_records = table;
}

void RecordCreatorDialog::setWorkerKey(const QString& key)
{
    if (key == m_row->author.workerKey)
        return;
    m_row->author.workerKey = key;
    m_form->templatesWidget->setUserKey(key);
    updateControls();
}

void RecordCreatorDialog::setDepartmentKey(const QString& key)
{
    m_row->author.departmentKey = key;
    m_form->templatesWidget->setRootDepKeyLink(key);
    m_unsaved->setPlace(QStringLiteral("record/") + key);
    m_form->recordFields->filler()->setKept(QStringLiteral("values/record/") + key, QString(),
                                            TemplateFiller::OthersOnly);
}

void RecordCreatorDialog::setOrgTypeKey(const QString& key)
{
    m_form->templatesWidget->setRootOrgKeyLink(key);
}

void RecordCreatorDialog::setWorkshiftKey(const QString& key)
{
    m_row->author.workshiftKey = key;
    updateControls();
}

void RecordCreatorDialog::updateControls()
{
    const bool creating = m_mode == Mode::Create;
    const bool writable = creating || m_mode == Mode::Edit || m_mode == Mode::Orphaned;
    m_form->templatesWidget->setVisible(creating);
    m_form->keepOpenCheck->setVisible(creating);
    m_form->recordFields->setWritable(writable);
    m_form->saveButton->setVisible(m_mode != Mode::Read);
    m_form->cancelButton->setText(m_mode == Mode::Read ? tr("Закрыть") : tr("Отмена"));

    const QString reason = holdReason();
    m_form->saveButton->setEnabled(reason.isEmpty());
    m_form->saveButton->setToolTip(reason.isEmpty() ? tr("Ctrl+Enter") : reason);
    m_form->holdLabel->setText(reason);
    m_form->holdLabel->setVisible(m_mode != Mode::Read && !reason.isEmpty());
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
        if (m_row->author.workerKey.isEmpty())
            return tr("Не известен автор записи");
        if (m_row->author.workshiftKey.isEmpty())
            return tr("Нет открытой смены");
        break;
    case Mode::Edit:
        break;
    }
    return m_form->recordFields->missing();
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
        m_form->recordFields->filler()->forgetValues();
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
    m_form->recordFields->closeTree();
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
    if (isEnter && !(event->modifiers() & ~Qt::KeypadModifier) && m_form->recordFields->focusNext())
        return;
    if (event->key() != Qt::Key_Escape)
        CPopTemplate::keyPressEvent(event);
    else if (event->modifiers() != Qt::NoModifier)
        event->ignore();
    else if (m_form->questionBar->isVisible())
        answer(Stay);
    else
        requestClose();
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
