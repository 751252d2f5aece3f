#pragma once

#include "CVrkCliMod.h"
#include "PluginCatalog.h"

#include <map>
#include <memory>
#include <QLibrary>
#include <QString>

/// Creates modules by name, each through the exported function of its library. Libraries are loaded on
/// first use and stay loaded.
class PluginLoader
{
public:
    /// If \a file is not empty, it provides every module in place of the catalog's libraries.
    explicit PluginLoader(const PluginCatalog& catalog, const QString& file = QString());

    /// A new module, owned by the caller; null with errorText() on failure.
    CVrkCliMod* create(CVrkCliApp* app, const QString& name);
    QString errorText() const { return m_errorText; }

private:
    const PluginCatalog& m_catalog;
    QString m_file;
    std::map<QString, std::unique_ptr<QLibrary>> m_libraries;
    QString m_errorText;
};
