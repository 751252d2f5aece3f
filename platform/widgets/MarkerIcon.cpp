#include "MarkerIcon.h"

bool MarkerIcon::isPath(const QString& path)
{
    return path.startsWith(QLatin1String(":/markers/"));
}

QIcon MarkerIcon::at(const QString& path)
{
    return isPath(path) ? QIcon(path) : QIcon();
}
