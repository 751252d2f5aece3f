#include "SourceFile.h"

QString sourceFile(const char* name)
{
    return QStringLiteral(VRK_SOURCE_DIR "/") + QString::fromUtf8(name);
}
