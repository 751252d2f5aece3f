#include "../support/TestFolder.h"
#include "KeptDraft.h"
#include "KeptTexts.h"

#include <cstdio>
#include <memory>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <vector>

namespace
{
const QString place = QStringLiteral("record/DEP");
constexpr int agedMs = 2000;

QString typed(int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QChar(0x430 + i * 7 % 32);
    return text;
}

/// The program that is killed: endless typing into a window; each key goes to the standard output with its
/// time.
int type(const QString& folder)
{
    KeptTexts texts;
    texts.open(folder, QStringLiteral("ivanov"), QStringLiteral("/store"));
    QLineEdit line;
    line.setMaxLength(1 << 20);
    KeptDraft draft(&line, &texts, [&line] {
        return KeptTexts::Values{{QStringLiteral("text"), line.text()}};
    });
    draft.setPlace(place);
    QObject::connect(&line, &QLineEdit::textChanged, &draft, &KeptDraft::touch);
    QElapsedTimer time;
    time.start();
    QTimer keys;
    QObject::connect(&keys, &QTimer::timeout, [&] {
        line.setText(typed(line.text().size() + 1));
        std::printf("%d %lld\n", int(line.text().size()), static_cast<long long>(time.elapsed()));
        std::fflush(stdout);
    });
    keys.start(4);
    return QApplication::exec();
}

struct Key {
    int count;
    qint64 time;
};

std::vector<Key> keysOf(const QByteArray& output)
{
    std::vector<Key> keys;
    for (const QByteArray& line : output.split('\n')) {
        const QList<QByteArray> parts = line.split(' ');
        if (parts.size() == 2)
            keys.push_back({parts[0].toInt(), parts[1].toLongLong()});
    }
    return keys;
}
} // namespace

/// kill -9 during typing: the next program offers the complete text, at most two seconds old.
class KeptTexts_kill_test : public QObject
{
    Q_OBJECT

private:
    /// Kills \a count programs that type at the same time, each at a different moment.
    static void killSome(int count)
    {
        const QTemporaryDir folder(testFolderTemplate());
        std::vector<std::unique_ptr<QProcess>> programs;
        for (int i = 0; i < count; ++i) {
            programs.push_back(std::make_unique<QProcess>());
            programs.back()->start(QCoreApplication::applicationFilePath(),
                                   {QStringLiteral("--type"), folder.filePath(QString::number(i))});
            QTimer::singleShot(300 + QRandomGenerator::global()->bounded(3000), programs.back().get(),
                               &QProcess::kill);
        }
        for (int i = 0; i < count; ++i) {
            QProcess& program = *programs[static_cast<std::size_t>(i)];
            QTRY_VERIFY_WITH_TIMEOUT(program.state() == QProcess::NotRunning, 20000);
            const std::vector<Key> keys = keysOf(program.readAllStandardOutput());
            if (keys.empty())
                continue; // killed before the first key
            int due = 0;
            for (const Key& key : keys)
                if (key.time <= keys.back().time - agedMs)
                    due = key.count;
            KeptTexts texts;
            texts.open(folder.filePath(QString::number(i)), QStringLiteral("ivanov"),
                       QStringLiteral("/store"));
            const QVector<KeptTexts::Text> left = texts.left();
            QVERIFY(left.size() <= 1);
            const QString text =
                left.isEmpty() ? QString() : left.first().values.value(QStringLiteral("text"));
            QCOMPARE(text, typed(text.size()));
            QVERIFY2(text.size() >= due && text.size() <= keys.back().count + 1,
                     qPrintable(QStringLiteral("%1 keys kept of %2, %3 of them older than two seconds")
                                    .arg(text.size())
                                    .arg(keys.back().count)
                                    .arg(due)));
        }
    }

private slots:
    void aKilledProgramsTextIsOfferedAgain() { killSome(4); }

    void aHundredKills()
    {
        if (!qEnvironmentVariableIsSet("VRK_LONG"))
            QSKIP("with VRK_LONG=1");
        for (int round = 0; round < 20 && !QTest::currentTestFailed(); ++round)
            killSome(5);
    }
};

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--type") == 0)
        return type(QString::fromLocal8Bit(argv[2]));
    KeptTexts_kill_test test;
    return QTest::qExec(&test, argc, argv);
}

#include "KeptTexts_kill_test.moc"
