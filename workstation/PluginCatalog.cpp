#include "PluginCatalog.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

PluginCatalog::PluginCatalog(const QString& folder)
{
    const QDir plugins(
        folder.isEmpty() ? QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("../plugins"))
                         : folder);
    const QStringList files = plugins.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QString& file : files)
        read(plugins.absoluteFilePath(file));
    if (m_modules.isEmpty())
        qWarning().noquote() << "no plug-in is described in" << plugins.absolutePath();
}

void PluginCatalog::read(const QString& file)
{
    QFile description(file);
    QJsonParseError error{};
    const QJsonObject plugin = description.open(QIODevice::ReadOnly)
                                   ? QJsonDocument::fromJson(description.readAll(), &error).object()
                                   : QJsonObject();
    QString library = plugin.value(QLatin1String("library")).toString();
    if (library.isEmpty()) {
        qWarning().noquote() << file << "describes no library" << error.errorString();
        return;
    }
    const int version = plugin.value(QLatin1String("qt")).toInt(QT_VERSION_MAJOR);
    if (version != QT_VERSION_MAJOR) {
        qWarning().noquote() << library << "is built for Qt" << version << "and this program for Qt"
                             << QT_VERSION_MAJOR;
        return;
    }
    const QString beside = QDir::cleanPath(file + QStringLiteral("/../../lib/") + library);
    if (QFile::exists(beside))
        library = beside;
    const QJsonArray modules = plugin.value(QLatin1String("modules")).toArray();
    for (const QJsonValue& value : modules) {
        const QJsonObject one = value.toObject();
        const Module made{
            one.value(QLatin1String("name")).toString(),  one.value(QLatin1String("title")).toString(),
            one.value(QLatin1String("right")).toString(), library,
            one.value(QLatin1String("record")).toBool(),  one.value(QLatin1String("key")).toString()};
        if (made.name.isEmpty() || made.title.isEmpty() || module(made.name))
            qWarning().noquote() << file
                                 << "describes a module without name or title, or one that is there already";
        else
            m_modules.append(made);
    }
}

QVector<PluginCatalog::Module> PluginCatalog::recordModules() const
{
    QVector<Module> modules;
    for (const Module& module : m_modules)
        if (module.isOfRecord)
            modules.append(module);
    return modules;
}

const PluginCatalog::Module* PluginCatalog::module(const QString& name) const
{
    for (const Module& one : m_modules) {
        if (one.name.compare(name, Qt::CaseInsensitive) == 0)
            return &one;
    }
    return nullptr;
}
