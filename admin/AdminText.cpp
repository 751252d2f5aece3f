#include "AdminText.h"

#include <QFile>

// Outside of any namespace, as the macro requires.
static void openResources()
{
    Q_INIT_RESOURCE(admin);
}

QString AdminText::content(const char* name)
{
    openResources();
    QFile file(QStringLiteral(":/admin/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The program has lost its file %s", name);
    return QString::fromUtf8(file.readAll());
}
