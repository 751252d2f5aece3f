#include "AsNobody.h"
#include "CVrkCliApp.h"
#include "Desktop.h"
#include "LogWatch.h"
#include "RecordValue.h"
#include "TestJournal.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QUrl>

/// Attaching, opening, saving and deleting files in the pane of the journal page.
class LogBookWidget_files_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    struct Asked {
        QString title;
        QString path;
    };
    /// The desktop of a user whose answers the test sets.
    struct FakeDesktop {
        FakeDesktop() : m_real(Desktop::current())
        {
            Desktop::current() = {[this](QWidget*, const QString& title, const QString& folder) {
                                      asked.append({title, folder});
                                      return answer;
                                  },
                                  [this](QWidget*, const QString& title, const QString& path) {
                                      asked.append({title, path});
                                      return answer;
                                  },
                                  [this](const QUrl& url) { opened.append(url); }};
        }
        ~FakeDesktop() { Desktop::current() = m_real; }

        QString answer;
        QVector<Asked> asked;
        QList<QUrl> opened;

    private:
        Desktop m_real;
    };
    struct Pane {
        explicit Pane(const TestStore& store, const QString& login = QStringLiteral("petrov"))
            : journal(store, login)
        {
            journal.child<QTabWidget>("additionalTab")->setCurrentIndex(1);
        }
        QTableWidget* table() { return journal.child<QTableWidget>("filesTable"); }
        QToolButton* create() { return journal.child<QToolButton>("createFileButton"); }
        QToolButton* remove() { return journal.child<QToolButton>("deleteFileButton"); }
        QToolButton* save() { return journal.child<QToolButton>("saveFileButton"); }
        QString path(const QString& name) const { return folder.filePath(name); }
        QString make(const QString& name, const QByteArray& content)
        {
            QFile file(path(name));
            if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
                qFatal("no file for the test");
            return file.fileName();
        }
        void attach(const QString& file)
        {
            desktop.answer = file;
            QTest::mouseClick(create(), Qt::LeftButton);
        }
        void saveAs(const QString& file)
        {
            desktop.answer = file;
            QTest::mouseClick(save(), Qt::LeftButton);
        }
        void open(int row)
        {
            const QPoint place = table()->visualItemRect(table()->item(row, 0)).center();
            QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseDClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        }

        FakeDesktop desktop;
        QTemporaryDir folder;
        TestJournal journal;
    };

    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    static QVariantList stored(const TestStore& store, const QString& name)
    {
        return store
            .rows(QStringLiteral(
                      "SELECT KeyLink,WorkerKey,RecordKey,length(fileData),fileData FROM LogbookFiles "
                      "WHERE fileName='%1'")
                      .arg(name))
            .value(0);
    }
    static void putFile(const TestStore& store, const QString& name)
    {
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookFiles", ROW_INSERT, "FILE_PUT",
                                 {{"RecordKey", QByteArray("REC_ORDER")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"fileName", name},
                                  {"fileData", QByteArray("bytes")}}));
    }
    static void refuseWrites(const TestStore& store)
    {
        for (const char* operation : {"INSERT", "DELETE"})
            QCOMPARE(store.refuse(QLatin1String(operation), QStringLiteral("LogbookFiles")), QString());
    }
    void compareBox(Pane& pane, const QString& title, const QString& text, TMessageBoxIcon icon,
                    TMessageBoxType type)
    {
        CPopMessageBox* box = pane.journal.box();
        QVERIFY(box);
        QCOMPARE(box->title(), title);
        QCOMPARE(box->text(), text);
        QCOMPARE(box->icon(), icon);
        QCOMPARE(box->type(), type);
    }
    void compareError(Pane& pane, const QString& text, const QString& title = QStringLiteral("Ошибка"))
    {
        compareBox(pane, title, QStringLiteral("<center>%1</center>").arg(text), MessageIconError,
                   MessageTypeOk);
        pane.journal.press(QDialogButtonBox::AcceptRole);
        QVERIFY(!pane.journal.box());
    }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void attachesAFile()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        QCOMPARE(pane.table()->rowCount(), 0);
        QVERIFY(!pane.save()->isEnabled());
        pane.attach(pane.make(QStringLiteral("схема № 5.txt"), QByteArray("a\0b", 3)));
        QCOMPARE(pane.desktop.asked.size(), 1);
        QCOMPARE(pane.desktop.asked[0].title, QStringLiteral("Выбор файла"));
        QCOMPARE(pane.desktop.asked[0].path,
                 QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
        const QVariantList row = stored(store, QStringLiteral("схема № 5.txt"));
        QCOMPARE(row.value(0).toString().size(), 32);
        QCOMPARE(row.value(1).toString(), QStringLiteral("WORKER_PETROV"));
        QCOMPARE(row.value(2).toString(), QStringLiteral("REC_ORDER"));
        QCOMPARE(row.value(4).toByteArray(), QByteArray("a\0b", 3));
        QCOMPARE(pane.table()->rowCount(), 0); // until the event comes
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("601 LogbookFiles 1")});
        QCOMPARE(pane.table()->rowCount(), 1);
        QVERIFY(pane.remove()->isEnabled() && pane.save()->isEnabled());
        QVERIFY(isSet(Row(pane.journal.record("REC_ORDER")).value("file")));
        pane.open(0); // the bytes are fetched from the store on demand
        QCOMPARE(read(pane.desktop.opened.value(0).toLocalFile()), QByteArray("a\0b", 3));
    }

    void attachesNothingWithoutAFileOrARecord()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.attach(QString());
        QVERIFY(!pane.journal.box());
        pane.journal.view()->setCurrentIndex(QModelIndex());
        QVERIFY(!pane.create()->isEnabled());
        emit pane.create()->clicked();
        QCOMPARE(pane.desktop.asked.size(), 1);
        QCOMPARE(pane.journal.deliver(), QStringList());
    }

    void aFileThatCouldRunIsAskedAboutFirst_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("launcher") << QStringLiteral("a.desktop") << QByteArray("x");
        QTest::newRow("script without a suffix") << QStringLiteral("отчёт") << QByteArray("#!/bin/sh");
        QTest::newRow("launcher of a name with a hidden sign")
            << QStringLiteral("a\u00AD.desktop") << QByteArray("x");
        QTest::newRow("program called a picture") << QStringLiteral("<b>.png")
                                                  << QByteArray("\x7F"
                                                                "ELF");
    }
    void aFileThatCouldRunIsAskedAboutFirst()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.attach(pane.make(name, content));
        pane.journal.deliver();
        const QString question =
            QStringLiteral("<center>Файл «%1» может выполниться как программа. Открыть его?"
                           "</center>")
                .arg(QString(name).remove(QChar(QChar::SoftHyphen)).toHtmlEscaped());
        pane.open(0);
        QVERIFY(pane.desktop.opened.isEmpty());
        compareBox(pane, QStringLiteral("Открытие файла"), question, MessageIconWarning, MessageTypeYesNo);
        pane.journal.press(QDialogButtonBox::NoRole);
        QVERIFY(pane.desktop.opened.isEmpty());
        pane.open(0);
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(read(pane.desktop.opened.value(0).toLocalFile()), content);

        // The same after saving, with the question whether to open it at all.
        pane.saveAs(pane.path(QStringLiteral("saved") + QFileInfo(name).suffix().prepend(u'.')));
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(pane.desktop.opened.size(), 1);
        QVERIFY(pane.journal.box());
        QCOMPARE(pane.journal.box()->icon(), MessageIconWarning);
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(pane.desktop.opened.size(), 2);
    }

    void attachesAnEmptyFile()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.attach(pane.make(QStringLiteral("empty.txt"), QByteArray()));
        QCOMPARE(stored(store, QStringLiteral("empty.txt")).value(3), QVariant(0));
        pane.journal.deliver();
        pane.saveAs(pane.path(QStringLiteral("copy.txt")));
        QCOMPARE(read(pane.path(QStringLiteral("copy.txt"))), QByteArray());
        pane.journal.press(QDialogButtonBox::NoRole);
        pane.open(0);
        QCOMPARE(read(pane.desktop.opened.value(0).toLocalFile()), QByteArray());
    }

    void attachesFiveMegabytesAndNotAByteMore()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.attach(pane.make(QStringLiteral("limit.bin"), QByteArray(5242880, 'x')));
        QVERIFY(!pane.journal.box());
        QCOMPARE(stored(store, QStringLiteral("limit.bin")).value(3).toInt(), 5242880);
        pane.attach(pane.make(QStringLiteral("more.bin"), QByteArray(5242881, 'x')));
        compareError(pane,
                     QStringLiteral("Размер файла слишком большой!<br/><br/>Выберете файл с размером не "
                                    "более 5 МБ."));
        QVERIFY(stored(store, QStringLiteral("more.bin")).isEmpty());
        pane.attach(QStringLiteral("/dev/zero")); // reports no size
        compareError(pane,
                     QStringLiteral("Размер файла слишком большой!<br/><br/>Выберете файл с размером не "
                                    "более 5 МБ."));
    }

    void aFileThatIsTooLargeIsNotEvenOpened()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        const QTemporaryDir folder(QStringLiteral("/tmp/XXXXXX"));
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
        QFile file(folder.filePath(QStringLiteral("secret.bin")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(5242881));
        QVERIFY(file.setPermissions(QFile::Permissions()));
        {
            const AsNobody nobody;
            pane.attach(file.fileName());
        }
        compareError(pane,
                     QStringLiteral("Размер файла слишком большой!<br/><br/>Выберете файл с размером не "
                                    "более 5 МБ."));
    }

    void logsAFileThatCannotBeRead()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        const QString file = pane.path(QStringLiteral("%1 нет.txt"));
        pane.attach(file);
        QCOMPARE(m_log->take(),
                 QStringList{QStringLiteral("void LogBookWidget::createFileRequest() could not open file ") +
                             file + QStringLiteral(" for read!")});
        pane.attach(pane.folder.path());
        QCOMPARE(m_log->take(QStringLiteral("could not open file")).size(), 1);
        QVERIFY(!pane.journal.box());
    }

    void writesAnUnderscoreForWhatTheCodePageLacks()
    {
        const TestStore store;
        Pane pane(store);
        QSignalSpy notices(&pane.journal.client().app(), &CVrkCliApp::textAdjusted);
        pane.journal.select("REC_ORDER");
        pane.attach(pane.make(QStringLiteral("図 схема.txt"), "x"));
        QVERIFY(!stored(store, QStringLiteral("_ схема.txt")).isEmpty());
        QCOMPARE(notices.count(), 1);
        QCOMPARE(notices.at(0).at(0).toString(),
                 QStringLiteral("Имя файла записано как «_ схема.txt»: в журнале нет некоторых его знаков."));
        pane.attach(pane.make(QStringLiteral("схема.txt"), "x"));
        QCOMPARE(notices.count(), 1);
    }

    void attachesAFileOfALongName()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        const QString name =
            // the longest name that a disk accepts
            QStringLiteral("ж").repeated(120) + QStringLiteral(".pdf");
        pane.attach(pane.make(name, "x"));
        QCOMPARE(stored(store, name).value(2).toString(), QStringLiteral("REC_ORDER"));
        pane.journal.deliver();
        QCOMPARE(pane.table()->item(0, 0)->text(), name);
    }

    void attachesToTheRecordThatWasCurrentBefore()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_DRAFT_PETROV");
        const QString file = pane.make(QStringLiteral("late.txt"), "x");
        Desktop::current().askOpenFile = [&](QWidget*, const QString&, const QString&) {
            pane.journal.select("REC_ORDER");
            return file;
        };
        QTest::mouseClick(pane.create(), Qt::LeftButton);
        QCOMPARE(stored(store, QStringLiteral("late.txt")).value(2).toString(),
                 QStringLiteral("REC_DRAFT_PETROV"));
    }

    void opensACopyInAPrivateFolderThatGoesWithThePage()
    {
        const TestStore store;
        QString path;
        {
            Pane pane(store);
            pane.journal.select("REC_TRIP");
            pane.open(0);
            QCOMPARE(pane.desktop.opened.size(), 1);
            QVERIFY(pane.desktop.opened[0].isLocalFile());
            path = pane.desktop.opened[0].toLocalFile();
            QCOMPARE(QFileInfo(path).fileName(), QStringLiteral("осциллограмма.txt"));
            QVERIFY(path.startsWith(QDir::tempPath() + QLatin1Char('/')));
            QVERIFY(QFileInfo(path).absolutePath() != QDir::tempPath());
            QVERIFY(read(path).startsWith("t;Ia;Ib;Ic"));
            const QFileInfo top(QFileInfo(path).absolutePath() + QStringLiteral("/.."));
            QVERIFY(!(top.permissions() & (QFile::ReadOther | QFile::ReadGroup | QFile::WriteOther)));
            pane.open(0); // a second copy, since a program may have changed the first
            QVERIFY(pane.desktop.opened[1].toLocalFile() != path);
        }
        QVERIFY(!QFileInfo::exists(path));
        QVERIFY(!QFileInfo::exists(QFileInfo(path).absolutePath()));
    }

    void opensFilesOfHostileNamesInItsOwnFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("local");
        QTest::newRow("upwards") << QStringLiteral("../../x") << QStringLiteral("x");
        QTest::newRow("absolute") << QStringLiteral("/tmp/logbook_absolute.txt")
                                  << QStringLiteral("logbook_absolute.txt");
        QTest::newRow("the parent") << QStringLiteral("..") << QStringLiteral("file");
        QTest::newRow("no dot") << QStringLiteral("файл") << QStringLiteral("файл");
        QTest::newRow("dot at the end") << QStringLiteral("файл.") << QStringLiteral("файл.");
        QTest::newRow("suffix upwards") << QStringLiteral("x./../../y") << QStringLiteral("y");
        QTest::newRow("empty") << QString() << QStringLiteral("file");
    }
    void opensFilesOfHostileNamesInItsOwnFolder()
    {
        QFETCH(QString, name);
        QFETCH(QString, local);
        const TestStore store;
        putFile(store, name);
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        QCOMPARE(pane.table()->item(0, 0)->text(), name);
        pane.open(0);
        const QString path = pane.desktop.opened.value(0).toLocalFile();
        QCOMPARE(QFileInfo(path).fileName(), local);
        QCOMPARE(QDir::cleanPath(path), path);
        QVERIFY(path.startsWith(QDir::tempPath() + QStringLiteral("/logbook-")));
        QCOMPARE(read(path), QByteArray("bytes"));
        QVERIFY(!QFileInfo::exists(QStringLiteral("/tmp/logbook_absolute.txt")));

        pane.saveAs(QString());
        QCOMPARE(pane.desktop.asked.last().path,
                 QStandardPaths::writableLocation(QStandardPaths::DesktopLocation) + QLatin1Char('/') +
                     local);
        compareError(pane, QStringLiteral("Некорректный путь для сохранения файла!"));
    }

    void opensAFileOfALongName()
    {
        const TestStore store;
        putFile(store, QStringLiteral("ж").repeated(300) + QStringLiteral(".pdf"));
        Pane pane(store);
        pane.journal.select("REC_ORDER");
        pane.open(0);
        QCOMPARE(read(pane.desktop.opened.value(0).toLocalFile()), QByteArray("bytes"));
        QVERIFY(pane.desktop.opened[0].toLocalFile().endsWith(QStringLiteral("ж.pdf")));
    }

    void reportsAFileThatTheStoreDoesNotReturn()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QCOMPARE(store.dropTables({QStringLiteral("LogbookFiles")}), QString());
        pane.open(0);
        QVERIFY(pane.desktop.opened.isEmpty());
        m_log->take(QStringLiteral("CVrkCliSes"));
        compareError(pane, QStringLiteral("Не удалось открыть файл!"));
        pane.saveAs(pane.path(QStringLiteral("copy.txt")));
        m_log->take(QStringLiteral("CVrkCliSes"));
        compareError(pane, QStringLiteral("Не удалось сохранить файл!"));
        QVERIFY(!QFileInfo::exists(pane.path(QStringLiteral("copy.txt"))));
    }

    void saysThatAFileCannotBeOpenedWithoutATemporaryFolder()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        const QByteArray before = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(pane.make(QStringLiteral("no folder"), "x")));
        pane.open(0);
        qputenv("TMPDIR", before.isEmpty() ? QByteArray("/tmp") : before);
        QVERIFY(pane.desktop.opened.isEmpty());
        compareError(pane, QStringLiteral("Не удалось открыть файл!"));
        pane.open(0); // and tries again
        QCOMPARE(pane.desktop.opened.size(), 1);
    }

    void savesAndOpensTheSavedFile()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        const QString copy = pane.path(QStringLiteral("копия.txt"));
        pane.saveAs(copy);
        QCOMPARE(pane.desktop.asked[0].title, QStringLiteral("Сохранение файла"));
        QCOMPARE(pane.desktop.asked[0].path,
                 QStandardPaths::writableLocation(QStandardPaths::DesktopLocation) +
                     QStringLiteral("/осциллограмма.txt"));
        QVERIFY(read(copy).startsWith("t;Ia;Ib;Ic"));
        QCOMPARE(pane.journal.tab().property("saved_from_logbook").toString(), copy);
        compareBox(pane, QStringLiteral("Открытие файла"),
                   QStringLiteral("Открыть файл, который был сохранен?"), MessageIconQuestion,
                   MessageTypeYesNo);
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(pane.desktop.opened, QList<QUrl>{QUrl::fromLocalFile(copy)});
        QCOMPARE(pane.journal.tab().property("saved_from_logbook").toString(), QString());
        QVERIFY(!pane.journal.box());

        pane.saveAs(copy);
        pane.journal.press(QDialogButtonBox::NoRole);
        QCOMPARE(pane.desktop.opened.size(), 1);
        QCOMPARE(pane.journal.tab().property("saved_from_logbook").toString(), QString());

        pane.saveAs(copy);
        pane.journal.box()->close();
        QCOMPARE(pane.journal.tab().property("saved_from_logbook").toString(), copy); // no answer, no change
    }

    void saysThatTheSavedFileIsGone()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        pane.saveAs(pane.path(QStringLiteral("копия.txt")));
        QVERIFY(QFile::remove(pane.path(QStringLiteral("копия.txt"))));
        pane.journal.press(QDialogButtonBox::YesRole);
        compareError(pane, QStringLiteral("Не удалось открыть файл!"),
                     QStringLiteral("Ошибка открытия файла"));
        QVERIFY(pane.desktop.opened.isEmpty());
    }

    void saysThatAFileCannotBeSaved()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        pane.saveAs(pane.path(QStringLiteral("nowhere/копия.txt")));
        compareError(pane, QStringLiteral("Не удалось сохранить файл!"));
        QVERIFY(!pane.journal.tab().property("saved_from_logbook").isValid());
    }

    void deletesAfterAQuestion()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        pane.table()->selectRow(1);
        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        compareBox(pane, QStringLiteral("Удаление файла"),
                   QStringLiteral("<center>Вы действительно хотите удалить файл?</center>"),
                   MessageIconQuestion, MessageTypeYesNo);
        pane.journal.press(QDialogButtonBox::NoRole);
        QCOMPARE(pane.journal.deliver(), QStringList());
        pane.table()->setFocus();
        QTest::keyClick(pane.table(), Qt::Key_Delete);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookFiles", ROW_INSERT,
                                 "NEW",
                                 {{"RecordKey", QByteArray("REC_TRIP")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"fileName", QStringLiteral("new.txt")},
                                  {"fileData", QByteArray("x")}}));
        pane.journal.deliver(); // and the list is refilled in the meantime
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(pane.journal.deliver(), QStringList{QStringLiteral("603 LogbookFiles 1")});
        QCOMPARE(pane.table()->rowCount(), 2);
        QCOMPARE(pane.table()->item(0, 0)->text(), QStringLiteral("осциллограмма.txt"));
        QCOMPARE(pane.table()->item(1, 0)->text(), QStringLiteral("new.txt"));
    }

    void letsOnlyTheOneWhoAttachedAFileDeleteIt()
    {
        const TestStore store;
        Pane pane(store, QStringLiteral("ivanov"));
        pane.journal.select("REC_TRIP");
        QVERIFY(!pane.remove()->isEnabled());
        QVERIFY(pane.save()->isEnabled() && pane.create()->isEnabled());
        pane.table()->setFocus();
        QTest::keyClick(pane.table(), Qt::Key_Delete);
        QVERIFY(!pane.journal.box()); // and the record stays, too
    }

    void offersNoChangeOnADeletedRecord()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        QVERIFY(pane.remove()->isEnabled());
        pane.journal.tab().deleteRecordRequest();
        pane.journal.press(QDialogButtonBox::YesRole);
        pane.journal.deliver();
        QVERIFY(!pane.create()->isEnabled() && !pane.remove()->isEnabled());
        QVERIFY(pane.save()->isEnabled());
        pane.open(0);
        QCOMPARE(pane.desktop.opened.size(), 1);
    }

    void savesNothingWithoutARow()
    {
        const TestStore store;
        Pane pane(store);
        pane.journal.select("REC_TRIP");
        pane.table()->setCurrentCell(-1, -1);
        QVERIFY(!pane.save()->isEnabled() && !pane.remove()->isEnabled());
        emit pane.save()->clicked();
        QVERIFY(pane.desktop.asked.isEmpty());
    }

    void saysWhatFailed()
    {
        const TestStore store;
        Pane pane(store);
        refuseWrites(store);
        pane.journal.select("REC_TRIP");
        pane.attach(pane.make(QStringLiteral("%1.txt"), "x"));
        const QString line = m_log->take(QStringLiteral("createFileRequest")).value(0);
        const QRegularExpression pattern(QStringLiteral(
            "^void LogBookWidget::createFileRequest\\(\\) error save file in LogbookFiles! Func SqlUpdate "
            "returned "
            "FALSE! Data: KeyLink\\([0-9A-F]{32}\\),recordKey\\(REC_TRIP\\),fileName\\(%1.txt\\)$"));
        QVERIFY2(pattern.match(line).hasMatch(), qPrintable(line));
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        compareError(pane, QStringLiteral("Не удалось загрузить файл"));

        QTest::mouseClick(pane.remove(), Qt::LeftButton);
        pane.journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(
            m_log->take(QStringLiteral("LogBookWidget")),
            QStringList{QStringLiteral("void LogBookWidget::deleteFileAnswer(QAbstractButton*) error delete "
                                       "file from LogbookFiles! Func SqlUpdate returned FALSE! Data: "
                                       "KeyLink(FILE_TEXT)")});
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        compareError(pane, QStringLiteral("Не удалось удалить файл!"));
        QCOMPARE(pane.journal.deliver(), QStringList());
    }

    void showsTheOthersFileAtOnce()
    {
        const TestStore store;
        Pane author(store);
        TestJournal reader(store);
        author.journal.select("REC_ORDER");
        reader.select("REC_ORDER");
        author.attach(author.make(QStringLiteral("общий.txt"), "x"));
        reader.deliver();
        QCOMPARE(reader.child<QTableWidget>("filesTable")->rowCount(), 1);
        QVERIFY(!reader.child<QToolButton>("deleteFileButton")->isEnabled());
    }
};

QTEST_MAIN(LogBookWidget_files_test)
#include "LogBookWidget_files_test.moc"
