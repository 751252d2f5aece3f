#include "FuzzTarget.h"
#include "PluginCatalog.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

// Any file in the folder of the plug-ins is a description or is skipped with a warning; modules have names
// and titles, and no name occurs twice.

namespace
{
void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/vrk-fuzz-XXXXXX"));
    static const QtMessageHandler former = qInstallMessageHandler(quiet);
    Q_UNUSED(former)

    QFile file(folder.filePath(QStringLiteral("one.json")));
    fuzzRequire(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    const PluginCatalog catalog(folder.path());
    QSet<QString> names;
    for (const PluginCatalog::Module& module : catalog.modules()) {
        fuzzRequire(!module.name.isEmpty() && !module.title.isEmpty() && !module.library.isEmpty());
        names.insert(module.name.toCaseFolded());
        fuzzRequire(catalog.module(module.name) == &module);
    }
    fuzzRequire(names.size() == catalog.modules().size());
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    return {
        QByteArrayLiteral(R"({"library":"libName.so.1","modules":[{"name":"a","title":"A","right":"R"},)"
                          R"({"name":"A","title":"B"},{"name":"b","title":""},{"name":"c","title":"C"}]})"),
        QByteArrayLiteral(R"({"library":"../x","modules":{"name":1}})"), QByteArrayLiteral("[]"),
        QByteArrayLiteral(R"({"library":7})"),
        QByteArrayLiteral("{\"library\":\"\\u0000\",\"modules\":[null]}")};
}
