#include "SchemaScript.h"

#include "TableCatalog.h"

#include <algorithm>
#include <QFile>
#include <QRegularExpression>

// At global scope, as the macro requires.
static void registerSchema()
{
    Q_INIT_RESOURCE(store_schema);
}

namespace
{
/// Replaces what the notation matches, one after the other, by what \a expand returns for it.
template <typename Expand>
QString expanded(QString script, const QRegularExpression& notation, const Expand& expand)
{
    for (QRegularExpressionMatch match = notation.match(script); match.hasMatch();
         match = notation.match(script))
        script.replace(match.capturedStart(), match.capturedLength(), expand(match));
    return script;
}

/// The rules of tables that only the loader writes, and the administrator if \a isAdministrators.
QString closedTable(const CatalogTable& table, const char* text, bool isAdministrators)
{
    const QString name = QString::fromLatin1(table.name);
    QString rules;
    for (const char* operation : {"INSERT", "UPDATE", "DELETE"})
        rules +=
            QStringLiteral("RULE Rule_%1_%2 BEFORE %3 ON %1\n%4    REFUSE '%5';\nEND;\n")
                .arg(name, QString::fromLatin1(operation).toLower(), QString::fromLatin1(operation),
                     isAdministrators ? QStringLiteral("WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE "
                                                       "rightName = 'ADMINISTRATOR')\n")
                                      : QString(),
                     QString::fromUtf8(text));
    return rules;
}

/// Expands {name} to the fields that "FIELDS name OF table BUT free, fields;" leaves, and removes these
/// statements.
QString withFields(QString script)
{
    static const QRegularExpression statement(QStringLiteral("^FIELDS (\\w+) OF (\\w+) BUT([\\w,\\s]*);\\n"),
                                              QRegularExpression::MultilineOption);
    static const QRegularExpression comma(QStringLiteral("[,\\s]+"));
    for (QRegularExpressionMatch match = statement.match(script); match.hasMatch();
         match = statement.match(script)) {
        const CatalogTable* table = TableCatalog::table(match.captured(2).toLatin1());
        Q_ASSERT(table);
        QStringList fields;
        for (const CatalogField& field : table->fields)
            fields.append(QString::fromLatin1(field.name));
        for (const QString& free : (QStringLiteral("KeyLink,") + match.captured(3)).split(comma))
            fields.removeOne(free);
        script.remove(match.capturedStart(), match.capturedLength());
        script.replace(QLatin1Char('{') + match.captured(1) + QLatin1Char('}'),
                       fields.join(QLatin1String(", ")));
    }
    return script;
}

/// Which changes of a table are signatures, by signatures.sql; empty if none is.
QString meaningOf(const CatalogTable& table)
{
    const QRegularExpression statement(
        QStringLiteral("^MEANING %1\\s+([^;]*);").arg(QString::fromLatin1(table.name)),
        QRegularExpression::MultilineOption);
    const QString meaning =
        statement.match(QString::fromUtf8(SchemaScript::file("signatures.sql"))).captured(1);
    return meaning.isEmpty() ? QString() : QLatin1Char('(') + meaning + QLatin1Char(')');
}

/// Expands EACH(row, a, b), with line breaks: administrators read the rules in the database.
QString withRows(QString script)
{
    constexpr int longestLine = 120;
    static const QRegularExpression each(QStringLiteral("EACH\\((\\w+), ([\\w,\\s]+)\\)"));
    for (QRegularExpressionMatch match = each.match(script); match.hasMatch(); match = each.match(script)) {
        const int indent =
            match.capturedStart() - script.lastIndexOf(QLatin1Char('\n'), match.capturedStart());
        QString row(QLatin1Char('('));
        int length = indent;
        for (const QString& field : match.captured(2).split(QLatin1String(", "))) {
            const QString value = match.captured(1) + QLatin1Char('.') + field + QLatin1Char(',');
            const bool isLong = length + value.size() > longestLine;
            if (isLong)
                row.chop(1);
            row += (isLong ? QLatin1Char('\n') + QString(indent, QLatin1Char(' ')) : QString()) + value +
                   QLatin1Char(' ');
            length = (isLong ? indent : length) + value.size() + 1;
        }
        row.chop(2);
        script.replace(match.capturedStart(), match.capturedLength(), row + QLatin1Char(')'));
    }
    return script;
}

/// Expands CHANGED(a, b).
QString withChanges(const QString& script)
{
    static const QRegularExpression changed(QStringLiteral("CHANGED\\(([\\w,\\s]+)\\)"));
    return expanded(script, changed, [](const QRegularExpressionMatch& match) {
        QStringList fields;
        for (const QString& field : match.captured(1).split(QLatin1Char(',')))
            fields.append(QStringLiteral("NEW.%1 IS DISTINCT FROM OLD.%1").arg(field.trimmed()));
        return QString(QLatin1Char('(') + fields.join(QLatin1String(" OR ")) + QLatin1Char(')'));
    });
}

/// Expands LOGGED(row, Table.field) for an engine.
QString withLogged(const QString& script, const QByteArray& words)
{
    static const QRegularExpression logged(QStringLiteral("LOGGED\\(([\\w.]+), (\\w+)\\.(\\w+)\\)"));
    return expanded(script, logged, [&words](const QRegularExpressionMatch& match) {
        const CatalogTable* table = TableCatalog::table(match.captured(2).toLatin1());
        const int place = table ? table->fieldIndex(match.captured(3).toLatin1()) : -1;
        Q_ASSERT(place >= 0);
        return QString::fromUtf8(words)
            .replace(QLatin1String("%values"), match.captured(1))
            .replace(QLatin1String("%place"), QString::number(place));
    });
}

/// rules.sql and the rules of tables that persons may not write at all, in their own notation.
QString rules()
{
    QString script = QString::fromUtf8(SchemaScript::file("rules.sql"));
    for (const CatalogTable& table : TableCatalog::tables()) {
        if (table.name.startsWith("TemplateParam"))
            script += closedTable(table, "Нет права изменять параметры шаблонов.", true);
        else if (!table.name.startsWith("Logbook"))
            script += closedTable(table, "Справочники изменяются только средствами администратора.", false);
    }
    return script;
}

/// A script with the notation of rules as statements of an engine.
QByteArray translated(QString script, const SchemaScript::Dialect& dialect)
{
    script = withLogged(withChanges(withRows(withFields(script))), dialect.logged);

    static const QRegularExpression rule(
        QStringLiteral("^RULE (?<name>\\w+) BEFORE (?<operation>[^\\n]+) ON (?<table>\\w+)\\n"
                       "(?:WHEN (?<condition>[^\\n]+)\\n)?(?<body>[^;]*;.*?)^END;$"),
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression refusal(QStringLiteral("REFUSE ('[^']*')"));
    const QString refuse =
        QString::fromUtf8(dialect.refuse).replace(QLatin1String("%text"), QLatin1String("\\1"));
    QString made;
    int end = 0;
    for (QRegularExpressionMatchIterator all = rule.globalMatch(script); all.hasNext();) {
        const QRegularExpressionMatch one = all.next();
        const QString condition = one.captured(QStringLiteral("condition"));
        const QString operation = one.captured(QStringLiteral("operation"));
        const auto filled = [&](const QByteArray& part) {
            return QString::fromUtf8(part)
                .replace(QLatin1String("%name"), one.captured(QStringLiteral("name")))
                .replace(QLatin1String("%operation"), operation)
                .replace(QLatin1String("%table"), one.captured(QStringLiteral("table")))
                .replace(QLatin1String("%condition"),
                         condition.isEmpty() ? QString() : QStringLiteral(" AND (%1)").arg(condition))
                .replace(QLatin1String("%row"), operation == QLatin1String("DELETE") ? QStringLiteral("OLD")
                                                                                     : QStringLiteral("NEW"));
        };
        made += script.mid(end, one.capturedStart() - end);
        made += filled(dialect.head) + one.captured(QStringLiteral("body")).replace(refusal, refuse) +
                filled(dialect.tail);
        end = one.capturedEnd();
    }
    return (made + script.mid(end)).toUtf8();
}
} // namespace

QByteArray SchemaScript::file(const QByteArray& name)
{
    registerSchema();
    QFile file(QStringLiteral(":/vrk/store/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray SchemaScript::steps(const QByteArray& engine, int from)
{
    QByteArray all;
    for (int step = from + 1; step <= version; ++step)
        all += file(engine + '-' + QByteArray::number(step).rightJustified(4, '0') + ".sql");
    return all;
}

QByteArray SchemaScript::ofTable(const QByteArray& name, const CatalogTable& table, QStringList facts,
                                 QByteArray (*rowOf)(const CatalogTable& table, const QByteArray& alias))
{
    static const QRegularExpression block(QStringLiteral("^-- IF ([\\w ]+)\\n(.*?)^-- END IF\\n"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression value(QStringLiteral("%(key|row)\\((\\w+)\\)"));
    static const QRegularExpression any(QStringLiteral("%any\\{([^}]*)\\}"));
    const QVector<QByteArray> reals = table.reals();
    if (table.fieldIndex("KeyLink") >= 0)
        facts << QStringLiteral("keyed");
    if (table.isCategoryTree())
        facts << QStringLiteral("tree");
    if (!reals.isEmpty())
        facts << QStringLiteral("reals");
    const QString meaning = meaningOf(table);
    if (!meaning.isEmpty())
        facts << QStringLiteral("signed");
    QString script =
        expanded(QString::fromUtf8(file(name)), block, [&](const QRegularExpressionMatch& match) {
            const QStringList needed = match.captured(1).split(QLatin1Char(' '));
            const bool holds = std::all_of(needed.begin(), needed.end(),
                                           [&](const QString& fact) { return facts.contains(fact); });
            return holds ? match.captured(2) : QString();
        });
    script = expanded(script, any, [&](const QRegularExpressionMatch& match) {
        QStringList conditions;
        for (const QByteArray& field : reals)
            conditions << match.captured(1).replace(QLatin1Char('#'), QString::fromLatin1(field));
        return conditions.join(QLatin1String(" OR "));
    });
    script = expanded(script, value, [&](const QRegularExpressionMatch& match) {
        const QByteArray alias = match.captured(2).toLatin1();
        return QString::fromUtf8(match.captured(1) == QLatin1String("key") ? table.rowKeyOf(alias)
                                                                           : rowOf(table, alias));
    });
    static const QRegularExpression former(QStringLiteral("\\bOLD\\.\\w+"));
    const QString inserted = QString(meaning).replace(former, QStringLiteral("NULL"));
    script.replace(QLatin1String("%inserted"), inserted);
    script.replace(QLatin1String("%meaning"), facts.contains(QStringLiteral("insert")) ? inserted : meaning);
    return script.replace(QLatin1String("%table"), QString::fromLatin1(table.name)).toUtf8();
}

QByteArray SchemaScript::definitions(const Dialect& dialect)
{
    QByteArray all = translated(QString::fromUtf8(file(dialect.engine + "-log.sql")) + rules(), dialect) +
                     file(dialect.engine + "-search.sql");
    for (const CatalogTable& table : TableCatalog::loggedTables())
        all += dialect.logTriggers(table);
    return all;
}
