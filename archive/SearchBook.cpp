#include "SearchBook.h"

#include "UserSettings.h"

#include <algorithm>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace
{
QString packed(const KeptSearch& search)
{
    const QJsonObject all{{QStringLiteral("name"), search.name},
                          {QStringLiteral("words"), search.words},
                          {QStringLiteral("equipment"), search.equipment},
                          {QStringLiteral("department"), QString::fromUtf8(search.departmentKey)},
                          {QStringLiteral("worker"), QString::fromUtf8(search.workerKey)},
                          {QStringLiteral("status"), search.status},
                          {QStringLiteral("period"), search.period},
                          {QStringLiteral("from"), search.from.toString(Qt::ISODate)},
                          {QStringLiteral("to"), search.to.toString(Qt::ISODate)}};
    return QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact));
}

QVector<KeptSearch> unpacked(const UserSettings* settings, const char* setting)
{
    QVector<KeptSearch> searches;
    const QStringList lines = settings->value(setting).toStringList();
    for (const QString& line : lines) {
        const QJsonObject all = QJsonDocument::fromJson(line.toUtf8()).object();
        const auto text = [&all](const char* name) { return all.value(QLatin1String(name)).toString(); };
        KeptSearch one;
        one.name = text("name");
        one.words = text("words");
        one.equipment = text("equipment");
        one.departmentKey = text("department").toUtf8();
        one.workerKey = text("worker").toUtf8();
        one.status = all.value(QLatin1String("status")).toInt(-1);
        one.period = all.value(QLatin1String("period")).toInt();
        one.from = QDate::fromString(text("from"), Qt::ISODate);
        one.to = QDate::fromString(text("to"), Qt::ISODate);
        if (!one.name.isEmpty())
            searches.append(one);
    }
    return searches;
}

void keep(UserSettings* settings, const char* setting, const QVector<KeptSearch>& searches)
{
    QStringList lines;
    for (const KeptSearch& one : searches)
        lines.append(packed(one));
    settings->setValue(setting, lines);
}
} // namespace

bool KeptSearch::isSameQuery(const KeptSearch& other) const
{
    return words == other.words && equipment == other.equipment && departmentKey == other.departmentKey &&
           workerKey == other.workerKey && status == other.status && period == other.period &&
           from == other.from && to == other.to;
}

QVector<KeptSearch> SearchBook::saved() const
{
    QVector<KeptSearch> searches = unpacked(m_settings, Setting::savedSearches);
    std::sort(searches.begin(), searches.end(), [](const KeptSearch& one, const KeptSearch& other) {
        return one.name.localeAwareCompare(other.name) < 0;
    });
    return searches;
}

QVector<KeptSearch> SearchBook::last() const
{
    return unpacked(m_settings, Setting::lastSearches);
}

void SearchBook::save(const KeptSearch& search)
{
    remove(search.name);
    keep(m_settings, Setting::savedSearches, saved() + QVector<KeptSearch>{search});
}

void SearchBook::remove(const QString& name)
{
    QVector<KeptSearch> searches = saved();
    searches.erase(std::remove_if(searches.begin(), searches.end(),
                                  [&name](const KeptSearch& one) { return one.name == name; }),
                   searches.end());
    keep(m_settings, Setting::savedSearches, searches);
}

void SearchBook::rename(const QString& from, const QString& to)
{
    const QVector<KeptSearch> searches = saved();
    for (const KeptSearch& one : searches) {
        if (one.name != from || to.isEmpty() || to == from)
            continue;
        KeptSearch renamed = one;
        renamed.name = to;
        remove(from);
        save(renamed);
        return;
    }
}

void SearchBook::remember(const KeptSearch& search)
{
    QVector<KeptSearch> searches{search};
    const QVector<KeptSearch> former = last();
    for (const KeptSearch& one : former)
        if (!one.isSameQuery(search) && searches.size() < mostLast)
            searches.append(one);
    keep(m_settings, Setting::lastSearches, searches);
}
