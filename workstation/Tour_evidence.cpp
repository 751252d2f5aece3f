#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QProcess>
#include <QStandardPaths>
#include <QToolButton>

using namespace TourHands;

namespace
{
/// What a program says; the exit code does not matter.
QString said(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    require(process.waitForFinished(120000), process.errorString());
    return QString::fromUtf8(process.readAll()).trimmed();
}

void replaceFile(const QString& file, const QString& by)
{
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QLatin1String(suffix));
    require(QFile::copy(by, file), Tour::tr("Не удалось записать %1").arg(file));
}

QToolButton* alarmOf(const CVrkCliMod* window)
{
    return window->window()->findChild<QToolButton*>(QStringLiteral("historyButton"));
}
} // namespace

/// Somebody puts an older copy in the place of the store: the workstation that has seen more raises the alarm.
void Tour::sceneAlarm(const QString& theme)
{
    const QString store = newStore(theme + QStringLiteral("-altered"));
    const QString base = QStringLiteral("%1/%2-altered").arg(m_folder, theme);
    const QString copy = base + QStringLiteral(".copy");
    const QString key = base + QStringLiteral(".key");
    for (const QString& former : {key, key + QStringLiteral(".heads")})
        QFile::remove(former);
    QDir(m_folder + QStringLiteral("/data")).removeRecursively();
    admin({QStringLiteral("demo"), store});
    replaceFile(copy, base + QStringLiteral(".sqlite")); // behind the back of vrk-admin
    admin({QStringLiteral("option"), store, QStringLiteral("set"), QStringLiteral("DelayTime=15m")});
    admin({QStringLiteral("seal"), store, QStringLiteral("--init"), QStringLiteral("--key"), key});
    const auto desk = [&](const std::function<void(CVrkCliMod*)>& act) {
        Workstation one;
        signIn(&one, store, QStringLiteral("ozerov"), tr("ЦДС"), true);
        act(started(&one, QStringLiteral("logbook"), 720));
    };
    desk([&](CVrkCliMod* window) {
        settle();
        require(!alarmOf(window)->isVisible(), tr("Тревога без причины."));
    });
    replaceFile(base + QStringLiteral(".sqlite"), copy);
    desk([&](CVrkCliMod* window) {
        require(wait([&] { return alarmOf(window)->isVisible(); }), tr("Подмена истории не замечена."));
        picture(tr(
            "Хранилище подменили старой копией: рабочее место, которое видело больше, замечает это само."));
        whenShown("HistoryDialog", [&](QWidget* dialog) {
            picture(tr(
                "Тревога (Ctrl+Shift+H) остаётся, пока её не подтвердят вдвоём: администратор и дежурный."));
            dialog->close();
        });
        alarmOf(window)->click();
    });
}

/// A person with nothing but the exported folder and Python checks the history.
void Tour::sceneOutsider(const QString& theme)
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        return;
    const QString folder = QStringLiteral("%1/%2-evidence").arg(m_folder, theme);
    const QString key = folder + QStringLiteral(".key");
    QDir(folder).removeRecursively();
    QFile::remove(key);
    QFile::remove(key + QStringLiteral(".heads"));
    admin({QStringLiteral("seal"), m_store, QStringLiteral("--init"), QStringLiteral("--key"), key});
    admin({QStringLiteral("export-evidence"), m_store, folder});
    const auto verify = [&] { return said(python, {folder + QStringLiteral("/verify.py"), folder}); };
    const QString untouched = verify();
    QFile log(folder + QStringLiteral("/log.jsonl"));
    require(log.open(QIODevice::ReadWrite), log.errorString());
    const QByteArray lines = log.readAll();
    const int letter = lines.lastIndexOf(QByteArray("отключ"));
    require(letter > 0 && log.seek(letter) && log.write("Отключ") > 0,
            tr("В выгрузке нет слова для подмены."));
    log.close();

    QPlainTextEdit page(QStringLiteral("$ python3 verify.py\n%1\n\n# %2\n$ python3 verify.py\n%3")
                            .arg(untouched, tr("в одной записи заменили одну букву"), verify()));
    page.setWindowTitle(tr("Проверка выгрузки"));
    page.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    page.setReadOnly(true);
    page.resize(1000, 320);
    page.show();
    picture(tr("Посторонний проверяет выгрузку одной командой, без сети и без программы журнала."));
}
