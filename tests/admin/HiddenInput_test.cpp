#include "HiddenInput.h"

#include <pty.h>
#include <QFile>
#include <QTest>

class HiddenInput_test : public QObject
{
    Q_OBJECT

    /// The output of a terminal for a line that is typed on it.
    static QByteArray shown(int terminal, int program, const QByteArray& line)
    {
        if (::write(terminal, line.constData(), static_cast<std::size_t>(line.size())) != line.size())
            qFatal("nothing can be typed");
        char read[100];
        if (::read(program, read, sizeof read) != line.size()) // the line has arrived
            qFatal("the line has not come");
        char text[100];
        const ssize_t length = ::read(terminal, text, sizeof text);
        return QByteArray(text, static_cast<int>(length));
    }

private slots:
    void passwordsAreNotShownWhileTheyAreTyped()
    {
        int terminal = -1;
        int program = -1;
        QCOMPARE(openpty(&terminal, &program, nullptr, nullptr, nullptr), 0);
        QCOMPARE(shown(terminal, program, "name\n"), QByteArray("name\r\n"));
        {
            const HiddenInput hidden(program);
            QVERIFY(hidden.isTerminal());
            QCOMPARE(shown(terminal, program, "secret\n"), QByteArray("\r\n"));
        }
        QCOMPARE(shown(terminal, program, "name\n"), QByteArray("name\r\n"));
        ::close(program);
        ::close(terminal);
    }

    void inputFromElsewhereIsLeftAlone()
    {
        QFile file(QStringLiteral("/dev/null"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(!HiddenInput(file.handle()).isTerminal());
    }
};

QTEST_GUILESS_MAIN(HiddenInput_test)
#include "HiddenInput_test.moc"
