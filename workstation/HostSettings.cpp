#include "HostSettings.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>

void HostSettings::useOwnPlace()
{
    QCoreApplication::setApplicationName(QStringLiteral("vrk-logbook"));
    QCoreApplication::setOrganizationName(QString());
    QSettings former;
    former.setFallbacksEnabled(false);
    QCoreApplication::setOrganizationName(QStringLiteral("vrk"));
    QSettings settings;
    settings.setFallbacksEnabled(false);
    if (!settings.allKeys().isEmpty())
        return;
    for (const QString& key : former.allKeys())
        settings.setValue(key, former.value(key));
}

QString HostSettings::historyFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vrk-logbook/history");
}

QString HostSettings::ownWordsFile(const QString& login)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vrk-logbook/words/") + QString::fromLatin1(login.toUtf8().toPercentEncoding()) +
           QStringLiteral(".txt");
}

QString HostSettings::keptTextsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/vrk-logbook/kept");
}
