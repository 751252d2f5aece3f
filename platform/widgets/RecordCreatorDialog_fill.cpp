#include "RecordCreatorDialog.h"

#include "CLiteModel.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnWrapper.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "ParameterKind.h"
#include "ui_RecordCreatorDialog.h"

#include <QTextCodec>

namespace
{
const char* const UsualTimeFormat = "dd.MM.yyyy hh:mm";

bool isEmpty(const HtmlParser& parser, unsigned index)
{
    const QString shown = QString::fromStdString(parser.valueText(index)).trimmed();
    return parser.propertyData(index).empty() &&
           (shown.isEmpty() || shown == ParameterSpec::read(parser, index).label.trimmed());
}
} // namespace

void RecordCreatorDialog::prefill()
{
    const QTextCodec* codec = m_module->session()->codec();
    const QString organization =
        m_module->app()->m_user_params.getValue(QStringLiteral("ORGANIZATIONKEY"), QString());
    prefillTime();
    prefillParameter(QStringLiteral("employee_fio"),
                     HfnWrapper::workerFullName(codec, table("Workers"), m_workerKey), m_workerKey);
    prefillParameter(QStringLiteral("department"),
                     HfnWrapper::nameOf(codec, table("Departments"), m_departmentKey), m_departmentKey);
    prefillParameter(QStringLiteral("organization"),
                     HfnWrapper::nameOf(codec, table("Organizations"), organization), organization);
}

void RecordCreatorDialog::prefillParameter(const QString& name, const QString& text, const QString& key)
{
    const QVector<unsigned int> found = m_form->templateFiller->findParameter(name);
    if (found.isEmpty() || text.isEmpty())
        return;
    const HtmlParser parser(m_form->templateFiller->filledTemplate(false).toStdString());
    if (isEmpty(parser, found.first()))
        m_form->templateFiller->setParameterValue(found.first(), text, key);
}

void RecordCreatorDialog::prefillTime()
{
    m_autoTime = QString();
    const QVector<unsigned int> found = m_form->templateFiller->findParameter(QStringLiteral("datetime"));
    if (found.isEmpty())
        return;
    const HtmlParser parser(m_form->templateFiller->filledTemplate(false).toStdString());
    // A deadline is a decision: with the current time filled in, nobody would notice that it is missing.
    if (!isEmpty(parser, found.first()) ||
        ParameterSpec::read(parser, found.first()).label.startsWith(tr("Срок"), Qt::CaseInsensitive))
        return;
    writeAutoTime(parser, found.first());
}

void RecordCreatorDialog::writeAutoTime(const HtmlParser& parser, unsigned index)
{
    QString format = ParameterSpec::read(parser, index).format;
    if (format.isEmpty())
        format = QLatin1String(UsualTimeFormat);
    m_autoTime = m_form->eventTimeEdit->dateTime().toString(format);
    m_form->templateFiller->setParameterValue(index, m_autoTime, QString());
}

void RecordCreatorDialog::eventTimeEdited()
{
    if (m_filling)
        return;
    const QVector<unsigned int> found = m_form->templateFiller->findParameter(QStringLiteral("datetime"));
    if (!m_autoTime.isEmpty() && !found.isEmpty()) {
        const HtmlParser parser(m_form->templateFiller->filledTemplate(false).toStdString());
        // Follows the time of the event until the user sets it himself.
        if (QString::fromStdString(parser.valueText(found.first())) == m_autoTime) {
            const bool clean = !isDirty();
            writeAutoTime(parser, found.first());
            if (clean)
                m_cleanText = m_form->templateFiller->filledTemplate(true);
        }
    }
    updateControls();
}
