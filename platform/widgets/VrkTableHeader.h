#pragma once

#include <QHash>
#include <QHeaderView>

/// Header of a record table: texts of several lines and single icons are centred, and the sort arrow takes
/// no space from them.
class VrkTableHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit VrkTableHeader(QWidget* parent);
    ~VrkTableHeader() override;

    /// Width that the contents of a section need.
    int neededWidth(int section) const { return sectionSizeFromContents(section).width(); }

protected:
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
