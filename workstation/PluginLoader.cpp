#include "PluginLoader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{
/// Beside the platform's libraries in a build tree; elsewhere the system's loader knows the place.
QString defaultLibrary()
{
    const QString built = QDir(QCoreApplication::applicationDirPath())
                              .absoluteFilePath(QStringLiteral("../lib/libVrkLogBook.so.2"));
    return QFileInfo::exists(built) ? built : QStringLiteral("libVrkLogBook.so.2");
}
} // namespace

PluginLoader::PluginLoader(const QString& file) : m_library(file.isEmpty() ? defaultLibrary() : file) {}

CVrkCliMod* PluginLoader::create(CVrkCliApp* app, const QString& name)
{
    m_errorText.clear();
    const auto function = reinterpret_cast<CppCliModuleFunction>(m_library.resolve("CppCliModule"));
    if (!function) {
        m_errorText =
            QCoreApplication::translate("PluginLoader", "Не удалось загрузить библиотеку модулей %1: %2")
                .arg(m_library.fileName(), m_library.errorString());
        return nullptr;
    }
    CVrkCliMod* module = function(app, name.toUtf8().constData());
    if (!module)
        m_errorText = QCoreApplication::translate("PluginLoader", "В библиотеке %1 нет модуля «%2».")
                          .arg(m_library.fileName(), name);
    return module;
}
