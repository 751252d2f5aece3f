#include "TemplateRules.h"

#include "Fields.h"
#include "GenGuid32.h"
#include "HtmlParser.h"
#include "LogText.h"
#include "MDRValues.h"
#include "ParamRules.h"
#include "RecordValue.h"
#include "TemplateMarks.h"

#include <QTextCodec>

namespace
{
bool isNull(const MDRData* record, const char* field)
{
    const MDRVar value = Row(record).value(field);
    return value.type == mdr_TNone || value.isNull;
}

QByteArray key(const MDRData* record, const char* field)
{
    return MDRValue::copy(Row(record).value(field));
}

/// Sets a field with the user mark; empty bytes are null.
void setKey(CMDArray& table, MDRData* record, const char* field, const QByteArray& bytes)
{
    table.SetValF(record, field, bytes.isEmpty() ? MDRValue::null() : MDRValue::text(bytes));
}
} // namespace

TemplateRules::TemplateRules(ConverterTables* tables, ParamRules* params, ConversionReport* report)
    : m_tables(tables),
      m_params(params),
      m_report(report),
      m_children(grouped(tables->oldCategories, Field::ParentKey)),
      m_templates(grouped(tables->oldTemplates, Field::CategoryKey))
{
}

QHash<QByteArray, TemplateRules::Rows> TemplateRules::grouped(const CMDArray& table, const char* field)
{
    QHash<QByteArray, Rows> groups;
    for (int i = 0; i < table.RecCount(); ++i) {
        const MDRData* row = MDARec(table.array, 0, i);
        const QByteArray text = key(row, field);
        if (!text.isEmpty())
            groups[text].append(row);
    }
    return groups;
}

void TemplateRules::processPublicTempaltes()
{
    const CMDArray& old = m_tables->oldCategories;
    for (int i = 0; i < old.RecCount(); ++i) {
        const MDRData* row = MDARec(old.array, 0, i);
        if (isNull(row, Field::ParentKey) && isNull(row, Field::OrgTypeKey) &&
            isNull(row, Field::DepartmentKey))
            takeCategory(row, {}, {}, {});
    }
}

void TemplateRules::processOrgTypesTempaltes()
{
    const CMDArray& old = m_tables->oldCategories;
    for (int i = 0; i < old.RecCount(); ++i) {
        const MDRData* row = MDARec(old.array, 0, i);
        const QByteArray type = key(row, Field::OrgTypeKey);
        if (isNull(row, Field::ParentKey) && isNull(row, Field::DepartmentKey) && !type.isEmpty())
            takeCategory(row, {}, type, {});
    }
}

void TemplateRules::processDepartmentsTempaltes()
{
    const CMDArray& old = m_tables->oldCategories;
    for (int i = 0; i < old.RecCount(); ++i) {
        const MDRData* row = MDARec(old.array, 0, i);
        const QByteArray department = key(row, Field::DepartmentKey);
        if (isNull(row, Field::ParentKey) && !department.isEmpty())
            takeCategory(row, {}, {}, department);
    }
}

void TemplateRules::processChildCats(const MDRData* oldCategory, const MDRData* newCategory)
{
    const QByteArray parent = key(newCategory, Field::KeyLink);
    for (const MDRData* child : m_children.value(key(oldCategory, Field::KeyLink)))
        takeCategory(child, parent, {}, {});
}

void TemplateRules::takeCategory(const MDRData* old, const QByteArray& parent, const QByteArray& orgType,
                                 const QByteArray& department)
{
    CMDArray& table = m_tables->categories;
    MDRData* record = MDARecNew(table.array);
    MDRSetFlags(record, ROW_INSERT);
    setKey(table, record, Field::KeyLink, GenGuid32());
    setKey(table, record, Field::ParentKey, parent);
    setKey(table, record, Field::OrgTypeKey, orgType);
    setKey(table, record, Field::DepartmentKey, department);
    setKey(table, record, Field::nameLoc, key(old, Field::name_));
    record = table.RecPost(record);
    processTemplates(old, record);
    processChildCats(old, record);
}

void TemplateRules::processTemplates(const MDRData* oldCategory, const MDRData* newCategory)
{
    const QByteArray category = key(newCategory, Field::KeyLink);
    for (const MDRData* row : m_templates.value(key(oldCategory, Field::KeyLink))) {
        if (Row(row).has(Field::text_))
            convert(row, category);
    }
}

void TemplateRules::convert(const MDRData* old, const QByteArray& category)
{
    m_seen.insert(old);
    const QString name = m_tables->text(old, Field::name_);
    QStringList losses;
    QString text = m_tables->text(old, Field::text_);
    if (text.contains(QLatin1Char('+')))
        losses << ConversionReport::tr("удалены знаки \"+\"");
    text.remove(QLatin1Char('+'));
    if (!replaceParameters(&text, name, &losses)) {
        stepDone();
        return;
    }
    HtmlParser parser(TemplateMarks::normalized(text).toStdString());
    constexpr std::pair<const char*, const char*> flags[] = {{Field::canStartShift, "open_wshift"},
                                                             {Field::canEndShift, "close_wshift"},
                                                             {Field::isNecessaryFinishTime, "time_exec"}};
    for (const auto& [field, property] : flags)
        if (isSet(Row(old).value(field)))
            parser.setTemplateProperty(property, true);
    setMarker(&parser, old, Field::icon, "first_mark",
              ConversionReport::tr("Не найдена иконка 1-го маркера: %1"), &losses);
    setMarker(&parser, old, Field::completingIcon, "second_mark",
              ConversionReport::tr("Не найдена иконка 2-го маркера: %1"), &losses);
    setCommand(&parser, old, &losses);

    CMDArray& table = m_tables->templates;
    MDRData* record = MDARecNew(table.array);
    MDRSetFlags(record, ROW_INSERT);
    setKey(table, record, Field::KeyLink, GenGuid32());
    setKey(table, record, Field::CategoryKey, category);
    setKey(table, record, Field::nameLoc, key(old, Field::name_));
    setKey(table, record, Field::html,
           m_tables->codec->fromUnicode(QString::fromStdString(parser.readyHtml(true))));
    table.RecPost(record);
    m_report->templates.append({name, ConversionReport::Template, losses});
    ++m_count;
    stepDone();
}

bool TemplateRules::replaceParameters(QString* text, const QString& name, QStringList* losses)
{
    QMap<QString, bool> written;
    if (!TemplateMarks::parameters(*text, &written)) {
        const QString fault =
            LogText::fill(ConversionReport::tr("Шаблон '%1': за знаком \"<\" нет знака \">\""), {name});
        m_report->add(ConversionReport::Error, fault);
        m_report->failed << fault;
        m_report->templates.append({name, ConversionReport::OpenBracket, {}});
        return false;
    }
    for (auto it = written.constBegin(); it != written.constEnd(); ++it) {
        const QString html = m_params->toHtmlParameter(it.key(), it.value());
        if (html.isEmpty()) {
            const bool isKnown = m_params->isExistParameterDelphi(it.key());
            (isKnown ? m_report->failed : m_report->missing) << it.key();
            *losses << LogText::fill(isKnown ? ConversionReport::tr("параметр %1 не преобразован")
                                             : ConversionReport::tr("параметр %1 не существует"),
                                     {it.key()});
        }
        text->replace(it.key(), html);
    }
    return true;
}

void TemplateRules::setMarker(HtmlParser* parser, const MDRData* old, const char* field, const char* property,
                              const QString& unknown, QStringList* losses)
{
    const QString name = m_tables->text(old, field);
    if (name.isEmpty())
        return;
    const QString path = TemplateMarks::toResourcesIcon(name);
    if (!path.isEmpty()) {
        parser->setTemplateProperty(property, path.toStdString());
        return;
    }
    const QString text = LogText::fill(unknown, {name});
    m_report->add(ConversionReport::Warning, text);
    *losses << text;
}

void TemplateRules::setCommand(HtmlParser* parser, const MDRData* old, QStringList* losses)
{
    const QString before = m_tables->text(old, Field::completingCommand);
    if (before.isEmpty())
        return;
    QString command = before;
    for (const QString& piece :
         QString::fromStdString(HtmlParser::invalidChars(true)).split(QLatin1Char(' ')))
        command.remove(piece);
    parser->setTemplateProperty("command", command.toStdString());
    if (command == before)
        return;
    m_report->add(
        ConversionReport::Warning,
        LogText::fill(ConversionReport::tr("Для шаблона '%1' изменена команда второго маркера:\n"
                                           "Команда содержала недопустимые символы, которые были удалены.\n"
                                           "Команда (до изменения): %2.\n"
                                           "Команда (после изменении): %3."),
                      {m_tables->text(old, Field::name_), before, command}));
    *losses << LogText::fill(ConversionReport::tr("команда второго маркера изменена: %1"), {before});
}

void TemplateRules::stepDone()
{
    const int rows = m_tables->oldTemplates.data.RecCount();
    const auto percent = static_cast<int>(qint64(100) * m_count / rows);
    m_report->step(
        LogText::fill(ConversionReport::tr("Обработано %1 из %2 шаблонов.\n%3%"),
                      {QString::number(m_count), QString::number(rows), QString::number(percent)}));
}

void TemplateRules::noteLeftOut()
{
    const CMDArray& old = m_tables->oldTemplates;
    for (int i = 0; i < old.RecCount(); ++i) {
        const MDRData* row = MDARec(old.array, 0, i);
        if (!m_seen.contains(row))
            m_report->templates.append({m_tables->text(row, Field::name_), ConversionReport::LeftOut, {}});
    }
}
