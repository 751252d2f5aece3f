#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// The plug-ins that are installed, by the descriptions that they leave in the folder "plugins" beside the programs. A
/// description is a JSON file:
///
///     { "library": "libName.so.1",
///       "modules": [ { "name": "archive", "title": "Поиск по архиву", "right": "ADMINISTRATOR" } ] }
///
/// The library lies in the folder "lib" beside "plugins", or where the loader of the system finds it; it makes the modules
/// through its exported function CppCliModule. "right" may be missing. Descriptions are taken in the order of their file
/// names, which is that of the menu. What cannot be read is passed over with a warning in the log.
class PluginCatalog
{
public:
    struct Module {
        QString name;    ///< as the library knows it
        QString title;   ///< as the user does
        QString right;   ///< that opens it; empty: the module itself decides what it shows to whom
        QString library; ///< file
    };

    /// The plug-ins of a folder; one beside this program when \a folder is empty.
    explicit PluginCatalog(const QString& folder = QString());

    const QVector<Module>& modules() const { return m_modules; }
    /// By name, case ignored; null when there is none.
    const Module* module(const QString& name) const;

private:
    void read(const QString& file);

    QVector<Module> m_modules;
};
