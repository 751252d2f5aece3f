#include "ParamRules.h"

#include "Fields.h"
#include "HtmlParser.h"
#include "LogText.h"
#include "MDRValues.h"
#include "ParamText.h"
#include "RecordValue.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
/// The title of lists, also used for texts without a title.
QString listTitle()
{
    return ConversionReport::tr("Список значений");
}

bool isNull(const MDRVar& value)
{
    return value.type == mdr_TNone || value.isNull;
}

/// Sets fields with the user mark; an absent value is null.
void setText(CMDArray& table, MDRData* record, const char* field, const QByteArray& bytes)
{
    table.SetValF(record, field, bytes.isNull() ? MDRValue::null() : MDRValue::text(bytes));
}

/// The layout in a description of a date; empty if it cannot be read.
QString layoutOf(const QString& param)
{
    const QStringList pieces = param.split(QLatin1Char('='));
    return pieces.size() == 2 ? ParamText::toQtDateTimeLayout(pieces[1]) : QString();
}

/// Whether the store accepts the name as the key of a row: no quotes, no backslash, no control characters.
bool isPossibleKey(const QString& name)
{
    return std::none_of(name.begin(), name.end(), [](QChar sign) {
        return sign < QLatin1Char(' ') || QStringLiteral("'\"\\").contains(sign);
    });
}
} // namespace

ParamRules::ParamRules(ConverterTables* tables, ConversionReport* report) : m_tables(tables), m_report(report)
{
}

void ParamRules::processParameters()
{
    createParamCategory();
    const CMDArray& old = m_tables->oldParams;
    for (int i = 0; i < old.RecCount(); ++i) {
        convert(MDARec(old.array, 0, i));
        m_report->step();
    }
}

void ParamRules::convert(const MDRData* old)
{
    const QString param = m_tables->text(old, Field::param);
    const QString name = m_tables->text(old, Field::nameLat);
    const bool isDate = ParamText::contains(param, "DateTimeFormat");
    const bool isEnum = !isDate && ParamText::contains(param, "Enum");
    const bool isReference = !isDate && !isEnum && (!param.isEmpty() || Row(old).has(Field::TableKey));
    if (isReference) {
        note(old, ConversionReport::Reference);
    } else if (isDate && layoutOf(param).isEmpty()) {
        convertDateTime(old); // an error in any case
    } else if (name.isEmpty()) {
        const QString text =
            LogText::fill(ConversionReport::tr("Параметр без латинского имени пропущен: '%1'"),
                          {m_tables->text(old, Field::nameLoc)});
        m_report->add(ConversionReport::Warning, text);
        note(old, ConversionReport::Unnamed);
    } else if (!isPossibleKey(name)) {
        // One such row would make the store refuse all of them.
        const QString text = ConversionReport::tr("Параметр '%1' не преобразован: в его латинском имени "
                                                  "кавычка, обратная черта или управляющий знак");
        m_report->add(ConversionReport::Error, LogText::fill(text, {name}));
        m_report->failed << name;
        note(old, ConversionReport::BadName);
    } else if (isDate) {
        convertDateTime(old);
    } else if (isEnum) {
        convertEnum(old);
    } else if (name == QLatin1String("shift_interval") || name == QLatin1String("shift_workers") ||
               name == QLatin1String("shift_workers2")) {
        note(old, ConversionReport::Base);
    } else {
        convertText(old);
    }
}

void ParamRules::convertText(const MDRData* old)
{
    // Deliberate: a text without a title gets the title of lists, like enumerations.
    make(old, {{"name", "text"}}, titleOf(old, listTitle()), ConversionReport::Text);
}

void ParamRules::convertEnum(const MDRData* old)
{
    const std::vector<std::string> values = ParamText::enumValues(m_tables->text(old, Field::param));
    QStringList losses;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i].empty())
            losses << LogText::fill(ConversionReport::tr("значение %1 пусто"), {QString::number(i + 1)});
    make(old, {{"name", "list"}, {"list", HtmlParser::createListProperty(values)}}, titleOf(old, listTitle()),
         ConversionReport::List, losses);
}

void ParamRules::convertDateTime(const MDRData* old)
{
    const QString param = m_tables->text(old, Field::param);
    const QString layout = layoutOf(param);
    if (!layout.isEmpty()) {
        make(old, {{"name", "datetime"}, {"format", layout.toStdString()}},
             titleOf(old, ConversionReport::tr("Дата и время")), ConversionReport::DateTime);
        return;
    }
    const QString name = m_tables->text(old, Field::nameLat);
    const QStringList pieces = param.split(QLatin1Char('='));
    const auto tell = [this](const QString& format, const QString& value) {
        m_report->add(ConversionReport::Error, LogText::fill(format, {value}));
    };
    tell(ConversionReport::tr("Не удалось обработать параметр даты и времени %1"), name);
    tell(ConversionReport::tr("Поле param: %1"), param);
    if (pieces.size() == 2)
        tell(ConversionReport::tr("Формат даты и времени: %1"), pieces[1]);
    tell(QStringLiteral("-----"), QString());
    m_report->failed << name;
    note(old, ConversionReport::BadDate, {param});
}

void ParamRules::createParamCategory()
{
    const QByteArray key(convertedCategoryKey);
    if (m_tables->seek(m_tables->paramCategories, 0, QString::fromLatin1(key)))
        return;
    CMDArray& table = m_tables->paramCategories;
    MDRData* record = MDARecNew(table.array);
    MDRSetFlags(record, ROW_INSERT);
    setText(table, record, Field::KeyLink, key);
    setText(table, record, Field::ParentKey, QByteArray());
    setText(table, record, Field::nameLoc, m_tables->codec->fromUnicode(ConversionReport::tr("Параметры")));
    table.RecPost(record);
}

void ParamRules::createParameter(const QString& key, const QString& title, const std::string& html)
{
    CMDArray& table = m_tables->params;
    MDRData* record = m_tables->seek(m_tables->params, 0, key);
    if (!record) {
        record = MDARecNew(table.array);
        MDRSetFlags(record, ROW_INSERT);
    } else {
        const bool isNew = (record->flags & ROW_INSERT) != 0;
        record = MDARecEdit(record);
        MDRSetFlags(record, isNew ? ROW_INSERT : ROW_UPDATE);
    }
    const QTextCodec* codec = m_tables->codec;
    setText(table, record, Field::KeyLink, codec->fromUnicode(key));
    setText(table, record, Field::CategoryKey, convertedCategoryKey);
    setText(table, record, Field::nameLoc, codec->fromUnicode(title));
    setText(table, record, Field::html, codec->fromUnicode(QString::fromStdString(html)));
    table.RecPost(record);
    m_byBaseName.clear();
}

QString ParamRules::toHtmlParameter(QString name, bool strikeOut)
{
    name.remove(QLatin1Char('<')).remove(QLatin1Char('>'));
    const MDRData* record = m_tables->seek(m_tables->params, 0, name);
    if (!record)
        record = findBaseParam(name);
    QString html = m_tables->text(record, Field::html);
    if (!strikeOut)
        return html;
    const int opening = html.indexOf(QLatin1Char('>'));
    if (opening > 0)
        html.insert(opening + 1, QLatin1String("<span style=\" text-decoration: line-through;\">"));
    const int closing = html.indexOf(QLatin1String("</a>"));
    if (closing > 0)
        html.insert(closing, QLatin1String("</span>"));
    return html;
}

MDRData* ParamRules::findBaseParam(const QString& name)
{
    const MDRData* old = m_tables->seek(m_tables->oldParams, 1, name);
    const QString base = old ? baseName(old) : QString();
    if (base.isEmpty())
        return nullptr;
    if (m_byBaseName.isEmpty())
        indexBaseNames();
    return m_byBaseName.value(base);
}

void ParamRules::indexBaseNames()
{
    const CMDArray& rows = m_tables->params;
    for (int i = 0; i < rows.RecCount(); ++i) {
        MDRData* record = MDARec(rows.array, 0, i);
        const HtmlParser parser(m_tables->text(record, Field::html).toStdString());
        const QString name = QString::fromStdString(parser.propertyNameValue(0)).toLower();
        if (!m_byBaseName.contains(name)) // the first in the order of the keys represents all
            m_byBaseName.insert(name, record);
    }
}

QString ParamRules::baseName(const MDRData* old) const
{
    if (!isNull(Row(old).value(Field::param))) {
        const QString param = m_tables->text(old, Field::param);
        if (ParamText::contains(param, "Equipment"))
            return ParamText::equipmentParameter(param);
        if (ParamText::contains(param, "Organization"))
            return ParamText::organizationParameter(param);
        return {};
    }
    const QString name = m_tables->text(old, Field::nameLat);
    if (name == QLatin1String("shift_interval"))
        return QStringLiteral("interval");
    if (name == QLatin1String("shift_workers"))
        return QStringLiteral("shift_workers");
    if (name == QLatin1String("shift_workers2"))
        return QStringLiteral("shift_workers_groups");
    const bool isVoltage =
        ParamText::contains(m_tables->text(old, Field::FieldTypeKey), "FieldsTypeGUID_REF") &&
        ParamText::contains(m_tables->text(old, Field::TableKey), "Tbl_BaseVoltage");
    return isVoltage ? QStringLiteral("basevoltage") : QString();
}

bool ParamRules::isExistParameterDelphi(QString name) const
{
    name.remove(QLatin1Char('<')).remove(QLatin1Char('>'));
    return m_tables->seek(m_tables->oldParams, 1, name) != nullptr;
}

void ParamRules::make(const MDRData* old, Properties properties, const QString& title,
                      ConversionReport::Result result, const QStringList& losses)
{
    const QString name = m_tables->text(old, Field::nameLat);
    properties.emplace_back("locname", title.toStdString());
    properties.emplace_back("param_key", name.toStdString());
    createParameter(name, title, HtmlParser::createParameter(properties, title.toStdString()));
    note(old, result, losses);
}

QString ParamRules::titleOf(const MDRData* old, const QString& otherwise) const
{
    const QString title = m_tables->text(old, Field::nameLoc);
    return title.isEmpty() ? otherwise : title;
}

void ParamRules::note(const MDRData* old, ConversionReport::Result result, const QStringList& losses)
{
    m_report->params.append({m_tables->text(old, Field::nameLat), result, losses});
}
