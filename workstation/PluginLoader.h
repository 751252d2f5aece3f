#pragma once

#include "CVrkCliMod.h"

#include <QLibrary>
#include <QString>

/// Loads the library of the modules by name and makes modules through its one exported function.
class PluginLoader
{
public:
    /// \a file empty: libVrkLogBook.so.2, as the loader of the system finds it.
    explicit PluginLoader(const QString& file = QString());

    /// A new module, owned by the caller; null, and errorText() says why.
    CVrkCliMod* create(CVrkCliApp* app, const QString& name);
    QString errorText() const { return m_errorText; }

private:
    QLibrary m_library;
    QString m_errorText;
};
