#include "RecordFields.h"

#include "CreatorTables.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnWrapper.h"
#include "HtmlParser.h"
#include "MarkerIcon.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordPrefill.h"
#include "ui_RecordFields.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace
{
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

RecordFields::RecordFields(QWidget* parent) : QWidget(parent), m_form(new Ui::RecordFields)
{
    m_form->setupUi(this);
    m_form->directionGroup->setId(m_form->noDirectionButton, DirectionNone);
    m_form->directionGroup->setId(m_form->fromButton, DirectionLeft);
    m_form->directionGroup->setId(m_form->toButton, DirectionRight);
    m_form->templateFiller->setOrientation(Qt::Vertical);
    m_form->eventTimeEdit->installEventFilter(this);
    m_prefill = std::make_unique<RecordPrefill>(m_form->templateFiller);

    connect(m_form->templateFiller, &TemplateFiller::templateChanged, this, &RecordFields::changed);
    connect(m_form->counterpartEdit, &WorkerEdit::changed, this, &RecordFields::changed);
    connect(m_form->counterpartEdit, &WorkerEdit::treeRequested, this, &RecordFields::chooseCounterpart);
    connect(m_form->eventTimeEdit, &QDateTimeEdit::dateTimeChanged, this, &RecordFields::changeTime);
    connect(m_form->nowButton, &QToolButton::clicked, this,
            [this] { m_form->eventTimeEdit->setDateTime(m_module->session()->HfnTimeToSesTime()); });
    for (QAbstractButton* direction : m_form->directionGroup->buttons())
        connect(direction, &QAbstractButton::clicked, this, &RecordFields::changed);
}

RecordFields::~RecordFields() = default;

void RecordFields::init(CVrkCliMod* module, const CreatorTables* tables)
{
    m_module = module;
    m_tables = tables;
    m_form->templateFiller->setModule(module);
    m_form->counterpartEdit->setModule(module);
}

TemplateFiller* RecordFields::filler() const
{
    return m_form->templateFiller;
}

void RecordFields::setDraft(const RecordDraft& draft)
{
    QScopedValueRollback<bool> filling(m_isFilling, true);
    m_form->templateFiller->setTemplate(draft.html);
    m_shownHtml = draft.html;
    m_cleanText = text();
    m_isTouched = false;
    m_prefill->clear();
    showMarker();
    setValues(draft);
}

void RecordFields::restoreDraft(const RecordDraft& draft)
{
    const QString shownHtml = m_shownHtml;
    const QString cleanText = m_cleanText;
    setDraft(draft);
    m_shownHtml = shownHtml;
    m_cleanText = cleanText;
}

void RecordFields::setValues(const RecordDraft& draft)
{
    QScopedValueRollback<bool> filling(m_isFilling, true);
    m_form->eventTimeEdit->setDateTime(HfnTime_to_DateTime(draft.eventTime, -1));
    showCounterpart(QString::fromUtf8(draft.receiverKey));
    if (QAbstractButton* button = m_form->directionGroup->button(draft.direction))
        button->setChecked(true);
}

void RecordFields::startText(const QString& html, const DraftRow::Author& author)
{
    const QTextCodec* codec = m_module->session()->codec();
    const QString organization =
        m_module->app()->m_user_params.getValue(QStringLiteral("ORGANIZATIONKEY"), QString());
    m_form->templateFiller->setTemplate(html);
    m_isTouched = m_form->templateFiller->filledTemplate(false) != html;
    m_prefill->fillTime(m_form->eventTimeEdit->dateTime());
    m_prefill->fill(QStringLiteral("employee_fio"),
                    HfnWrapper::workerFullName(codec, m_tables->table("Workers"), author.workerKey),
                    author.workerKey);
    m_prefill->fill(QStringLiteral("department"),
                    HfnWrapper::nameOf(codec, m_tables->table("Departments"), author.departmentKey),
                    author.departmentKey);
    m_prefill->fill(QStringLiteral("organization"),
                    HfnWrapper::nameOf(codec, m_tables->table("Organizations"), organization), organization);
    m_cleanText = text();
    m_shownHtml = m_cleanText;
    showMarker();
}

RecordDraft RecordFields::draft(const RecordDraft& before) const
{
    RecordDraft draft = before;
    draft.html = isTextTouched() ? text() : m_shownHtml;
    draft.eventTime = DateTime_To_HfnTime(m_form->eventTimeEdit->dateTime());
    draft.direction = m_form->directionGroup->checkedId();
    draft.receiverKey = m_form->counterpartEdit->workerKey();
    if (RecordDraft::firstMarker(draft.html).isEmpty())
        return draft;
    if (before.firstMark == 0.0 || before.firstMark == before.eventTime)
        draft.firstMark = draft.eventTime;
    return draft;
}

bool RecordFields::isTextTouched() const
{
    return m_isTouched || text() != m_cleanText;
}

QString RecordFields::text() const
{
    return m_form->templateFiller->filledTemplate(true);
}

void RecordFields::setWritable(bool writable)
{
    const QVector<QWidget*> fields = {m_form->templateFiller,    m_form->eventTimeEdit, m_form->nowButton,
                                      m_form->noDirectionButton, m_form->fromButton,    m_form->toButton,
                                      m_form->counterpartEdit};
    for (QWidget* field : fields) {
        if (field->isEnabled() == writable)
            continue;
        field->setEnabled(writable);
        if (!qobject_cast<QAbstractButton*>(field))
            setReadable(field, !writable);
    }
}

QString RecordFields::missing() const
{
    if (text().isEmpty())
        return tr("Выберите шаблон");
    if (!m_form->templateFiller->isFilled())
        return m_form->templateFiller->missing();
    if (!m_form->counterpartEdit->isResolved())
        return tr("Выберите собеседника из списка");
    return QString();
}

bool RecordFields::focusMissing()
{
    if (m_form->templateFiller->focusMissing())
        return true;
    if (!m_form->counterpartEdit->isResolved()) {
        m_form->counterpartEdit->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

void RecordFields::focusText()
{
    if (HtmlParser(text().toStdString()).countParameters() > 0)
        m_form->templateFiller->setFocus();
    else
        m_form->eventTimeEdit->setFocus();
}

bool RecordFields::focusNext()
{
    if (m_form->eventTimeEdit->hasFocus())
        m_form->counterpartEdit->setFocus(Qt::TabFocusReason);
    else if (m_form->counterpartEdit->isAncestorOf(window()->focusWidget()))
        focusText();
    else
        return false;
    return true;
}

void RecordFields::MessageData(TEventNciParse* event)
{
    m_form->templateFiller->MessageData(event);
    if (m_orgStruct)
        m_orgStruct->widget()->MessageData(event);
}

void RecordFields::closeTree()
{
    if (m_orgStruct)
        m_orgStruct->close();
}

bool RecordFields::eventFilter(QObject* watched, QEvent* event)
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
    return QWidget::eventFilter(watched, event);
}

void RecordFields::changeTime()
{
    if (!m_isFilling) {
        const bool clean = !isTextTouched();
        m_prefill->followTime(m_form->eventTimeEdit->dateTime());
        if (clean && isTextTouched())
            m_shownHtml = m_cleanText = text();
    }
    emit changed();
}

void RecordFields::chooseCounterpart()
{
    if (!m_orgStruct) {
        m_orgStruct = new OrgStructDialog(window(), -1);
        m_orgStruct->widget()->init(m_module);
        m_orgStruct->widget()->setSelectionType(OrgStruct::Person);
        connect(m_orgStruct, &OrgStructDialog::itemSelected, this,
                [this](const OrgStruct::SelectedItem& item) { showCounterpart(item.worker.keyLink); });
    }
    OrgStruct::Worker chosen;
    chosen.keyLink = QString::fromUtf8(m_form->counterpartEdit->workerKey());
    m_orgStruct->widget()->setCurrectItem(chosen);
    m_orgStruct->show();
}

void RecordFields::showCounterpart(const QString& key)
{
    m_form->counterpartEdit->setWorker(
        key.toUtf8(),
        HfnWrapper::workerFullName(m_module->session()->codec(), m_tables->table("Workers"), key));
}

void RecordFields::showMarker()
{
    const QString marker = RecordDraft::firstMarker(text());
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_form->markerIconLabel->setPixmap(MarkerIcon::at(marker).pixmap(size, size));
    m_form->markerIconLabel->setVisible(MarkerIcon::isPath(marker));
    m_form->markerLabel->setVisible(MarkerIcon::isPath(marker));
}
