#include "PluginLoader.h"

#include <QCoreApplication>

PluginLoader::PluginLoader(const PluginCatalog& catalog, const QString& file)
    : m_catalog(catalog), m_file(file)
{
}

CVrkCliMod* PluginLoader::create(CVrkCliApp* app, const QString& name)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("PluginLoader", text); };
    m_errorText.clear();
    const PluginCatalog::Module* known = m_catalog.module(name);
    if (m_file.isEmpty() && !known) {
        m_errorText = tr("Среди установленных нет модуля «%1».").arg(name);
        return nullptr;
    }
    const QString file = m_file.isEmpty() ? known->library : m_file;
    std::unique_ptr<QLibrary>& library = m_libraries[file];
    if (!library)
        library = std::make_unique<QLibrary>(file);
    const auto function = reinterpret_cast<CppCliModuleFunction>(library->resolve("CppCliModule"));
    if (!function) {
        m_errorText = tr("Не удалось загрузить библиотеку модулей %1: %2")
                          .arg(library->fileName(), library->errorString());
        return nullptr;
    }
    CVrkCliMod* module = function(app, name.toUtf8().constData());
    if (!module)
        m_errorText = tr("В библиотеке %1 нет модуля «%2».").arg(library->fileName(), name);
    return module;
}
