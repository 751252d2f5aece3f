#include "MessageListDelegate.h"

#include "LogWatch.h"
#include "PaintRecord.h"

#include <QListWidget>
#include <QPainter>
#include <QTest>

class MessageListDelegate_test : public QObject
{
    Q_OBJECT

private:
    struct Fixture {
        Fixture()
        {
            list.setPalette(palette(Qt::white, Qt::black));
            list.setItemDelegate(&delegate);
            item = new QListWidgetItem(QStringLiteral("Short"), &list);
            item->setData(CommentAuthorRole, QStringLiteral("Author"));
            item->setData(CommentTimeRole, QStringLiteral("01.02.2026 03:04:05"));
            item->setData(CommentIsReadRole, false);
            option.initFrom(&list);
            option.state = QStyle::State_Enabled;
            option.widget = &list;
            option.font = list.font();
            option.font.setPointSize(12);
            option.fontMetrics = QFontMetrics(option.font);
            setWidth(400);
        }
        static QPalette palette(Qt::GlobalColor base, Qt::GlobalColor text)
        {
            QPalette colors;
            colors.setColor(QPalette::Base, base);
            colors.setColor(QPalette::Text, text);
            colors.setColor(QPalette::WindowText, text);
            colors.setColor(QPalette::Highlight, QColor(0x30, 0x8C, 0xC6));
            colors.setColor(QPalette::HighlightedText, Qt::yellow);
            return colors;
        }
        void setWidth(int width)
        {
            option.rect = QRect(0, 0, width, 1000);
            option.rect = QRect(QPoint(0, 0), delegate.sizeHint(option, index()));
        }
        QModelIndex index() const { return list.model()->index(0, 0); }
        int line() const { return option.fontMetrics.height(); }
        QImage paint()
        {
            QImage image(option.rect.size() + QSize(100, 0), QImage::Format_RGB32);
            image.fill(option.palette.color(QPalette::Base));
            QPainter painter(&image);
            painter.setPen(option.palette.color(QPalette::WindowText));
            delegate.paint(&painter, option, index());
            return image;
        }
        void paintOn(PaintRecord* page)
        {
            QPainter painter(page);
            painter.setPen(option.palette.color(QPalette::WindowText));
            delegate.paint(&painter, option, index());
        }
        static bool holds(const QImage& image, const QRect& area, const QColor& color)
        {
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    if (image.valid(x, y) && image.pixelColor(x, y) == color)
                        return true;
            return false;
        }
        QRect top() const { return QRect(1, 1, option.rect.width() - 2, line()); }
        QRect bottom() const
        {
            return QRect(1, option.rect.height() - line(), option.rect.width() - 2, line());
        }

        QListWidget list;
        MessageListDelegate delegate{nullptr};
        QListWidgetItem* item;
        QStyleOptionViewItem option;
    };

private slots:
    void ofAVeryLongMessageOnlyTheBeginningIsLaidOut()
    {
        QListWidget list;
        const MessageListDelegate delegate(nullptr);
        QStyleOptionViewItem option;
        option.fontMetrics = list.fontMetrics();
        option.rect = QRect(0, 0, 400, 1000);
        QVector<int> heights;
        for (int words : {15000, 50000, 800000}) {
            list.addItem(QStringLiteral("слово ").repeated(words));
            heights << delegate.sizeHint(option, list.model()->index(list.count() - 1, 0)).height();
        }
        QVERIFY(heights[0] < heights[1]);
        QCOMPARE(heights[1], heights[2]);
    }

    void isAsHighAsItsFourParts()
    {
        Fixture f;
        QCOMPARE(f.delegate.messageBlockSpacing(f.option), f.line() / 2);
        const int empty = f.option.fontMetrics.boundingRect(f.option.rect, Qt::AlignLeft, QString()).height();
        QCOMPARE(f.delegate.sizeHint(f.option, f.index()),
                 QSize(400, 2 * empty + f.line() / 2 +
                                f.delegate.messageTextHeight(f.option, QStringLiteral("Short"))));
    }

    void growsWithALongText()
    {
        Fixture f;
        const int before = f.delegate.sizeHint(f.option, f.index()).height();
        f.item->setText(QStringLiteral("word ").repeated(60));
        const int wide = f.delegate.sizeHint(f.option, f.index()).height();
        QVERIFY(wide > before);
        f.option.rect.setWidth(150);
        QVERIFY(f.delegate.sizeHint(f.option, f.index()).height() > wide);
        QCOMPARE(f.delegate.sizeHint(f.option, f.index()).width(), 150);
    }

    void drawsMyOwnNameInBlue()
    {
        const QColor blue(0x30, 0x9A, 0xC7);
        Fixture f;
        QVERIFY(!Fixture::holds(f.paint(), f.top(), blue));
        f.item->setData(CommentIsMineRole, true);
        const QImage mine = f.paint();
        QVERIFY(Fixture::holds(mine, f.top(), blue));
        f.item->setData(CommentAuthorRole, QStringLiteral("Author (Вы)"));
        f.item->setData(CommentIsMineRole, QVariant());
        f.option.palette.setColor(QPalette::WindowText, blue);
        QCOMPARE(f.paint().copy(f.top()), mine.copy(f.top()));
    }

    void drawsTheDateAtTheRight()
    {
        Fixture f;
        const QColor grey(0x3E, 0x40, 0x3E);
        const QImage unread = f.paint();
        const QRect date = f.bottom();
        QVERIFY(Fixture::holds(unread, QRect(date.right() - 40, date.top(), 40, date.height()), grey));
        QVERIFY(!Fixture::holds(unread, QRect(0, date.top(), 40, date.height()), grey));
    }

    void marksAReadComment()
    {
        Fixture f;
        const QRect mark(f.option.rect.width() - f.line() - 2, f.bottom().top(), f.line(), f.line());
        f.item->setData(CommentTimeRole, QString());
        const QImage unread = f.paint();
        f.item->setData(CommentIsReadRole, true);
        const QImage read = f.paint();
        QVERIFY(read.copy(mark) != unread.copy(mark));
        // For an unread one the mark is outside the right edge.
        const QRect outside(f.option.rect.width(), 0, 100, f.option.rect.height());
        QVERIFY(unread.copy(outside) != read.copy(outside));
    }

    void staysLegibleOnDarkBackgrounds()
    {
        Fixture f;
        f.item->setData(CommentIsMineRole, true);
        f.option.state |= QStyle::State_Selected | QStyle::State_Active;
        const QImage selected = f.paint();
        QVERIFY(Fixture::holds(selected, f.top(), Qt::yellow));
        QVERIFY(Fixture::holds(selected, f.bottom(), Qt::yellow));
        QVERIFY(Fixture::holds(selected, QRect(0, 0, 3, 3), QColor(0x30, 0x8C, 0xC6)));

        f.option.state = QStyle::State_Enabled;
        f.option.palette = Fixture::palette(Qt::black, Qt::white);
        QVERIFY(Fixture::holds(f.paint(), f.bottom(), Qt::white));
        QVERIFY(Fixture::holds(f.paint(), f.top(), QColor(0x30, 0x9A, 0xC7)));
    }

    void paintsItsPartsWhereTheyBelong_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("isRead");
        for (int width : {400, 150, 60}) {
            QTest::addRow("read at %d", width) << width << true;
            QTest::addRow("unread at %d", width) << width << false;
        }
    }
    void paintsItsPartsWhereTheyBelong()
    {
        QFETCH(int, width);
        QFETCH(bool, isRead);
        Fixture f;
        const QStringList words{QStringLiteral("Проверьте"),  QStringLiteral("время"),
                                QStringLiteral("отключения"), QStringLiteral("и"),
                                QStringLiteral("номер"),      QStringLiteral("бланка")};
        f.item->setText(words.join(QLatin1Char(' ')));
        f.item->setData(CommentAuthorRole, QStringLiteral("Ли"));
        f.item->setData(CommentTimeRole, QStringLiteral("1.2"));
        f.item->setData(CommentIsReadRole, isRead);
        f.setWidth(width);
        f.option.rect.translate(30, 50);
        PaintRecord page(QSize(1000, 1000));
        f.paintOn(&page);

        const int h = f.line();
        const int s = h / 2;
        const int t = f.delegate.messageTextHeight(f.option, f.item->text());
        const int w = width - 1 - 2; // between the edges, as QRect counts them
        const QPointF origin(31, 51);
        const PaintRecord::Text author = page.find(QStringLiteral("Ли"));
        QCOMPARE(author.box.topLeft(), origin);
        QVERIFY(author.box.bottom() <= origin.y() + h);
        QVERIFY(author.font.bold());
        QCOMPARE(author.font.pointSize(), 11);
        QCOMPARE(author.color, QColor(Qt::black));

        QStringList written;
        qreal lowest = 0;
        for (const PaintRecord::Text& text : page.texts) {
            if (text.font.pointSize() != 12)
                continue;
            written += text.text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            QCOMPARE(text.box.left(), origin.x());
            QVERIFY(text.box.top() >= origin.y() + h + s - 1);
            QVERIFY(text.box.width() <= w || !text.text.trimmed().contains(QLatin1Char(' ')));
            QVERIFY(!text.font.bold());
            lowest = qMax(lowest, text.box.bottom());
        }
        QCOMPARE(written, words); // wrapped and complete
        QVERIFY2(lowest <= origin.y() + h + s + t + 1, qPrintable(QString::number(lowest)));

        const PaintRecord::Text date = page.find(QStringLiteral("1.2"));
        QCOMPARE(date.box.top(), origin.y() + h + s + t);
        const qreal edge = origin.x() + (isRead ? w - h - 4 : w);
        QVERIFY2(qAbs(date.box.right() - edge) < 1.5, qPrintable(QString::number(date.box.right() - edge)));
        QCOMPARE(date.color, QColor(0x3E, 0x40, 0x3E));
        QCOMPARE(date.font.pointSize(), 11);

        QCOMPARE(page.pixmaps.size(), 1);
        QCOMPARE(page.pixmaps[0].rect,
                 QRectF(origin.x() + (isRead ? w - h : w + 4), origin.y() + h + s + t, h, h));
        QVERIFY(page.pixmaps[0].size.width() <= h && page.pixmaps[0].size.height() <= h);
    }

    void aWordWiderThanTheItemStaysInOnePiece()
    {
        Fixture f;
        const QString word = QStringLiteral("Электроэнергетического");
        f.item->setText(QStringLiteral("до ") + word + QStringLiteral(" после"));
        f.setWidth(60);
        PaintRecord page(QSize(1000, 1000));
        f.paintOn(&page);
        QCOMPARE(page.find(word).text.trimmed(), word);
        QVERIFY(page.find(QStringLiteral("после")).box.top() > page.find(word).box.top());
        QVERIFY(page.find(QStringLiteral("до")).box.top() < page.find(word).box.top());
        // The whole text fits above the date.
        QVERIFY(page.find(QStringLiteral("после")).box.bottom() <=
                page.find(QStringLiteral("01.02.2026")).box.top() + 1);
    }

    void writesMyNameInItsOwnWay()
    {
        Fixture f;
        f.item->setData(CommentIsMineRole, true);
        PaintRecord page(QSize(1000, 1000));
        f.paintOn(&page);
        QVERIFY2(page.written().startsWith(QStringLiteral("Author (Вы)\n")), qPrintable(page.written()));
        QCOMPARE(page.find(QStringLiteral("Author")).color, QColor(0x30, 0x9A, 0xC7));
        QCOMPARE(page.find(QStringLiteral("Short")).color, QColor(Qt::black));
    }

    void takesFontsInPixelsAsTheyAre()
    {
        Fixture f;
        f.option.font.setPixelSize(14);
        LogWatch log;
        PaintRecord page(QSize(1000, 1000));
        f.paintOn(&page);
        QCOMPARE(page.find(QStringLiteral("Author")).font.pixelSize(), 14);
        QCOMPARE(log.take(), QStringList()); // no warning at each painting
    }

    void leavesInvalidIndexesToItsBase()
    {
        Fixture f;
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        f.delegate.paint(&painter, f.option, QModelIndex());
        painter.end();
        QVERIFY(!Fixture::holds(image, image.rect(), Qt::black));
    }
};

QTEST_MAIN(MessageListDelegate_test)
#include "MessageListDelegate_test.moc"
