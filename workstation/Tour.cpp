#include "Tour.h"

#include "CVrkCliMod.h"
#include "Theme.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>

using namespace TourHands;

namespace
{
constexpr double usualPoints = 9.6;
} // namespace

Tour::Tour(const QString& folder) : m_book(folder), m_folder(QDir(folder).absolutePath()) {}

bool Tour::fail(const QString& text)
{
    if (m_errorText.isEmpty())
        m_errorText = text;
    return false;
}

void Tour::picture(const QString& caption)
{
    settle();
    m_book.add(caption);
}

bool Tour::admin(const QStringList& arguments)
{
    QProcess process;
    process.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("vrk-admin")),
                  arguments);
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        return fail(QString::fromUtf8(process.readAllStandardError()) + process.errorString());
    m_check = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    return true;
}

QString Tour::summary() const
{
    return tr("Картинок: %1. Страница: %2. Проверка: %3").arg(m_book.pictures()).arg(m_book.page(), m_check);
}

bool Tour::play()
{
    // Texts and logins of the tour are not remembered for the user of this computer.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder + QStringLiteral("/settings"));
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QFont font = QApplication::font(); // the default font of the platform is much larger than that of
                                           // any desktop
        font.setPointSizeF(usualPoints);
        QApplication::setFont(font);
    }
    return playTheme(QStringLiteral("light"), tr("день")) && playTheme(QStringLiteral("dark"), tr("ночь")) &&
           (m_book.write() || fail(tr("Не удалось записать %1").arg(m_book.page())));
}

bool Tour::playTheme(const QString& theme, const QString& title)
{
    const QString file = QStringLiteral("%1/%2.sqlite").arg(m_folder, theme);
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QLatin1String(suffix));
    m_store = QStringLiteral("sqlite://") + file;
    if (!admin({QStringLiteral("demo"), m_store, QStringLiteral("--old")}))
        return false;

    Theme::apply(theme);
    m_book.setTheme(theme, title);
    Options options;
    options.keepsTexts = false;
    options.store = m_store;
    options.user = QStringLiteral("ozerov");
    options.department = tr("ЦДС");
    {
        Workstation workstation;
        if (!workstation.enter(options))
            return fail(workstation.errorText());
        CVrkCliMod* window = workstation.startModule(options.module);
        if (!window)
            return fail(workstation.errorText());
        window->resize(1280, 720);
        settle();
        if (!playScenes(window) || !playTemplates(window) || !sceneNextUser(&workstation))
            return false;
        window = workstation.module(options.module);
        if (!sceneOpening(window) || !sceneConvertedRecord(window))
            return false;
    }
    return sceneOverdue(theme) && admin({QStringLiteral("check"), m_store});
}

bool Tour::playScenes(CVrkCliMod* window)
{
    return sceneWindow(window) && sceneNewRecord(window) && sceneColleague(window) && sceneApproval(window) &&
           sceneVisa(window) && sceneDeletion(window) && sceneReading(window) && sceneSearch(window) &&
           sceneMarks(window) && sceneExecution(window) && sceneOrigin(window) && sceneCopying(window) &&
           sceneComments(window) && sceneInbox(window) && sceneFiles(window) && sceneInterval(window) &&
           sceneAddedWorker(window) && sceneReport(window) && sceneArchive(window) && playPast(window) &&
           sceneStorm(window) && sceneLostStore(window) && sceneLetters(window) && sceneHandover(window);
}
