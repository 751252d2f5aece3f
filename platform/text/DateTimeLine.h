#pragma once

#include <functional>
#include <QDateTime>
#include <QLineEdit>

/// A line for a date and time in a fixed layout. It accepts short forms: "2108" and "21 08" for a time,
/// "3.7 2108" for a date of this year, a time alone for today. Up and down change the part at the cursor,
/// F5 sets the current time.
class DateTimeLine : public QLineEdit
{
    Q_OBJECT

public:
    /// \a format in Qt's notation; empty means date and minutes.
    explicit DateTimeLine(const QString& format, QWidget* parent = nullptr);

    /// Sets the source of the current time.
    void setClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }
    QString format() const { return m_format; }

    /// The typed time, with the short forms above; invalid if it is not a time.
    QDateTime time() const;
    /// Rewrites recognised input in the layout; leaves other input unchanged.
    void complete();
    void setNow();

    /// Parses a text in any of the forms; missing parts come from \a now.
    static QDateTime parsed(const QString& text, const QString& format, const QDateTime& now);
    /// The layout as users know it: "дд.ММ.гггг чч:мм".
    static QString shownFormat(const QString& format);

    /// Wide enough for the layout.
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QDateTime now() const { return m_clock ? m_clock() : QDateTime::currentDateTime(); }
    void step(int by);

    QString m_format;
    std::function<QDateTime()> m_clock;
};
