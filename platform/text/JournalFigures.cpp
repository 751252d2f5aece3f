#include "JournalFigures.h"

#include "HfnTime.h"
#include "HtmlParser.h"
#include "MDRValues.h"

#include <algorithm>
#include <QRegularExpression>
#include <QTextCodec>

namespace
{
constexpr int pageRows = 5000;
constexpr double secondsOfMinute = 60;

MDRVar valueOf(const CMDArray& answer, int row, int column)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(answer.array, column), MDARec(answer.array, 0, row), &value);
    return value;
}

QByteArray key(const CMDArray& answer, int row, int column)
{
    return MDRValue::copy(valueOf(answer, row, column));
}

double timeOf(const CMDArray& answer, int row, int column)
{
    const MDRVar value = valueOf(answer, row, column);
    return value.isNull ? 0 : value.value.real;
}

QByteArray literal(QByteArray text)
{
    return '\'' + text.replace('\'', "''") + '\'';
}

QByteArray page(const QByteArray& field)
{
    return " ORDER BY " + field + " LIMIT " + QByteArray::number(pageRows);
}

/// The words of a template, or of a record made from it, without markup and what its parameters show: the same for
/// both, unless the words were edited.
QString fixedWords(HtmlParser parser)
{
    static const QRegularExpression markup(QStringLiteral("<[^>]*>"));
    for (unsigned i = 0; i < parser.countParameters(); ++i)
        parser.setDisplayText(i, std::string());
    return QString::fromStdString(parser.readyHtml(false)).replace(markup, QStringLiteral(" ")).simplified();
}

QString noTemplate()
{
    return QStringLiteral("Без шаблона");
}

/// The words "30 минут" as they follow "на".
QString minutesOf(int count)
{
    const int ten = count % 100 / 10;
    const int one = count % 10;
    const QString word = ten == 1 || one == 0 || one > 4 ? QStringLiteral("минут")
                         : one == 1                      ? QStringLiteral("минуту")
                                                         : QStringLiteral("минуты");
    return QStringLiteral("%1 %2").arg(count).arg(word);
}
} // namespace

QByteArray JournalFigures::during(const char* field) const
{
    QByteArray condition;
    const auto add = [&](const char* sign, double time) {
        condition += QByteArray(" AND ") + field + sign + QByteArray::number(time, 'f', 0);
    };
    if (m_choice.from > 0)
        add(" >= ", m_choice.from);
    if (m_choice.to > 0)
        add(" < ", m_choice.to);
    if (!m_choice.department.isEmpty())
        condition += " AND W.DepartmentKey = " + literal(m_choice.department);
    return condition;
}

QByteArray JournalFigures::request() const
{
    const QByteArray records =
        " FROM LogbookRecords AS R JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey WHERE R.status = 0";
    switch (m_stage) {
    case Templates:
        return "SELECT T.KeyLink, T.nameLoc, T.html, C.nameLoc AS folder FROM LogbookTemplates AS T LEFT "
               "JOIN "
               "LogbookCatsTemplate AS C ON C.KeyLink = T.CategoryKey WHERE T.KeyLink > " +
               literal(m_last) + page("T.KeyLink");
    case Count:
        return "SELECT COUNT(*) AS number" + records + during("R.recordTime");
    case Records:
        return "SELECT R.KeyLink, R.recordTime, R.eventTime, R.executionTime, R.html, W.DepartmentKey, "
               "W.CloseWorkerKey" +
               records + " AND R.KeyLink > " + literal(m_last) + during("R.recordTime") + page("R.KeyLink");
    case Shifts:
        return "SELECT W.KeyLink FROM LogbookWorkshifts AS W WHERE W.CloseWorkerKey <> '' AND W.KeyLink > " +
               literal(m_last) + during("W.startTime") + page("W.KeyLink");
    case Signatures: // no index knows what they sign, so a join would read all of them in one request
        return "SELECT S.KeyLink, S.signedKey FROM LogSignatures AS S WHERE S.meaning = 'closing' AND "
               "S.signedTable = 'LogbookWorkshifts' AND S.KeyLink > " +
               literal(m_last) + page("S.KeyLink");
    case End:
        break;
    }
    return {};
}

void JournalFigures::take(const CMDArray& answer)
{
    switch (m_stage) {
    case Templates:
        takeTemplates(answer);
        return goOn(answer.RecCount());
    case Count:
        m_expected = key(answer, 0, 0).toLongLong();
        return goOn(0);
    case Records:
        takeRecords(answer);
        return goOn(answer.RecCount());
    case Shifts:
        takeShifts(answer);
        return goOn(answer.RecCount());
    case Signatures:
        takeSignatures(answer);
        return goOn(answer.RecCount());
    case End:
        return;
    }
}

/// The next page, or after the last one the next stage.
void JournalFigures::goOn(int rows)
{
    if (rows == pageRows)
        return;
    m_stage = static_cast<Stage>(m_stage + 1);
    m_last.clear();
}

QString JournalFigures::text(const CMDArray& answer, int row, int column) const
{
    return m_codec->toUnicode(key(answer, row, column));
}

void JournalFigures::takeTemplates(const CMDArray& answer)
{
    for (int i = 0; i < answer.RecCount(); ++i) {
        m_last = key(answer, i, 0);
        const QString words = fixedWords(HtmlParser(text(answer, i, 2).toStdString()));
        if (!m_kinds.contains(words)) // copies in several departments count as one
            m_kinds.insert(words, {text(answer, i, 1),
                                   valueOf(answer, i, 3).isNull ? noTemplate() : text(answer, i, 3)});
    }
}

void JournalFigures::takeRecords(const CMDArray& answer)
{
    const Kind none{noTemplate(), noTemplate()};
    for (int i = 0; i < answer.RecCount(); ++i) {
        m_last = key(answer, i, 0);
        const double made = timeOf(answer, i, 1);
        const double happened = timeOf(answer, i, 2);
        const HtmlParser parser(text(answer, i, 4).toStdString());
        const Kind kind = m_kinds.value(fixedWords(parser), none);
        ++m_records;
        ++m_departments[key(answer, i, 5)];
        ++m_categories[kind.category];
        ++m_templates[kind.name];
        ++m_hours[HfnTime_to_DateTime(happened > 0 ? happened : made, -1).time().hour()];
        m_late += happened > 0 && made - happened > m_choice.lateMinutes * secondsOfMinute ? 1 : 0;
        bool isOrder = false;
        parser.templatePropertyValue("time_exec", isOrder);
        if (!isOrder)
            continue;
        ++m_orders;
        m_overdue += timeOf(answer, i, 3) == 0 && MDRValue::hasText(valueOf(answer, i, 6)) ? 1 : 0;
    }
}

void JournalFigures::takeShifts(const CMDArray& answer)
{
    for (int i = 0; i < answer.RecCount(); ++i) {
        m_last = key(answer, i, 0);
        m_unsigned.insert(m_last);
    }
    m_shifts += answer.RecCount();
}

void JournalFigures::takeSignatures(const CMDArray& answer)
{
    for (int i = 0; i < answer.RecCount(); ++i) {
        m_last = key(answer, i, 0);
        m_signed += m_unsigned.remove(key(answer, i, 1)) ? 1 : 0; // a workshift may be closed several times
    }
}

QVector<JournalFigures::Figure> JournalFigures::ranked(const char* group,
                                                       const QMap<QString, qint64>& counts) const
{
    QVector<Figure> all;
    for (auto i = counts.begin(); i != counts.end(); ++i)
        all.append({group, i.key(), i.value(), m_records});
    std::stable_sort(all.begin(), all.end(),
                     [](const Figure& one, const Figure& other) { return one.count > other.count; });
    return all;
}

QVector<JournalFigures::Figure> JournalFigures::figures(const QHash<QByteArray, QString>& departments) const
{
    QMap<QString, qint64> named;
    for (auto i = m_departments.begin(); i != m_departments.end(); ++i)
        named[departments.value(i.key(), QString::fromUtf8(i.key()))] += i.value();
    QVector<Figure> all =
        ranked("department", named) + ranked("category", m_categories) + ranked("template", m_templates);
    for (auto i = m_hours.begin(); i != m_hours.end(); ++i)
        all.append(
            {"hour", QStringLiteral("%1:00").arg(i.key(), 2, 10, QLatin1Char('0')), i.value(), m_records});
    all.append({"late", QString(), m_late, m_records});
    all.append({"overdue", QString(), m_overdue, m_orders});
    all.append({"signedHandovers", QString(), m_signed, m_shifts});
    return all;
}

QString JournalFigures::title(const QByteArray& group, int lateMinutes)
{
    if (group == "late")
        return QStringLiteral("Внесено позже события более чем на ") + minutesOf(lateMinutes);
    static const QHash<QByteArray, QString> titles{
        {"department", QStringLiteral("Подразделения")},
        {"category", QStringLiteral("Папки шаблонов")},
        {"template", QStringLiteral("Шаблоны")},
        {"hour", QStringLiteral("Часы суток")},
        {"overdue", QStringLiteral("Не исполнено к закрытию смены")},
        {"signedHandovers", QStringLiteral("Подписано закрытий смен")}};
    return titles.value(group);
}
