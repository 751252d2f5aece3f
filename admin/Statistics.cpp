#include "Statistics.h"

#include "CMDArray.h"
#include "HfnTime.h"
#include "MDRValues.h"
#include "TemplateCells.h"

#include <algorithm>
#include <QTextCodec>

namespace
{
constexpr int pageRows = 5000;
constexpr double secondsOfMinute = 60;

MDRVar fieldOf(const CMDArray& answer, int row, int field)
{
    MDRVar value;
    MDRGetVal(MDRFldByNum(answer.array, field), MDARec(answer.array, 0, row), &value);
    return value;
}

double timeOf(const CMDArray& answer, int row, int field)
{
    const MDRVar value = fieldOf(answer, row, field);
    return value.isNull ? 0 : value.value.real;
}

QString unknown()
{
    return QStringLiteral("Без шаблона");
}
} // namespace

QByteArray Statistics::during(const char* field) const
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
        condition += " AND W.DepartmentKey = " + Store::literal(m_choice.department);
    return condition;
}

void Statistics::readTemplates()
{
    for (const DirectoryRow* row : m_directory.rows("LogbookTemplates")) {
        const QString words = TemplateCells::fixedWords(row->text("html"));
        if (!m_kinds.contains(words)) // copies in several departments count as one
            m_kinds.insert(words, row->key);
    }
}

bool Statistics::countRecords(Store* store, StoreError* error)
{
    QByteArray last;
    for (int rows = pageRows; rows == pageRows;) {
        CMDArray answer;
        answer = store->select(
            "SELECT R.KeyLink, R.recordTime, R.eventTime, R.executionTime, R.html, W.DepartmentKey, "
            "W.CloseWorkerKey FROM LogbookRecords AS R JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey "
            "WHERE R.status = 0 AND R.KeyLink > " +
                Store::literal(last) + during("R.recordTime") + " ORDER BY R.KeyLink LIMIT " +
                QByteArray::number(pageRows),
            error);
        if (!answer.array)
            return false;
        rows = answer.RecCount();
        for (int i = 0; i < rows; ++i) {
            last = MDRValue::copy(fieldOf(answer, i, 0));
            const double made = timeOf(answer, i, 1);
            const double happened = timeOf(answer, i, 2);
            const QString html = store->codec()->toUnicode(MDRValue::copy(fieldOf(answer, i, 4)));
            const QByteArray kind = m_kinds.value(TemplateCells::fixedWords(html));
            const DirectoryRow* form = m_directory.row("LogbookTemplates", kind);
            const QByteArray category = form ? form->reference("CategoryKey") : QByteArray();
            const DirectoryRow* folder = m_directory.row("LogbookCatsTemplate", category);
            ++m_records;
            ++m_departments[m_directory.reference("Departments", MDRValue::copy(fieldOf(answer, i, 5)))];
            ++m_categories[folder ? folder->text("nameLoc") : unknown()];
            ++m_templates[form ? form->text("nameLoc") : unknown()];
            ++m_hours[HfnTime_to_DateTime(happened > 0 ? happened : made, -1).time().hour()];
            m_late += happened > 0 && made - happened > m_choice.lateMinutes * secondsOfMinute ? 1 : 0;
            if (!TemplateCells::hasFlag(html, "time_exec"))
                continue;
            ++m_orders;
            m_overdue += timeOf(answer, i, 3) == 0 && MDRValue::hasText(fieldOf(answer, i, 6)) ? 1 : 0;
        }
    }
    return true;
}

bool Statistics::countShifts(Store* store, StoreError* error)
{
    CMDArray answer;
    answer =
        store->select("SELECT W.KeyLink, S.signedKey FROM LogbookWorkshifts AS W LEFT JOIN (SELECT DISTINCT "
                      "signedKey FROM LogSignatures WHERE meaning = 'closing' AND signedTable = "
                      "'LogbookWorkshifts') AS S ON S.signedKey = W.KeyLink WHERE W.CloseWorkerKey <> ''" +
                          during("W.startTime"),
                      error);
    if (!answer.array)
        return false;
    m_shifts = answer.RecCount();
    for (int i = 0; i < answer.RecCount(); ++i)
        m_signed += MDRValue::hasText(fieldOf(answer, i, 1)) ? 1 : 0;
    return true;
}

bool Statistics::count(Store* store, StoreError* error)
{
    readTemplates();
    return countRecords(store, error) && countShifts(store, error);
}

QVector<Statistics::Figure> Statistics::ranked(const char* group, const QMap<QString, qint64>& counts) const
{
    QVector<Figure> all;
    for (auto i = counts.begin(); i != counts.end(); ++i)
        all.append({group, i.key(), i.value(), m_records});
    std::stable_sort(all.begin(), all.end(),
                     [](const Figure& one, const Figure& other) { return one.count > other.count; });
    return all;
}

QVector<Statistics::Figure> Statistics::figures() const
{
    QVector<Figure> all = ranked("department", m_departments) + ranked("category", m_categories) +
                          ranked("template", m_templates);
    for (auto i = m_hours.begin(); i != m_hours.end(); ++i)
        all.append(
            {"hour", QStringLiteral("%1:00").arg(i.key(), 2, 10, QLatin1Char('0')), i.value(), m_records});
    all.append({"late", QString(), m_late, m_records});
    all.append({"overdue", QString(), m_overdue, m_orders});
    all.append({"signedHandovers", QString(), m_signed, m_shifts});
    return all;
}
