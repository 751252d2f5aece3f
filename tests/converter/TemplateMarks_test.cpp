#include "TemplateMarks.h"

#include <QTest>

using Written = QMap<QString, bool>;
Q_DECLARE_METATYPE(Written)

#define MARK "<span style=\" text-decoration: line-through;\">"

/// Reading old template texts, rule by rule.
class TemplateMarks_test : public QObject
{
    Q_OBJECT

private slots:
    void parameters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Written>("written");
        const auto row = [](const char* name, const char* text, const Written& written) {
            QTest::newRow(name) << QString::fromUtf8(text) << written;
        };
        const QString a = QStringLiteral("<a>");
        const QString b = QStringLiteral("<b>");
        row("none", "слова", {});
        row("no brackets behind", "x <a> y", {{a, false}});
        row("brackets in front do not count", "[x] <a>", {{a, false}});
        row("struck out with a passage behind", "[<a>] x [y]", {{a, true}});
        row("in the last passage not struck out", "[<a>]", {{a, false}});
        row("only the last of two passages", "[<a>] и [<b>]", {{a, true}, {b, false}});
        row("in front of a passage not struck out", "<a> [x]", {{a, false}});
        row("a passage right behind, and another one", "<a>[x] y [z]", {{a, false}});
        row("an unclosed passage behind counts as struck out", "<a> [x", {{a, true}});
        row("the last occurrence decides for all", "[<a>] x [y] <a>", {{a, false}});
        row("the last occurrence decides for all, struck out", "<a> x [<a>] [y]", {{a, true}});
        row("a second < inside belongs to the name", "<a <b>", {{QStringLiteral("<a <b>"), false}});
        row("empty name", "<>", {{QStringLiteral("<>"), false}});
        row("a lone > is a word", "a > b", {});
    }
    void parameters()
    {
        QFETCH(QString, text);
        QFETCH(Written, written);
        Written found;
        QVERIFY(TemplateMarks::parameters(text, &found));
        QCOMPARE(found, written);
    }

    void reportsAnUnclosedBracket()
    {
        Written found;
        QVERIFY(!TemplateMarks::parameters(QStringLiteral("<a> и <b"), &found));
        QCOMPARE(found.keys(), QStringList{QStringLiteral("<a>")});
        QVERIFY(!TemplateMarks::parameters(QStringLiteral("<"), &found));
        QVERIFY(!TemplateMarks::parameters(QStringLiteral("a > b <"), &found));
    }

    void normalized_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("html");
        const auto row = [](const char* name, const char* text, const char* html) {
            QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(html);
        };
        row("a carriage return goes", "a\rb", "ab");
        row("a line end is a blank", "a\r\nb\nc", "a b c");
        row("passages do not touch", "[a][b]", MARK "a</span> " MARK "b</span>");
        row("a blank at the end of a passage moves out", "[a ]b", MARK "a</span> b");
        row("a blank at the start of a passage moves out", "a[ b]", "a " MARK "b</span>");
        row("one blank of several moves", "[  a  ]", " " MARK " a </span> ");
        row("the blank between passages moves into none", "[a] [b]", MARK "a</span> " MARK "b</span>");
        row("a comma behind a parameter", "<a>x</a>, y", "<a>x</a> , y");
        row("a full stop behind a parameter", "<a>x</a>. y", "<a>x</a> . y");
        row("not behind a passage", "[a], [b].", MARK "a</span>, " MARK "b</span>.");
        row("neighbours", "<a>x</a><a>y</a>", "<a>x</a> <a>y</a>");
        row("other signs may touch", "<a>x</a>;<a>y</a>", "<a>x</a>;<a>y</a>");
        row("words", "просто слова", "просто слова");
    }
    void normalized()
    {
        QFETCH(QString, text);
        QFETCH(QString, html);
        QCOMPARE(TemplateMarks::normalized(text), html);
    }

    void markers_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("path");
        const auto row = [](const char* name, const char* path) {
            QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(path);
        };
        row("Авария", ":/markers/exclamation_mark.png");
        row("Допуск бригады", ":/markers/worker_red.png");
        row("Завершение работ бригады", ":/markers/worker_blue.png");
        row("Передача вышестоящей организации", ":/markers/arrow_up_blue.png");
        row("Передача от вышестоящей организации", ":/markers/arrow_down_red.png");
        row("Снято заземление", ":/markers/thunder_blue.png");
        row("Установлено заземление", ":/markers/thunder_red.png");
        row("Авария.png", ":/markers/exclamation_mark.png");
        row("Авария.png.png", ":/markers/exclamation_mark.png");
        row("Авария.PNG", "");
        row("авария", "");
        row("Пожар", "");
        row("нет", "");
    }
    void markers()
    {
        QFETCH(QString, name);
        QFETCH(QString, path);
        QCOMPARE(TemplateMarks::toResourcesIcon(name), path);
    }
};

QTEST_MAIN(TemplateMarks_test)
#include "TemplateMarks_test.moc"
