#include "FileSaver.h"

#include "../support/AsNobody.h"
#include "../support/TestFolder.h"

#include <cerrno>
#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
bool isDiskFull = false;
} // namespace

// The calls of the toolkit come here.
extern "C" __attribute__((visibility("default"))) ssize_t write(int file, const void* bytes, size_t size)
{
    if (isDiskFull) {
        errno = ENOSPC;
        return -1;
    }
    return ::syscall(SYS_write, file, bytes, size);
}

class FileSaver_test : public QObject
{
    Q_OBJECT

    const QTemporaryDir m_folder{testFolderTemplate()};
    std::unique_ptr<FileSaver> m_saver;
    QString m_answer; ///< to the question for the file
    QString m_proposed;
    QStringList m_opened;
    bool m_opens = true;

    QString path(const char* name) { return m_folder.filePath(QString::fromUtf8(name)); }
    QByteArray content(const char* name)
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList files() { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }
    void save(const char* bytes, const QString& name = QStringLiteral("ЦДС"))
    {
        m_saver->save(m_folder.path(), name, [bytes](QByteArray* to) {
            *to = bytes;
            return true;
        });
    }
    bool press(const char* name)
    {
        auto* button = m_saver->findChild<QPushButton*>(QLatin1String(name));
        if (button)
            button->click();
        return button;
    }

private slots:
    void init()
    {
        for (const QFileInfo& old :
             QDir(m_folder.path()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            old.isDir() ? QDir(old.filePath()).removeRecursively() : QFile::remove(old.filePath());
        m_saver = std::make_unique<FileSaver>(FileSaver::Kind{
            QStringLiteral("Сохранение"), QStringLiteral("Таблицы (*.csv)"), QStringLiteral("csv")});
        m_answer = path("ЦДС.csv");
        m_opened.clear();
        m_opens = true;
        FileSaver::asking() = {[this](QWidget*, const FileSaver::Kind&, const QString& proposed) {
                                   m_proposed = proposed;
                                   return m_answer;
                               },
                               [this](const QUrl& url) {
                                   m_opened.append(url.toLocalFile());
                                   return m_opens;
                               }};
    }

    void saysThatItIsSavedAndOpensIt()
    {
        save("a;b", QStringLiteral("ЦДС 2026-11-21 ночь"));
        QCOMPARE(m_proposed, path("ЦДС 2026-11-21 ночь.csv"));
        QCOMPARE(content("ЦДС.csv"), QByteArray("a;b"));
        QVERIFY(m_saver->text().startsWith(QStringLiteral("Сохранено: «ЦДС.csv» в папке «")));
        QVERIFY(press("openButton"));
        QVERIFY(press("openFolderButton"));
        QCOMPARE(m_opened, (QStringList{path("ЦДС.csv"), m_folder.path()}));
        QVERIFY(press("closeButton"));
        QVERIFY(m_saver->isHidden());
    }

    void aCancelledQuestionSavesNothing()
    {
        m_answer.clear();
        save("a");
        QVERIFY(files().isEmpty() && m_saver->isHidden());
        m_answer = path("ЦДС.csv");
        m_saver->save(m_folder.path(), QString(), [](QByteArray*) { return false; });
        QVERIFY(files().isEmpty() && m_saver->isHidden());
    }

    void aFileThatExistsIsAskedAbout()
    {
        save("former");
        m_answer = path("ЦДС"); // the suffix makes it the name of the existing file
        save("new");
        QCOMPARE(m_saver->text(), QStringLiteral("Файл «ЦДС.csv» уже есть. Заменить его?"));
        QCOMPARE(content("ЦДС.csv"), QByteArray("former"));
        m_answer = path("другой.csv");
        QVERIFY(press("elsewhereButton"));
        QCOMPARE(m_proposed, path("ЦДС.csv"));
        QCOMPARE(content("другой.csv"), QByteArray("new"));
        m_answer = path("ЦДС.csv");
        save("newest");
        QVERIFY(press("closeButton"));
        QCOMPARE(content("ЦДС.csv"), QByteArray("former"));
        save("newest");
        QVERIFY(press("replaceButton"));
        QCOMPARE(content("ЦДС.csv"), QByteArray("newest"));
        QCOMPARE(files().size(), 2);
    }

    void everyFileGetsItsSuffix()
    {
        m_answer = path("смена 21.11");
        save("a");
        QCOMPARE(files(), QStringList{QStringLiteral("смена 21.11.csv")});
    }

    void aFullDiskLeavesTheFormerFileWhole()
    {
        save("former");
        save("new");
        isDiskFull = true;
        press("replaceButton");
        isDiskFull = false;
        QCOMPARE(m_saver->text(), QStringLiteral("Файл «ЦДС.csv» не сохранён: на диске нет места."));
        QCOMPARE(content("ЦДС.csv"), QByteArray("former"));
        QCOMPARE(files().size(), 1); // no part of the new one
        m_answer = path("другой.csv");
        QVERIFY(press("elsewhereButton")); // the content is still there
        QCOMPARE(content("другой.csv"), QByteArray("new"));
    }

    void saysWhyAFileCannotBeWritten()
    {
        m_answer = path("нет/ЦДС.csv");
        save("a");
        QCOMPARE(m_saver->text(), QStringLiteral("Файл «ЦДС.csv» не сохранён: папки «нет» нет."));
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("папка.csv")));
        m_answer = path("папка.csv");
        save("a");
        QCOMPARE(m_saver->text(), QStringLiteral("Файл «папка.csv» не сохранён: так называется папка."));
        QVERIFY(files().isEmpty());
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("чужая")));
        QVERIFY(QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777)));
        QVERIFY(QFile::setPermissions(path("чужая"), QFile::Permissions(0x5555)));
        m_answer = path("чужая/ЦДС.csv");
        {
            const AsNobody nobody;
            save("a");
        }
        QCOMPARE(m_saver->text(),
                 QStringLiteral("Файл «ЦДС.csv» не сохранён: в папку «чужая» нельзя писать."));
    }

    void saysThatAFileCannotBeOpened()
    {
        save("a");
        m_opens = false;
        press("openButton");
        QCOMPARE(m_saver->text(), QStringLiteral("Не удалось открыть «ЦДС.csv»: для этого нет программы."));
        m_opens = true;
        QFile::remove(path("ЦДС.csv"));
        save("a");
        QFile::remove(path("ЦДС.csv"));
        press("openButton");
        QCOMPARE(m_saver->text(), QStringLiteral("«ЦДС.csv» больше нет."));
    }

    void namesAreMadeOfAnyText()
    {
        QCOMPARE(FileSaver::fileName(QStringLiteral("ЦДС 2026-11-21 ночь")),
                 QStringLiteral("ЦДС 2026-11-21 ночь"));
        QCOMPARE(FileSaver::fileName(QStringLiteral("../../etc/passwd")), QStringLiteral("etc passwd"));
        QCOMPARE(FileSaver::fileName(QStringLiteral("ПС \"Север\": <b>35/10</b>\n*?|")),
                 QStringLiteral("ПС Север b 35 10 b"));
        QCOMPARE(FileSaver::fileName(QStringLiteral(" ./. ")), QString());
        QVERIFY(FileSaver::fileName(QString(500, QChar(0x436))).toUtf8().size() <= 180);
        save("a", QStringLiteral("//"));
        QCOMPARE(m_proposed, path("Журнал.csv"));
    }
};

QTEST_MAIN(FileSaver_test)
#include "FileSaver_test.moc"
