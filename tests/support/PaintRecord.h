#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QVector>

/// A paint device that records what is painted on it, in its own coordinates.
class PaintRecord : public QPaintDevice
{
public:
    struct Text {
        QString text;
        QRectF box; ///< from ascent to descent, with the width of the text
        QFont font;
        QColor color;
    };
    struct Rect {
        QRectF rect;
        QColor color; ///< of the filling, or of the frame
        bool isFilled;
    };
    struct Pixmap {
        QRectF rect;
        QSize size; ///< of the pixmap itself
    };

    explicit PaintRecord(const QSize& size, int dotsPerInch = 96)
        : m_engine(this), m_size(size), m_dotsPerInch(dotsPerInch)
    {
    }

    QPaintEngine* paintEngine() const override { return &m_engine; }

    QStringList lines() const
    {
        QStringList all;
        for (const Text& text : texts)
            all.append(text.text);
        return all;
    }
    /// All painted texts in order; passages that do not touch are separated by a line end.
    QString written() const
    {
        QString all;
        for (int i = 0; i < texts.size(); ++i) {
            if (i > 0 && (texts[i].box.top() != texts[i - 1].box.top() ||
                          qAbs(texts[i].box.left() - texts[i - 1].box.right()) > 1))
                all += QLatin1Char('\n');
            all += texts[i].text;
        }
        return all;
    }
    /// The first passage that contains these words.
    Text find(const QString& words) const
    {
        for (const Text& text : texts)
            if (text.text.contains(words))
                return text;
        return {};
    }

    QVector<Text> texts;
    QVector<Rect> rects;
    QVector<Pixmap> pixmaps;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return m_dotsPerInch;
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        explicit Engine(PaintRecord* to) : QPaintEngine(AllFeatures), m_to(to) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState& changed) override
        {
            if (changed.state() & DirtyPen)
                m_pen = changed.pen();
            if (changed.state() & DirtyBrush)
                m_brush = changed.brush();
            if (changed.state() & DirtyTransform)
                m_transform = changed.transform();
        }
        void drawPixmap(const QRectF& rect, const QPixmap& pixmap, const QRectF&) override
        {
            m_to->pixmaps.append({m_transform.mapRect(rect), pixmap.size()});
        }
        void drawRects(const QRectF* rects, int count) override
        {
            const bool isFilled = m_pen.style() == Qt::NoPen;
            for (int i = 0; i < count; ++i)
                m_to->rects.append(
                    {m_transform.mapRect(rects[i]), isFilled ? m_brush.color() : m_pen.color(), isFilled});
        }
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
        void drawTextItem(const QPointF& at, const QTextItem& item) override
        {
            const QRectF box(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent());
            m_to->texts.append({item.text(), m_transform.mapRect(box), item.font(), m_pen.color()});
        }
        Type type() const override { return User; }

    private:
        PaintRecord* m_to;
        QPen m_pen;
        QBrush m_brush;
        QTransform m_transform;
    };

    mutable Engine m_engine;
    QSize m_size;
    int m_dotsPerInch;
};
