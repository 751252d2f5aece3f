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

void Tour::picture(const QString& caption)
{
    settle();
    m_book.add(caption);
}

QString Tour::newStore(const QString& name) const
{
    const QString file = QStringLiteral("%1/%2.sqlite").arg(m_folder, name);
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QLatin1String(suffix));
    return QStringLiteral("sqlite://") + file;
}

void Tour::admin(const QStringList& arguments)
{
    QProcess process;
    process.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("vrk-admin")),
                  arguments);
    const bool isDone = process.waitForFinished(120000) && process.exitCode() == 0;
    require(isDone, QString::fromUtf8(process.readAllStandardError()) + process.errorString());
    m_check = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString Tour::summary() const
{
    return tr("Картинок: %1. Страница: %2. Проверка: %3").arg(m_book.pictures()).arg(m_book.page(), m_check);
}

bool Tour::play()
{
    // Nothing of the tour is remembered for the user of this computer.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder + QStringLiteral("/settings"));
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder + QStringLiteral("/data")));
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QFont font = QApplication::font(); // the default font of the platform is much larger than that of
                                           // any desktop
        font.setPointSizeF(usualPoints);
        QApplication::setFont(font);
    }
    try {
        playTheme(QStringLiteral("light"), tr("день"));
        playTheme(QStringLiteral("dark"), tr("ночь"));
        require(m_book.write(), tr("Не удалось записать %1").arg(m_book.page()));
    } catch (const Fault& fault) {
        m_errorText = fault.text;
        return false;
    }
    return true;
}

void Tour::playTheme(const QString& theme, const QString& title)
{
    m_store = newStore(theme);
    admin({QStringLiteral("demo"), m_store, QStringLiteral("--old")});

    Theme::apply(theme);
    m_book.setTheme(theme, title);
    {
        Workstation desk;
        signIn(&desk, m_store, QStringLiteral("ozerov"), tr("ЦДС"));
        CVrkCliMod* window = started(&desk, QStringLiteral("logbook"), 720);
        settle();
        playScenes(window);
        playTemplates(window);
        sceneNextUser(&desk);
        window = desk.module(QStringLiteral("logbook"));
        sceneOpening(window);
        sceneConvertedRecord(window);
    }
    sceneOverdue(theme);
    sceneAlarm(theme);
    sceneOutsider(theme);
    admin({QStringLiteral("check"), m_store});
}

void Tour::playScenes(CVrkCliMod* window)
{
    for (const auto scene :
         {&Tour::sceneWindow,      &Tour::sceneNewRecord, &Tour::sceneColleague, &Tour::sceneApproval,
          &Tour::sceneVisa,        &Tour::sceneDeletion,  &Tour::sceneReading,   &Tour::sceneSearch,
          &Tour::sceneMarks,       &Tour::sceneExecution, &Tour::sceneOrigin,    &Tour::sceneCopying,
          &Tour::sceneComments,    &Tour::sceneInbox,     &Tour::sceneFiles,     &Tour::sceneInterval,
          &Tour::sceneAddedWorker, &Tour::sceneReport,    &Tour::sceneArchive,   &Tour::playPast,
          &Tour::sceneStorm,       &Tour::sceneLostStore, &Tour::sceneLetters,   &Tour::sceneHandover})
        (this->*scene)(window);
}
