#include "CommentCreatorDialog.h"

#include "NoticeBar.h"

#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

class CommentCreatorDialog_test : public QObject
{
    Q_OBJECT

private:
    struct Fixture {
        Fixture()
        {
            window.resize(700, 600);
            window.show();
            if (!QTest::qWaitForWindowActive(&window)) // before the dialog requests the same
                qFatal("the window does not show");
        }
        QTextEdit* edit() { return dialog.findChild<QTextEdit*>(QStringLiteral("commentEdit")); }
        NoticeBar* notice() { return dialog.findChild<NoticeBar*>(QStringLiteral("warningBar")); }
        NoticeBar* keptBar() { return dialog.findChild<NoticeBar*>(QStringLiteral("keptBar")); }
        QPushButton* button(const char* name) { return dialog.findChild<QPushButton*>(QLatin1String(name)); }
        QPushButton* apply() { return dialog.findChild<QPushButton*>(QStringLiteral("applyButton")); }
        QPushButton* cancel() { return dialog.findChild<QPushButton*>(QStringLiteral("cancelButton")); }

        QMainWindow window;
        CommentCreatorDialog dialog{&window, -1};
        QSignalSpy changed{&dialog, &CommentCreatorDialog::commentChanged};
    };

private slots:
    void showsItsFormInTheMiddle()
    {
        Fixture f;
        QCOMPARE(f.dialog.windowTitle(), QStringLiteral("Комментарий записи ОЖ"));
        QVERIFY(!f.dialog.windowIcon().isNull());
        QCOMPARE(f.apply()->text(), QStringLiteral("Применить"));
        QCOMPARE(f.cancel()->text(), QStringLiteral("Отмена"));
        f.dialog.show();
        QCOMPARE(f.dialog.size(), QSize(600, 400));
        QVERIFY((f.dialog.geometry().center() - f.window.geometry().center()).manhattanLength() <= 2);
        QTRY_VERIFY(f.edit()->hasFocus());
    }

    void appliesATextOnlyAfterAChange()
    {
        Fixture f;
        f.dialog.setCommentKey(QStringLiteral("C1"));
        f.dialog.setText(QStringLiteral("Старый"));
        f.dialog.show();
        QVERIFY(!f.apply()->isEnabled());
        QCOMPARE(f.edit()->textCursor().position(), 6);
        QTest::keyClicks(f.edit(), QStringLiteral("!"));
        QVERIFY(f.apply()->isEnabled());
        QTest::mouseClick(f.apply(), Qt::LeftButton);
        QVERIFY(!f.dialog.isVisible());
        QCOMPARE(f.changed.count(), 1);
        QCOMPARE(f.changed.at(0), QVariantList({QStringLiteral("C1"), QStringLiteral("Старый!")}));

        f.dialog.show();
        QVERIFY(!f.apply()->isEnabled()); // each time it is shown
    }

    void doesNotApplyAnEmptiedText()
    {
        Fixture f;
        f.dialog.setText(QStringLiteral("a"));
        f.dialog.show();
        QTest::keyClick(f.edit(), Qt::Key_Backspace);
        QVERIFY(!f.apply()->isEnabled());
        QTest::keyClick(f.edit(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(f.changed.count(), 0);
        QVERIFY(f.dialog.isVisible());
    }

    void forgetsTheTextButNotTheKey()
    {
        Fixture f;
        f.dialog.setCommentKey(QStringLiteral("C1"));
        f.dialog.setText(QStringLiteral("Старый"));
        f.dialog.clear();
        f.dialog.show();
        QCOMPARE(f.edit()->toPlainText(), QString());
        QVERIFY(!f.apply()->isEnabled());
        QTest::keyClicks(f.edit(), QStringLiteral("new"));
        f.apply()->click();
        QCOMPARE(f.changed.at(0).at(0).toString(), QStringLiteral("C1"));
    }

    void leavesByCancelAndByEscape()
    {
        Fixture f;
        f.dialog.show();
        QTest::keyClicks(f.edit(), QStringLiteral("a"));
        QTest::mouseClick(f.cancel(), Qt::LeftButton);
        QVERIFY(!f.dialog.isVisible());
        f.dialog.show();
        QTest::keyClick(f.edit(), Qt::Key_Escape);
        QVERIFY(!f.dialog.isVisible());
        QCOMPARE(f.changed.count(), 0);
    }

    void announcesAReplacementAndOffersANewComment()
    {
        Fixture f;
        f.dialog.setCommentKey(QStringLiteral("C1"));
        f.dialog.warn(QStringLiteral("Заменит"));
        f.dialog.show();
        QVERIFY(f.notice()->isVisible());
        QCOMPARE(f.notice()->text(), QStringLiteral("Заменит"));
        QTest::keyClicks(f.edit(), QStringLiteral("a"));
        QTest::mouseClick(f.button("asNewButton"), Qt::LeftButton);
        QVERIFY(!f.notice()->isVisible());
        QCOMPARE(f.edit()->toPlainText(), QStringLiteral("a")); // typed text is not lost
        f.apply()->click();
        QCOMPARE(f.changed.at(0), QVariantList({QString(), QStringLiteral("a")}));
        f.dialog.warn(QString());
        f.dialog.show();
        QVERIFY(!f.notice()->isVisible());
    }

    void offersATextThatWasNotWrittenUntilItIs()
    {
        Fixture f;
        f.dialog.keep(QStringLiteral("Первый"));
        f.dialog.keep(QStringLiteral("Второй"));
        f.dialog.show();
        QCOMPARE(f.keptBar()->text(), QStringLiteral("Прошлый текст записать не удалось."));
        QTest::mouseClick(f.button("takeKeptButton"), Qt::LeftButton);
        QCOMPARE(f.edit()->toPlainText(), QStringLiteral("Второй"));
        QVERIFY(f.apply()->isEnabled());
        QVERIFY(!f.notice()->isVisible());
        f.cancel()->click(); // not written: offered again
        f.dialog.clear();
        f.dialog.show();
        QTest::mouseClick(f.button("takeKeptButton"), Qt::LeftButton);
        QCOMPARE(f.edit()->toPlainText(), QStringLiteral("Второй"));
        f.apply()->click();
        f.dialog.clear();
        f.dialog.show(); // the previous one is still waiting
        QTest::mouseClick(f.button("takeKeptButton"), Qt::LeftButton);
        QCOMPARE(f.edit()->toPlainText(), QStringLiteral("Первый"));
        f.apply()->click();
        f.dialog.show();
        QVERIFY(!f.keptBar()->isVisible());
        f.dialog.close();

        f.dialog.keep(QStringLiteral("Третий"));
        f.dialog.show();
        QTest::mouseClick(f.button("dropKeptButton"), Qt::LeftButton);
        QVERIFY(!f.keptBar()->isVisible());
    }

    void keepsTypedTextUntilItIsDropped()
    {
        Fixture f;
        KeptTexts* texts = KeptTexts::of(&f.dialog);
        f.dialog.setRecordKey(QStringLiteral("R1"));
        f.dialog.setText(QStringLiteral("Старый"));
        f.dialog.show();
        QVERIFY(texts->held(&f.window).isEmpty()); // nothing was typed
        QTest::keyClicks(f.edit(), QStringLiteral("!"));
        const QVector<KeptTexts::Text> held = texts->held(&f.window);
        QCOMPARE(held.size(), 1);
        QCOMPARE(held.first().values.value(QStringLiteral("text")), QStringLiteral("Старый!"));
        QCOMPARE(held.first().values.value(QStringLiteral("record")), QStringLiteral("R1"));
        QCOMPARE(held.first().values.value(QStringLiteral("caption")),
                 QStringLiteral("комментарий «Старый!»"));
        f.cancel()->click(); // dropped by the user
        f.dialog.clear();
        f.dialog.show();
        QVERIFY(!f.keptBar()->isVisible());
        QTest::keyClicks(f.edit(), QStringLiteral("a"));
        f.apply()->click();
        QVERIFY(texts->offered(CommentCreatorDialog::keptPlace()).isEmpty());
    }

    void aDialogThatGoesWithItsWindowLeavesItsText()
    {
        Fixture f;
        {
            CommentCreatorDialog gone(&f.window, -1);
            gone.show();
            gone.findChild<QTextEdit*>()->setPlainText(QStringLiteral("Набрано"));
            QCOMPARE(KeptTexts::of(&gone)->held(&f.window).size(), 1);
        }
        f.dialog.show();
        QVERIFY(f.keptBar()->isVisible());
        QTest::mouseClick(f.button("takeKeptButton"), Qt::LeftButton);
        QCOMPARE(f.edit()->toPlainText(), QStringLiteral("Набрано"));
    }

    void eachTextThatWaitsGetsItsTurn()
    {
        Fixture f;
        const QStringList texts{QStringLiteral("Первый"), QStringLiteral("Второй"), QStringLiteral("Третий")};
        for (const QString& text : texts)
            f.dialog.keep(text);
        f.dialog.show();
        for (int i : {2, 1, 0, 2}) {
            QTest::mouseClick(f.button("takeKeptButton"), Qt::LeftButton);
            QCOMPARE(f.edit()->toPlainText(), texts.at(i));
        }
    }

    // A closed tab deletes its dialog, but not the text that could not be written there.
    void aTextThatWasNotWrittenOutlivesItsDialog()
    {
        Fixture f;
        auto other = std::make_unique<CommentCreatorDialog>(&f.window, -1);
        other->keep(QStringLiteral("Важное"));
        other.reset();
        f.dialog.show();
        QTest::mouseClick(f.button("takeKeptButton"), Qt::LeftButton);
        QCOMPARE(f.edit()->toPlainText(), QStringLiteral("Важное"));
    }

    void breaksLinesByReturnAndAppliesByCtrlEnter()
    {
        Fixture f;
        f.dialog.show();
        QTRY_VERIFY(f.edit()->hasFocus());
        QApplication::setActiveWindow(&f.dialog);
        QTest::keyClicks(f.edit(), QStringLiteral("a"));
        QTest::keyClick(f.edit(), Qt::Key_Return);
        QTest::keyClicks(f.edit(), QStringLiteral("b"));
        QVERIFY(f.dialog.isVisible());
        QTest::keyClick(f.edit(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(f.changed.count(), 1);
        QCOMPARE(f.changed.at(0).at(1).toString(), QStringLiteral("a\nb"));
        QVERIFY(!f.dialog.isVisible());
    }
};

QTEST_MAIN(CommentCreatorDialog_test)
#include "CommentCreatorDialog_test.moc"
