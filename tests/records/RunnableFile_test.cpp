#include "RunnableFile.h"

#include <QTest>

class RunnableFile_test : public QObject
{
    Q_OBJECT

private slots:
    void namesOfPrograms_data()
    {
        QTest::addColumn<bool>("runs");
        for (const char* name : {"a.desktop", "A.DESKTOP", "install.sh", "x.py", "setup.exe", "run.bat",
                                 "a.jar", "tool.AppImage", "отчёт.pdf.exe", "report.docm", "link.lnk",
                                 "a.sh.", "a.sh ", ".desktop", "x\xE2\x80\xAEtxt.sh"})
            QTest::newRow(name) << true;
        for (const char* name : {"схема.pdf", "письмо.docx", "таблица.xlsx", "a.txt", "sh", "desktop",
                                 "фото.jpg", "без точки", "", ".", "exe.txt", "архив.zip"})
            QTest::newRow(*name ? name : "nothing") << false;
    }
    void namesOfPrograms()
    {
        QFETCH(bool, runs);
        const QString name = QString::fromUtf8(QTest::currentDataTag());
        QCOMPARE(RunnableFile::isName(name == QStringLiteral("nothing") ? QString() : name), runs);
    }

    void contentsOfPrograms_data()
    {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<bool>("runs");
        QTest::newRow("script") << QByteArray("#!/bin/sh\nrm") << true;
        QTest::newRow("script behind a mark") << QByteArray("\xEF\xBB\xBF#!/bin/sh") << true;
        QTest::newRow("program") << QByteArray("\x7F"
                                               "ELF\2\1")
                                 << true;
        QTest::newRow("foreign program") << QByteArray("MZ\x90") << true;
        QTest::newRow("class") << QByteArray("\xCA\xFE\xBA\xBE") << true;
        QTest::newRow("shortcut") << QByteArray("\x4C\0\0\0\1\x14\2\0", 8) << true;
        QTest::newRow("launcher") << QByteArray("[Desktop Entry]\nExec=rm") << true;
        QTest::newRow("older launcher") << QByteArray("[KDE Desktop Entry]\nExec=rm") << true;
        QTest::newRow("launcher behind comments") << QByteArray("# a\r\n\n  [Desktop Entry]\n") << true;
        QTest::newRow("text") << QByteArray("Схема [Desktop Entry]") << false;
        QTest::newRow("document") << QByteArray("%PDF-1.5") << false;
        QTest::newRow("archive") << QByteArray("PK\3\4") << false;
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("comment") << QByteArray("# heading\ntext") << false;
    }
    void contentsOfPrograms()
    {
        QFETCH(QByteArray, head);
        QFETCH(bool, runs);
        QCOMPARE(RunnableFile::isContent(head), runs);
    }
};

QTEST_MAIN(RunnableFile_test)
#include "RunnableFile_test.moc"
