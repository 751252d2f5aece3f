#include "UserSettings.h"

#include <functional>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QTime>
#include <QVector>

namespace
{
struct Known {
    const char* name;
    QVariant usual;
    std::function<bool(const QVariant&)> isPossible;
    bool isLook = false;
};

const QVector<Known>& knownSettings()
{
    const auto any = [](const QVariant&) { return true; };
    const auto among = [](const QStringList& values) {
        return [values](const QVariant& value) { return values.contains(value.toString()); };
    };
    const auto between = [](int least, int most) {
        return
            [least, most](const QVariant& value) { return value.toInt() >= least && value.toInt() <= most; };
    };
    const auto time = [](const QVariant& value) {
        return QTime::fromString(value.toString(), QStringLiteral("HH:mm")).isValid();
    };
    static const QVector<Known> all = {
        {Setting::theme, QStringLiteral("system"),
         among({QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("system"),
                QStringLiteral("contrast")}),
         true},
        {Setting::letters, 100, between(100, 175), true},
        {Setting::seenVersion, QString(), any},
        {Setting::reportFolder, QString(), any},
        {Setting::spelling, true, any},
        {Setting::abbreviations, true, any},
        {Setting::reportCode, false, any},
        {Setting::startModules, QStringList{QStringLiteral("logbook")},
         [](const QVariant& value) { return !value.toStringList().isEmpty(); }},
        {Setting::savedSearches, QStringList(), any},
        {Setting::lastSearches, QStringList(), any},
        {Setting::bookmarks, QStringList(), any},
        {Setting::noticeRecords, false, any},
        {Setting::noticeComments, true, any},
        {Setting::noticeShift, true, any},
        {Setting::noticeFailures, true, any},
        {Setting::noticeSound, false, any},
        {Setting::quietHours, false, any},
        {Setting::quietFrom, QStringLiteral("22:00"), time},
        {Setting::quietTo, QStringLiteral("07:00"), time},
    };
    return all;
}

const Known* known(const char* name)
{
    for (const Known& one : knownSettings()) {
        if (qstrcmp(one.name, name) == 0)
            return &one;
    }
    return nullptr;
}

/// A value of the file has the type that its spelling suggests: \a kept as the type of the default; null if it
/// is not possible.
QVariant read(const Known& setting, const QVariant& kept)
{
    QVariant value = kept;
    const auto type = static_cast<QMetaType::Type>(setting.usual.userType());
    if (!kept.isValid() || kept.isNull())
        return QVariant();
    if (type == QMetaType::Bool) {
        const QString word = kept.toString(); // conversion would take any word as true
        if (word != QLatin1String("true") && word != QLatin1String("false"))
            return QVariant();
        value = word == QLatin1String("true");
    } else if (type == QMetaType::Int) {
        bool isNumber = false;
        value = kept.toInt(&isNumber);
        if (!isNumber)
            return QVariant();
    } else if (type == QMetaType::QStringList) {
        value = kept.toStringList();
    } else {
        value = kept.toString();
    }
    return setting.isPossible(value) ? value : QVariant();
}
} // namespace

UserSettings::UserSettings(QObject* parent) : QObject(parent) {}

QVector<const char*> UserSettings::names()
{
    QVector<const char*> names;
    for (const Known& one : knownSettings())
        names.append(one.name);
    return names;
}

void UserSettings::setUser(const QString& login)
{
    QVector<QVariant> before;
    for (const Known& one : knownSettings())
        before.append(value(one.name));
    // A slash would open a subgroup.
    m_group = login.isEmpty()
                  ? QString()
                  : QStringLiteral("users/%1/").arg(QString::fromLatin1(login.toUtf8().toPercentEncoding()));
    m_values.clear();
    for (int i = 0; i < before.size(); ++i) {
        const char* name = knownSettings()[i].name;
        if (value(name) != before[i])
            emit changed(name);
    }
}

QVariant UserSettings::value(const char* name) const
{
    const Known* setting = known(name);
    if (!setting)
        return QVariant();
    const auto kept = m_values.constFind(name);
    if (kept != m_values.constEnd())
        return kept.value();
    const QSettings settings;
    QVariant value = read(*setting, settings.value(m_group + QLatin1String(name)));
    if (!value.isValid() && setting->isLook)
        value = read(*setting, settings.value(QLatin1String(name)));
    if (!value.isValid())
        value = setting->usual;
    m_values.insert(name, value);
    return value;
}

QVariant UserSettings::defaultValue(const char* name)
{
    const Known* setting = known(name);
    return setting ? setting->usual : QVariant();
}

bool UserSettings::setValue(const char* name, const QVariant& value)
{
    const Known* setting = known(name);
    const QVariant wanted = setting ? read(*setting, value) : QVariant();
    m_errorText.clear();
    if (!wanted.isValid())
        return true;
    const bool isNew = wanted != this->value(name);
    m_values.insert(name, wanted);
    QSettings settings;
    settings.setValue(m_group + QLatin1String(name), wanted);
    if (setting->isLook)
        settings.setValue(QLatin1String(name), wanted);
    settings.sync();
    if (settings.status() == QSettings::AccessError)
        m_errorText = tr("Настройки не удаётся записать в «%1».").arg(settings.fileName());
    const bool isKept = m_errorText.isEmpty();
    if (isNew)
        emit changed(name);
    return isKept;
}

QString UserSettings::reportFolder() const
{
    const QString chosen = value(Setting::reportFolder).toString();
    if (!chosen.isEmpty() && QDir(chosen).exists())
        return chosen;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}
