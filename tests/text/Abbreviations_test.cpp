#include "Abbreviations.h"

#include "CreatorBench.h"
#include "StoreAdmin.h"
#include "TestFolder.h"
#include "Typing.h"
#include "UserSettings.h"

#include <QPlainTextEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

/// Abbreviations typed into real editors.
class Abbreviations_test : public QObject
{
    Q_OBJECT

private:
    template <class Editor>
    struct Desk {
        Desk()
        {
            guard.setAll({{QStringLiteral("откл."), QStringLiteral("отключён")},
                          {QStringLiteral("пс"), QStringLiteral("подстанция")},
                          {QStringLiteral("т.к."), QStringLiteral("так как")},
                          {QStringLiteral("в-110"), QStringLiteral("выключатель 110 кВ")}});
            window.resize(500, 200);
            edit.resize(400, 150);
            window.show();
            QApplication::setActiveWindow(&window);
            edit.setFocus();
        }
        QString typed(const char* text)
        {
            edit.clear();
            typeText(&edit, QString::fromUtf8(text));
            return edit.toPlainText();
        }

        CVrkCliApp app;
        Abbreviations guard{&app};
        QWidget window;
        Editor edit{&window};
    };

    QTemporaryDir m_folder{testFolderTemplate()};

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    }
    void init() { QSettings().clear(); }

    void aBlankOrAMarkUnfolds_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char* typed, const char* shown) {
            QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(shown);
        };
        row("Т-1 откл. ", "Т-1 отключён ");
        row("откл.", "откл.");
        row("откл.в", "откл.в");
        row("откл.,", "отключён,");
        row("(откл.)", "(отключён)");
        row("Откл. Т-1", "Отключён Т-1");
        row("ОТКЛ. ", "ОТКЛ. ");
        row("пс. ", "подстанция. ");
        row("пс-1 пс1 ", "пс-1 пс1 ");
        row("опс Зпс -пс ", "опс Зпс -пс ");
        row("так, т.к. ", "так, так как ");
        row("в-110 ", "выключатель 110 кВ ");
        row("нет таких слов. ", "нет таких слов. ");
    }
    void aBlankOrAMarkUnfolds()
    {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        Desk<QPlainTextEdit> plain;
        QCOMPARE(plain.typed(typed.toUtf8().constData()), shown);
        Desk<QTextEdit> rich;
        QCOMPARE(rich.typed(typed.toUtf8().constData()), shown);
    }

    void oneUndoBringsTheAbbreviationBack()
    {
        Desk<QPlainTextEdit> desk;
        QCOMPARE(desk.typed("Т-1 откл. и"), QStringLiteral("Т-1 отключён и"));
        desk.typed("Т-1 откл. ");
        QTest::keyClick(&desk.edit, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("Т-1 откл. "));
        desk.edit.moveCursor(QTextCursor::End);
        typeText(&desk.edit, QStringLiteral("сам "));
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("Т-1 откл. сам "));
    }

    void theRestOfTheTextStays()
    {
        Desk<QPlainTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("первая\nВЛ откл.линия"));
        QTextCursor cursor = desk.edit.textCursor();
        cursor.setPosition(15);
        desk.edit.setTextCursor(cursor);
        typeText(&desk.edit, QStringLiteral(" "));
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("первая\nВЛ отключён линия"));
        typeText(&desk.edit, QStringLiteral("х"));
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("первая\nВЛ отключён хлиния"));
    }

    void aLongerAbbreviationIsWaitedFor()
    {
        Desk<QPlainTextEdit> desk;
        desk.guard.setAll({{QStringLiteral("откл"), QStringLiteral("отключить")},
                           {QStringLiteral("откл."), QStringLiteral("отключён")}});
        QCOMPARE(desk.typed("откл откл. откл, "), QStringLiteral("отключить отключён отключить, "));
    }

    void theUserSwitchesItOff()
    {
        Desk<QPlainTextEdit> desk;
        desk.app.settings()->setValue(::Setting::abbreviations, false);
        QCOMPARE(desk.typed("откл. "), QStringLiteral("откл. "));
        desk.app.settings()->setValue(::Setting::abbreviations, true);
        QCOMPARE(desk.typed("откл. "), QStringLiteral("отключён "));
    }

    void aReadOnlyTextStays()
    {
        Desk<QPlainTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("откл."));
        desk.edit.moveCursor(QTextCursor::End);
        desk.edit.setReadOnly(true);
        typeText(&desk.edit, QStringLiteral(" "));
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("откл."));
    }

    void theListOfTheSiteIsUsedInTheRecordWindow()
    {
        const TestStore store;
        StoreError error;
        QVERIFY(StoreAdmin::putFile(store.url(), QStringLiteral("words"), QStringLiteral("abbreviations"),
                                    QStringLiteral("откл.\tотключён\nплохая строка\n").toUtf8(), &error));
        CreatorBench bench(store);
        Abbreviations guard(&bench.client.app());
        bench.create();
        bench.choose("TPL_ORDER");
        auto* edit = bench.dialog->findChild<QPlainTextEdit*>();
        QVERIFY(edit);
        QApplication::setActiveWindow(bench.dialog);
        edit->clearFocus();
        edit->setFocus();
        QTRY_COMPARE(guard.all().size(), 1);
        edit->clear();
        typeText(edit, QStringLiteral("Т-1 откл. "));
        QCOMPARE(edit->toPlainText(), QStringLiteral("Т-1 отключён "));
    }
};

QTEST_MAIN(Abbreviations_test)
#include "Abbreviations_test.moc"
