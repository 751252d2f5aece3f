#include "CPopMessageBox.h"

#include "PopGuard.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

/// Asks questions and handles the answers according to the rules of answer slots.
class Asker : public QWidget
{
    Q_OBJECT

public:
    void ask(TMessageBoxType type = MessageTypeYesNo)
    {
        box.setMessage(QStringLiteral("Вопрос"), QStringLiteral("<center>Да?</center>"), MessageIconQuestion,
                       type);
        connect(box.buttonBox(), SIGNAL(clicked(QAbstractButton*)), this, SLOT(answer(QAbstractButton*)));
        box.resize(350, 110);
        box.show();
    }

    CPopMessageBox box{this};
    QVector<int> roles;
    bool null = false;

public slots:
    void answer(QAbstractButton* button)
    {
        disconnect(box.buttonBox(), SIGNAL(clicked(QAbstractButton*)), nullptr, nullptr);
        box.close();
        roles.append(box.ButtonRole(button));
        null = !button;
    }
};

class CPopMessageBox_test : public QObject
{
    Q_OBJECT

private:
    static QPushButton* button(const CPopMessageBox& box, const char* name)
    {
        return box.findChild<QPushButton*>(QLatin1String(name));
    }

private slots:
    void theNumbersAreThoseOfTheContract()
    {
        QCOMPARE(int(MessageIconError), 1);
        QCOMPARE(int(MessageIconQuestion), 2);
        QCOMPARE(int(MessageIconWarning), 3);
        QCOMPARE(int(MessageIconInformation), 4);
        QCOMPARE(int(MessageTypeOk), 2);
        QCOMPARE(int(MessageTypeYesNo), 5);
    }

    void itShowsTitleTextIconAndButtons()
    {
        QWidget window;
        window.show();
        CPopMessageBox box(&window);
        box.setMessage(QStringLiteral("Ошибка"), QStringLiteral("<center>Не удалось!</center>"),
                       MessageIconError, MessageTypeOk);
        box.show();
        QVERIFY(box.isVisible());
        QCOMPARE(box.windowTitle(), QStringLiteral("Ошибка"));
        QCOMPARE(box.title(), QStringLiteral("Ошибка"));
        QCOMPARE(box.text(), QStringLiteral("<center>Не удалось!</center>"));
        QCOMPARE(box.icon(), MessageIconError);
        QVERIFY(!box.findChild<QLabel*>(QStringLiteral("iconLabel"))->pixmap(Qt::ReturnByValue).isNull());
        QCOMPARE(box.buttonBox()->buttons().size(), 1);
        QCOMPARE(button(box, "okButton")->text().remove(QLatin1Char('&')), QStringLiteral("ОК"));

        box.setMessage(QStringLiteral("Вопрос"), QString(), MessageIconQuestion, MessageTypeYesNo);
        QCOMPARE(box.buttonBox()->buttons().size(), 2);
        QCOMPARE(button(box, "yesButton")->text().remove(QLatin1Char('&')), QStringLiteral("Да"));
        QCOMPARE(button(box, "noButton")->text().remove(QLatin1Char('&')), QStringLiteral("Нет"));
    }

    /// Whether the text needs no more height than it has at its width.
    static bool showsItsWholeText(const CPopMessageBox& box)
    {
        const auto* label = box.findChild<QLabel*>(QStringLiteral("textLabel"));
        return label->height() >= label->heightForWidth(label->width()) &&
               label->geometry().bottom() < box.buttonBox()->geometry().top();
    }

    void aLongTextIsShownWholeThoughASmallerSizeIsAskedFor()
    {
        QWidget window;
        window.show();
        CPopMessageBox box(&window);
        const QString text = QStringLiteral("<center>После удаления запись будет помечена как удалённая!\nВы "
                                            "действительно хотите удалить запись?</center>");
        for (int points : {10, 15}) {
            QFont font = window.font();
            font.setPointSize(points);
            box.setFont(font);
            for (int repeat = 0; repeat < 2; ++repeat) {
                box.setMessage(QStringLiteral("Ошибка"), QStringLiteral("<center>Не вышло!</center>"),
                               MessageIconError, MessageTypeOk);
                box.resize(350, 110);
                box.show();
                QTRY_VERIFY(showsItsWholeText(box));
                QTRY_COMPARE(box.width(), 350);
                box.close();
                box.setMessage(QStringLiteral("Вопрос"), text, MessageIconQuestion, MessageTypeYesNo);
                box.resize(350, 110);
                box.show();
                QTRY_VERIFY(showsItsWholeText(box));
                box.close();
            }
        }
    }

    void yesIsFiveAndNothingElseIs()
    {
        Asker asker;
        asker.show();
        asker.ask();
        button(asker.box, "yesButton")->click();
        asker.ask();
        button(asker.box, "noButton")->click();
        asker.ask(MessageTypeOk);
        button(asker.box, "okButton")->click();
        QCOMPARE(asker.roles, (QVector<int>{5, QDialogButtonBox::NoRole, QDialogButtonBox::AcceptRole}));
        QVERIFY(!asker.box.isVisible());
        QPushButton foreign;
        QCOMPARE(asker.box.ButtonRole(&foreign), -1);
    }

    void aBoxClosedByItsFrameAnswersWithNull()
    {
        Asker asker;
        asker.show();
        asker.ask();
        asker.box.close();
        QVERIFY(asker.null);
        QCOMPARE(asker.roles, QVector<int>{-1});
        asker.box.close(); // hidden: it has no message any more
        QCOMPARE(asker.roles.size(), 1);
    }

    void escapeIsTheFrame()
    {
        Asker asker;
        asker.show();
        asker.ask();
        QTest::keyClick(&asker.box, Qt::Key_Escape);
        QVERIFY(asker.null);
        QVERIFY(!asker.box.isVisible());
    }

    void returnHasNoDefaultAction()
    {
        Asker asker;
        asker.show();
        for (TMessageBoxType type : {MessageTypeYesNo, MessageTypeOk}) {
            asker.ask(type);
            for (int key : {Qt::Key_Return, Qt::Key_Enter}) {
                QTest::keyClick(&asker.box, Qt::Key(key));
                for (QAbstractButton* each : asker.box.buttonBox()->buttons())
                    QTest::keyClick(each, Qt::Key(key));
            }
            QVERIFY(asker.roles.isEmpty());
            QVERIFY(asker.box.isVisible());
            asker.box.close();
            asker.roles.clear();
        }
    }

    void aButtonInFocusIsPressedBySpaceAndNoIsInFocus()
    {
        Asker asker;
        asker.show();
        asker.ask();
        QCOMPARE(asker.box.focusWidget(), button(asker.box, "noButton"));
        QTest::keyClick(button(asker.box, "yesButton"), Qt::Key_Space);
        QCOMPARE(asker.roles, QVector<int>{5});
    }

    void theSlotMayBeGivenAsSignature()
    {
        Asker asker;
        asker.show();
        asker.box.setMessage(QStringLiteral("Вопрос"), QString(), MessageIconQuestion, MessageTypeYesNo,
                             SLOT(answer(QAbstractButton*)));
        asker.box.show();
        button(asker.box, "yesButton")->click();
        QCOMPARE(asker.roles, QVector<int>{5});
    }

    void aNewMessageDropsTheSlotOfAnUnansweredOne()
    {
        Asker asker;
        asker.show();
        asker.ask();
        asker.box.setMessage(QStringLiteral("Иное"), QString(), MessageIconQuestion, MessageTypeYesNo);
        button(asker.box, "yesButton")->click();
        QVERIFY(asker.roles.isEmpty());
    }

    void aQuestionGuardsTheWindowUnderItAndAMessageDoesNot()
    {
        Asker asker;
        asker.show();
        asker.ask(MessageTypeOk);
        QCOMPARE(PopGuard::over(&asker), nullptr);
        asker.ask(MessageTypeYesNo);
        QVERIFY(PopGuard::over(&asker));
        asker.ask(MessageTypeOk);
        QCOMPARE(PopGuard::over(&asker), nullptr);
    }

    void aLongTextMakesTheBoxGrow()
    {
        QWidget window;
        window.show();
        CPopMessageBox box(&window);
        box.setMessage(QStringLiteral("Предупреждение"), QStringLiteral("Длинное сообщение. ").repeated(20),
                       MessageIconWarning, MessageTypeOk);
        box.resize(350, 110);
        box.show();
        const auto* label = box.findChild<QLabel*>(QStringLiteral("textLabel"));
        QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
        QCOMPARE(box.width(), 350);

        box.setMessage(QStringLiteral("Предупреждение"), QStringLiteral("Длиннее. ").repeated(80),
                       MessageIconWarning, MessageTypeOk); // while it is shown
        QTRY_VERIFY(label->height() >= label->heightForWidth(label->width()));
    }
};

QTEST_MAIN(CPopMessageBox_test)
#include "CPopMessageBox_test.moc"
