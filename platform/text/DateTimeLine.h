#pragma once

#include <functional>
#include <QDateTime>
#include <QLineEdit>

/// A line for a date and time in a fixed layout. Short forms are understood: "2108" and "21 08" for a time, "3.7 2108" for
/// a date of this year, a time alone for today. Up and down step the part at the cursor, F5 sets the present time.
class DateTimeLine : public QLineEdit
{
    Q_OBJECT

public:
    /// \a format in the notation of the toolkit; empty stands for date and minutes.
    explicit DateTimeLine(const QString& format, QWidget* parent = nullptr);

    /// Where the present time comes from.
    void setClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }
    QString format() const { return m_format; }

    /// What is typed, read as told above; invalid when it is no time.
    QDateTime time() const;
    /// Writes what was understood in the layout; leaves what was not.
    void complete();
    void setNow();

    /// Reads a text in any of the forms; missing parts come from \a now.
    static QDateTime parsed(const QString& text, const QString& format, const QDateTime& now);
    /// The layout as users know it: "дд.ММ.гггг чч:мм".
    static QString shownFormat(const QString& format);

    /// The layout fits in.
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QDateTime now() const { return m_clock ? m_clock() : QDateTime::currentDateTime(); }
    void step(int by);

    QString m_format;
    std::function<QDateTime()> m_clock;
};
