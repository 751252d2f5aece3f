#include "LogWriter.h"
#include "Options.h"
#include "Theme.h"
#include "Workstation.h"

#include <cstdio>
#include <QApplication>
#include <QIcon>
#include <QMessageBox>

namespace
{
/// Tells why the program cannot go on: on the terminal and in a box.
int fail(const QString& text)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    QMessageBox::critical(nullptr, QCoreApplication::translate("main", "Оперативный журнал"), text);
    return 1;
}
} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vrk-logbook"));
    QApplication::setApplicationVersion(QStringLiteral(VRK_VERSION));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/vrk/app.png")));

    Options options;
    QString message;
    int exitCode = 0;
    if (!options.parse(QApplication::arguments(), &message, &exitCode)) {
        std::fprintf(exitCode == 0 ? stdout : stderr, "%s\n", qUtf8Printable(message));
        return exitCode;
    }

    if (!Theme::apply(options.theme.isEmpty() ? Theme::remembered() : options.theme)) {
        std::fprintf(
            stderr, "%s\n",
            qUtf8Printable(QCoreApplication::translate("main", "Нет темы «%1».").arg(options.theme)));
        return 2;
    }
    LogWriter log(LogWriter::defaultFile());
    Workstation workstation(&log);
    if (!workstation.enter(options))
        return workstation.errorText().isEmpty() ? 0 : fail(workstation.errorText());
    if (!workstation.startModule(options))
        return fail(workstation.errorText());
    return QApplication::exec();
}
