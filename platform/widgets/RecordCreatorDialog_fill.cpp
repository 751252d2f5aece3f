#include "RecordCreatorDialog.h"

#include "CLiteModel.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnWrapper.h"
#include "HtmlParser.h"
#include "MDRValues.h"
#include "RecordCreatorKept.h"
#include "ui_RecordCreatorDialog.h"

#include <QTextCodec>

namespace
{
const char* const UsualTimeFormat = "dd.MM.yyyy hh:mm";
constexpr int NamedMissing = 4; // more would not be read

QString textOf(const HtmlParser& parser, unsigned index, const char* name)
{
    return QString::fromStdString(parser.propertyValue(index, name));
}

bool isEmpty(const HtmlParser& parser, unsigned index)
{
    const QString shown = QString::fromStdString(parser.displayText(index)).trimmed();
    return parser.propertyData(index).empty() &&
           (shown.isEmpty() || shown == textOf(parser, index, "locname").trimmed());
}

/// The name of the row with this key, in a table whose key 0 is KeyLink.
QString nameOf(CModelTable* table, const QString& key, const QTextCodec* codec)
{
    if (!table || key.isEmpty())
        return QString();
    const QByteArray bytes = key.toUtf8();
    const MDRVar wanted = MDRValue::text(bytes);
    MDRVar name;
    if (const MDRData* record = MDARecSeekV(table->data.array, 0, &wanted, 0))
        table->data.GetVal(record, "name_", name);
    return codec->toUnicode(MDRValue::bytes(name));
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
    prefillParameter(QStringLiteral("department"), nameOf(table("Departments"), m_departmentKey, codec),
                     m_departmentKey);
    prefillParameter(QStringLiteral("organization"), nameOf(table("Organizations"), organization, codec),
                     organization);
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
    // A term is set by a decision: the present moment standing there would be overlooked.
    if (!isEmpty(parser, found.first()) ||
        textOf(parser, found.first(), "locname").startsWith(tr("Срок"), Qt::CaseInsensitive))
        return;
    writeAutoTime(parser, found.first());
}

void RecordCreatorDialog::writeAutoTime(const HtmlParser& parser, unsigned index)
{
    QString format = textOf(parser, index, "format");
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
        // Follows the time of the event as long as the user has not set it himself.
        if (QString::fromStdString(parser.displayText(found.first())) == m_autoTime) {
            const bool clean = !isDirty();
            writeAutoTime(parser, found.first());
            if (clean)
                m_cleanText = m_form->templateFiller->filledTemplate(true);
        }
    }
    updateControls();
}

QStringList RecordCreatorDialog::missingParameters() const
{
    const HtmlParser parser(m_form->templateFiller->filledTemplate(false).toStdString());
    QStringList missing;
    int count = 0;
    for (unsigned index = 0; index < parser.countParameters(); ++index) {
        if (parser.isExistProperty(index, "optional") || !isEmpty(parser, index))
            continue;
        if (++count <= NamedMissing)
            missing.append(textOf(parser, index, "locname"));
    }
    if (count > NamedMissing)
        missing.append(tr("и ещё %1").arg(count - NamedMissing));
    return missing;
}
