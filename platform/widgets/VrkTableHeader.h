#pragma once

#include <QHash>
#include <QHeaderView>

/// Header of a record table: texts of several lines and single icons are centred, and the sort arrow takes
/// no space from them. A section that is too narrow shows the beginnings of its lines, and the rest as a tool
/// tip.
class VrkTableHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit VrkTableHeader(QWidget* parent);
    ~VrkTableHeader() override;

    /// Width that the contents of a section need.
    int neededWidth(int section) const { return sectionSizeFromContents(section).width(); }
    /// Width for the beginning of each line of a section's text; the whole width of an icon.
    int foldedWidth(int section) const;

protected:
    bool viewportEvent(QEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;
    void changeEvent(QEvent* event) override;

private:
    QString text(int section) const;
    QIcon icon(int section) const;
    QSize textSize(const QString& text) const;
    int iconSide() const;
    void paintArrow(QPainter* painter, const QRect& rect) const;

    mutable QHash<QString, QSize>
        m_textSizes; ///< for the current font: the view queries them at each change of a column
};
