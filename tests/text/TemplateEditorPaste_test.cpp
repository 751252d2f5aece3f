#include "CVrkCliApp.h"
#include "TemplateEditorBench.h"
#include "TestClient.h"

#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>

namespace
{
using Bench = TemplateEditorBench;

unsigned count(const QString& html)
{
    return HtmlParser(html.toStdString()).countParameters();
}

void paste(TemplateEditorBench& bench, const QString& html)
{
    auto* data = new QMimeData;
    data->setHtml(html);
    QApplication::clipboard()->setMimeData(data);
    bench.press(Qt::Key_V, Qt::ControlModifier);
}

QString struck(const QString& words)
{
    return QStringLiteral("<span style=\" text-decoration: line-through;\">") + words +
           QStringLiteral("</span>");
}

} // namespace

/// Content pasted into the template editor, and what is removed from it.
class TemplateEditorPaste_test : public QObject
{
    Q_OBJECT

private slots:
    void pastedTextIsCleaned();
    void aPictureIsRefusedWithANotice();
    void reportsLostMarkup();
    void reportsMarkupLostByAnEdit();
    void plainTextIsPastedWithItsLinesAndBlanks();
    void charactersOutsideTheCodePageAreGuarded();
};

void TemplateEditorPaste_test::pastedTextIsCleaned()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("[]"));
    bench.press(Qt::Key_Right);
    paste(bench,
          QStringLiteral("<html><head><style>p {x}</style></head><body><p style=\"color:red\"><span "
                         "style=\"font-weight:700;font-family:X\">жирный</span> и <s>снятый</s></p><p>вторая "
                         "<font size=7>строка</font></p><script>alert()</script></body></html>"));
    QCOMPARE(bench.now(), QStringLiteral("&#91;<b>жирный</b> и ") + struck(QStringLiteral("снятый")) +
                              QStringLiteral("<br/>вторая строка&#93;"));
    QCOMPARE(bench.notice(), QString());
    bench.press(Qt::Key_Z, Qt::ControlModifier); // one step
    QCOMPARE(bench.now(), QStringLiteral("[]"));
    paste(bench, QStringLiteral("<meta name=\"template\" content=\"open_wshift\">x"));
    QVERIFY(!bench.now().contains(QLatin1String("open_wshift")));
}

void TemplateEditorPaste_test::aPictureIsRefusedWithANotice()
{
    Bench bench;
    bench.editor.setTemplateText(QStringLiteral("a"));
    QApplication::clipboard()->setImage(QImage(3, 3, QImage::Format_RGB32));
    bench.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(bench.now(), QStringLiteral("a"));
    QCOMPARE(bench.changes.count(), 0);
    QCOMPARE(bench.notice(),
             QStringLiteral("Вставить можно только текст: рисунков и файлов шаблон не переносит"));
    bench.type(QStringLiteral("b"));
    QCOMPARE(bench.notice(), QString());
}

void TemplateEditorPaste_test::reportsLostMarkup()
{
    Bench bench;
    paste(bench, QStringLiteral("<ul><li>раз</li><li>два</li></ul><table><tr><td>три</td></tr></table>"
                                "<a href=\"http://x\">четыре</a><img src=\"x\">"));
    QCOMPARE(bench.now(), QStringLiteral("раз<br/>два<br/>три<br/>четыре"));
    QCOMPARE(bench.notice(),
             QStringLiteral("Вставлен только текст. Шаблон не переносит: списки, таблицы, ссылки, рисунки"));
}

void TemplateEditorPaste_test::reportsMarkupLostByAnEdit()
{
    Bench bench;
    const QString html = QStringLiteral("<ol><li>раз</li></ol>");
    bench.editor.setTemplateText(html);
    QCOMPARE(bench.notice(), QString());
    bench.type(QStringLiteral("a"));
    QCOMPARE(bench.now(), QStringLiteral("aраз"));
    QCOMPARE(bench.notice(),
             QStringLiteral("Шаблон не переносит: списки. После правки от них остаётся только текст"));
    bench.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bench.now(), html);
}

void TemplateEditorPaste_test::plainTextIsPastedWithItsLinesAndBlanks()
{
    Bench bench;
    QApplication::clipboard()->setText(QStringLiteral("раз  <b>\r\n\tдва\u2029три\ufffc\u0007"));
    bench.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(bench.text()->toPlainText(), QStringLiteral("раз  <b>\n два\nтри"));
    QCOMPARE(TemplateText::plain(bench.now()), QStringLiteral("раз  <b>\n два\nтри"));
}

void TemplateEditorPaste_test::charactersOutsideTheCodePageAreGuarded()
{
    TestStore store;
    TestClient client(store, QStringLiteral("sidorova"));
    QSignalSpy adjusted(&client.app(), &CVrkCliApp::textAdjusted);
    Bench bench;
    bench.editor.setTemplateText(Bench::parameter("text", "Кто"));
    QApplication::clipboard()->setText(QStringLiteral("a≤b 漢"));
    bench.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(adjusted.count(), 1);
    QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    QVERIFY(codec->canEncode(bench.now()));
    QCOMPARE(bench.changes.last().first().toString(), bench.now());
    QCOMPARE(count(bench.now()), 1U);
}

QTEST_MAIN(TemplateEditorPaste_test)
#include "TemplateEditorPaste_test.moc"
