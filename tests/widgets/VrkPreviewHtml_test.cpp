#include "VrkPreviewHtml.h"

#include <QImage>
#include <QTest>

class VrkPreviewHtml_test : public QObject
{
    Q_OBJECT

    static VrkPreviewTable::Cell cell(const QString& text)
    {
        VrkPreviewTable::Cell made;
        made.text = text;
        return made;
    }
    static VrkPreviewTable tableOf(const VrkPreviewTable::Cell& only)
    {
        VrkPreviewTable table;
        table.header.cells = {cell(QStringLiteral("Текст"))};
        table.rows = {{false, {only}}};
        table.footer = QStringLiteral("ЦДС\nСмена");
        return table;
    }
    static QString pageOf(const VrkPreviewTable::Cell& only)
    {
        return QString::fromUtf8(VrkPreviewHtml::page(tableOf(only)));
    }
    static VrkPreviewTable::Cell formatted(const QTextCharFormat& format)
    {
        VrkPreviewTable::Cell made = cell(QStringLiteral("до <и> после"));
        made.formats.append({3, 3, format});
        return made;
    }

private slots:
    void titleLinesAndSealStandWhereTheyBelong()
    {
        VrkPreviewTable table = tableOf(cell(QStringLiteral("Запись")));
        table.imprint = QStringLiteral("Опечатано: 12 ab");
        const QString page = QString::fromUtf8(
            VrkPreviewHtml::page(table, {{QStringLiteral("../мес яц.html"), QStringLiteral("Назад")}}));
        QVERIFY(page.startsWith(QStringLiteral("<!DOCTYPE html>\n<html lang=\"ru\">")));
        QVERIFY(page.contains(QStringLiteral("<title>ЦДС</title>")));
        QVERIFY(page.contains(QStringLiteral("<h1>ЦДС</h1>\n<p>Смена</p>")));
        QVERIFY(
            page.contains(QStringLiteral("<a href=\"../%D0%BC%D0%B5%D1%81%20%D1%8F%D1%86.html\">Назад</a>")));
        QVERIFY(page.indexOf(QStringLiteral("Опечатано: 12 ab")) > page.indexOf(QStringLiteral("</table>")));
        QVERIFY(page.contains(QStringLiteral("default-src 'none'")));
        QVERIFY(!page.contains(QStringLiteral("<svg")));
        table.code = "12 ab";
        QVERIFY(VrkPreviewHtml::page(table).contains("<svg class=\"code\""));
    }

    void textsAreEscaped()
    {
        QCOMPARE(VrkPreviewHtml::escaped(QStringLiteral("<a href='x'>\"&")),
                 QStringLiteral("&lt;a href=&#39;x&#39;&gt;&quot;&amp;"));
        VrkPreviewTable table = tableOf(cell(QStringLiteral("<b>")));
        table.header.cells[0].text = QStringLiteral("<i>");
        table.footer = QStringLiteral("<h1>\n<u>");
        table.imprint = QStringLiteral("<s>");
        table.rows.append({true, {cell(QStringLiteral("<sub>"))}});
        const QByteArray page =
            VrkPreviewHtml::page(table, {{QStringLiteral("\"><sup>"), QStringLiteral("<sup>")}});
        for (const char* tag : {"<b>", "<i>", "<u>", "<s>", "<sub>", "<sup>", "\">\""})
            QVERIFY2(!page.contains(tag), tag);
    }

    void signsThatHtmlDoesNotHaveAreReplaced()
    {
        const QChar bad = QChar::ReplacementCharacter;
        for (const ushort code : {0, 1, 0x0b, 0x1f, 0x7f, 0x9f, 0xfffe, 0xd800, 0xdc00, 0x202e, 0x2066})
            QCOMPARE(VrkPreviewHtml::escaped(QStringLiteral("a") + QChar(code) + QLatin1Char('b')),
                     QStringLiteral("a") + bad + QLatin1Char('b'));
        const QString fine = QStringLiteral("\t\n\u00a0№ \U0001F4A1–");
        QCOMPARE(VrkPreviewHtml::escaped(fine), fine);
    }

    void passagesKeepTheirLook()
    {
        const auto page = [](void (*change)(QTextCharFormat*)) {
            QTextCharFormat format;
            change(&format);
            return pageOf(formatted(format));
        };
        const auto has = [](const QString& html, const char* part) {
            return html.contains(QString::fromUtf8(part));
        };
        QVERIFY(has(page([](QTextCharFormat* f) { f->setFontWeight(QFont::Bold); }),
                    "до <b>&lt;и&gt;</b> после"));
        QVERIFY(has(page([](QTextCharFormat* f) { f->setFontItalic(true); }), "<i>&lt;и&gt;</i>"));
        QVERIFY(has(page([](QTextCharFormat* f) { f->setFontUnderline(true); }), "<u>&lt;и&gt;</u>"));
        QVERIFY(has(page([](QTextCharFormat* f) { f->setFontStrikeOut(true); }), "<s>&lt;и&gt;</s>"));
        QVERIFY(
            has(page([](QTextCharFormat* f) { f->setVerticalAlignment(QTextCharFormat::AlignSuperScript); }),
                "<sup>"));
        QVERIFY(
            has(page([](QTextCharFormat* f) { f->setVerticalAlignment(QTextCharFormat::AlignSubScript); }),
                "<sub>"));
        QVERIFY(has(page([](QTextCharFormat* f) { f->setForeground(Qt::gray); }), "<span class=\"faint\">"));
        QVERIFY(has(pageOf(cell(QStringLiteral("a") + QChar::LineSeparator + QStringLiteral("b"))),
                    ">a<br>b</td>"));
    }

    void aPictureIsInThePageOnce()
    {
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(Qt::red);
        VrkPreviewTable::Cell icon;
        icon.icon = QPixmap::fromImage(image);
        icon.meaning = QStringLiteral("\"Черновик\"");
        icon.isCentred = true;
        VrkPreviewTable table = tableOf(icon);
        icon.icon = QPixmap::fromImage(image); // another one with the same content
        for (int i = 0; i < 20; ++i)
            table.rows.append({false, {icon}});
        const QString page = QString::fromUtf8(VrkPreviewHtml::page(table));
        QCOMPARE(page.count(QStringLiteral("data:image/png")), 1);
        QCOMPARE(page.count(QStringLiteral("aria-label=\"&quot;Черновик&quot;\"")), 21);
    }
};

QTEST_MAIN(VrkPreviewHtml_test)
#include "VrkPreviewHtml_test.moc"
