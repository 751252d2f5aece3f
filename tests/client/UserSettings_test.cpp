#include "UserSettings.h"

#include "TestFolder.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <sys/wait.h>
#include <unistd.h>

/// What a person has chosen, in a real settings file.
class UserSettings_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    }
    void init() { QSettings().clear(); }

    void aChosenValueOutlivesTheProgram()
    {
        {
            UserSettings settings;
            settings.setUser(QStringLiteral("ivanov"));
            const QSignalSpy changed(&settings, &UserSettings::changed);
            QVERIFY(settings.setValue(Setting::reportFolder, m_folder.path()));
            QVERIFY(settings.setValue(Setting::reportFolder, m_folder.path()));
            QCOMPARE(changed.size(), 1);
        }
        UserSettings later;
        later.setUser(QStringLiteral("ivanov"));
        QCOMPARE(later.value(Setting::reportFolder).toString(), m_folder.path());
    }
    void everyLoginHasItsOwn()
    {
        UserSettings settings;
        settings.setUser(QStringLiteral("ivanov/a"));
        settings.setValue(Setting::reportFolder, m_folder.path());
        const QSignalSpy changed(&settings, &UserSettings::changed);
        settings.setUser(QStringLiteral("petrov"));
        QCOMPARE(settings.value(Setting::reportFolder).toString(), QString());
        QCOMPARE(changed.size(), 1);
        settings.setUser(QStringLiteral("ivanov/a"));
        QCOMPARE(settings.value(Setting::reportFolder).toString(), m_folder.path());
    }
    void reportsGoToTheDocumentsAtFirst()
    {
        const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        UserSettings settings;
        QCOMPARE(settings.reportFolder(), QDir(documents).exists() ? documents : QDir::homePath());
        settings.setValue(Setting::reportFolder, m_folder.path());
        QCOMPARE(settings.reportFolder(), m_folder.path());
    }
    void aMissingReportFolderIsNotUsed()
    {
        UserSettings settings;
        settings.setValue(Setting::reportFolder, m_folder.filePath(QStringLiteral("gone")));
        QVERIFY(QDir(settings.reportFolder()).exists());
    }
    void anUnknownNameHasNoValue()
    {
        UserSettings settings;
        QVERIFY(!settings.value("nothing").isValid());
        QVERIFY(settings.setValue("nothing", 1));
        QVERIFY(QSettings().allKeys().isEmpty());
    }
    void aDamagedFileGivesTheDefaults()
    {
        UserSettings settings;
        settings.setUser(QStringLiteral("ivanov"));
        settings.setValue(Setting::reportFolder, m_folder.path());
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[users\n\x00\xff=@Variant(\x7f\n[[[%%%\nivanov\\reports", 38));
        file.close();
        UserSettings later;
        later.setUser(QStringLiteral("ivanov"));
        for (const char* name : UserSettings::names())
            QCOMPARE(later.value(name), UserSettings::defaultValue(name));
        QVERIFY(later.setValue(Setting::reportFolder, m_folder.path()));
        QCOMPARE(later.reportFolder(), m_folder.path());
    }
    void impossibleValuesReadAsTheDefaults_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("theme") << QByteArray(Setting::theme) << QVariant(QStringLiteral("pink"));
        QTest::newRow("no yes or no")
            << QByteArray(Setting::noticeShift) << QVariant(QStringLiteral("perhaps"));
        QTest::newRow("no time") << QByteArray(Setting::quietFrom) << QVariant(QStringLiteral("25:99"));
        QTest::newRow("no number") << QByteArray(Setting::letters) << QVariant(QStringLiteral("large"));
        QTest::newRow("too large") << QByteArray(Setting::letters) << QVariant(1000000);
        QTest::newRow("negative") << QByteArray(Setting::letters) << QVariant(-100);
    }
    void impossibleValuesReadAsTheDefaults()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, value);
        QSettings().setValue(QString::fromLatin1(name), value);
        UserSettings settings;
        QCOMPARE(settings.value(name), UserSettings::defaultValue(name));
        settings.setValue(name, value);
        QCOMPARE(settings.value(name), UserSettings::defaultValue(name));
    }
    void theLookStaysForTheSignIn()
    {
        UserSettings settings;
        settings.setUser(QStringLiteral("ivanov"));
        settings.setValue(Setting::letters, 150);
        settings.setValue(Setting::reportFolder, m_folder.path());
        UserSettings later;
        QCOMPARE(later.value(Setting::letters).toInt(), 150);
        QCOMPARE(later.value(Setting::reportFolder).toString(), QString());
        later.setUser(QStringLiteral("petrov"));
        later.setValue(Setting::letters, 100);
        later.setUser(QStringLiteral("ivanov"));
        QCOMPARE(later.value(Setting::letters).toInt(), 150);
    }
    void twoProgramsKeepEachOthersSettings()
    {
        UserSettings settings;
        settings.setUser(QStringLiteral("ivanov"));
        settings.setValue(Setting::reportFolder, QStringLiteral("/first"));
        const pid_t other = fork();
        if (other == 0) {
            UserSettings theirs;
            theirs.setUser(QStringLiteral("petrov"));
            theirs.setValue(Setting::reportFolder, QStringLiteral("/second"));
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(other, &status, 0), other);
        settings.setValue(Setting::reportFolder, QStringLiteral("/third"));
        UserSettings later;
        later.setUser(QStringLiteral("petrov"));
        QCOMPARE(later.value(Setting::reportFolder).toString(), QStringLiteral("/second"));
        later.setUser(QStringLiteral("ivanov"));
        QCOMPARE(later.value(Setting::reportFolder).toString(), QStringLiteral("/third"));
    }
    void anUnwrittenChangeAppliesAndIsReported()
    {
        const QString place = m_folder.filePath(QStringLiteral("nofolder"));
        QFile file(place);
        QVERIFY(file.open(QIODevice::WriteOnly)); // a file where the folder of settings must be
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, place);
        UserSettings settings;
        QVERIFY(!settings.setValue(Setting::reportFolder, m_folder.path()));
        QVERIFY(settings.errorText().contains(place));
        QCOMPARE(settings.reportFolder(), m_folder.path());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    }

private:
    QTemporaryDir m_folder{testFolderTemplate()};
};

QTEST_GUILESS_MAIN(UserSettings_test)
#include "UserSettings_test.moc"
