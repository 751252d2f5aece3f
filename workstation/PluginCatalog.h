#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// The installed plug-ins, found by the descriptions in the folder "plugins" next to the programs. A
/// description is a JSON file:
///
///     { "library": "libName.so.1", "qt": 5,
///       "modules": [ { "name": "archive", "title": "Поиск по архиву", "right": "ADMINISTRATOR" },
///                    { "name": "history", "title": "История записи", "record": true, "key": "Ctrl+H" } ] }
///
/// "qt" is the major version of Qt that the library is built with. Both versions in one process would crash, so a
/// library for the other one is not loaded. The library is in the folder "lib" next to "plugins", or where the dynamic
/// loader finds it; it creates the modules through its exported function CppCliModule. "right", "record" and "key" are
/// optional: a module with "record" is opened from the menus of records, not from "Модули"; "key" is the shortcut of
/// its entry. The menu has the order of the descriptions' file names. A description that cannot be read is skipped with
/// a warning in the log.
class PluginCatalog
{
public:
    struct Module {
        QString name;            ///< name used by the library
        QString title;           ///< name shown to the user
        QString right;           ///< right required to open it; empty: the module checks rights itself
        QString library;         ///< file
        bool isOfRecord = false; ///< opened for a record, by the notice "showRecord"
        QString key;             ///< shortcut, usually empty
    };

    /// The plug-ins of a folder; if \a folder is empty, of the one next to this program.
    explicit PluginCatalog(const QString& folder = QString());

    const QVector<Module>& modules() const { return m_modules; }
    /// The modules that are opened for a record.
    QVector<Module> recordModules() const;
    /// By name, ignoring case; null if there is none.
    const Module* module(const QString& name) const;

private:
    void read(const QString& file);

    QVector<Module> m_modules;
};
