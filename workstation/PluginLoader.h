#pragma once

#include "CVrkCliMod.h"
#include "PluginCatalog.h"

#include <map>
#include <memory>
#include <QLibrary>
#include <QString>

/// Makes modules by name, each through the exported function of the library that has it. Libraries are loaded at the first
/// use and stay.
class PluginLoader
{
public:
    /// \a file, when not empty, is asked for every module in place of the libraries of the catalog.
    explicit PluginLoader(const PluginCatalog& catalog, const QString& file = QString());

    /// A new module, owned by the caller; null, and errorText() says why.
    CVrkCliMod* create(CVrkCliApp* app, const QString& name);
    QString errorText() const { return m_errorText; }

private:
    const PluginCatalog& m_catalog;
    QString m_file;
    std::map<QString, std::unique_ptr<QLibrary>> m_libraries;
    QString m_errorText;
};
