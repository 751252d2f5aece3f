#include "ReportCommand.h"

#include <cstdio>
#include <QApplication>
#include <QLocale>

namespace
{
/// Only what stops the program is for the user; that is on its error stream anyway.
void keepQuiet(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

void setUtf8(QTextStream* stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream->setCodec("UTF-8");
#else
    Q_UNUSED(stream)
#endif
}
} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // also where there is a display: reports do not depend on it
    qInstallMessageHandler(keepQuiet);
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    QTextStream out(stdout);
    QTextStream err(stderr);
    setUtf8(&out);
    setUtf8(&err);
    return ReportCommand::run(QApplication::arguments().mid(1), out, err);
}
