#pragma once

#include "WrittenRows.h"

#include <QDateTime>
#include <QStringList>
#include <QTimer>
#include <QVector>

class CVrkCliSes;
class QHBoxLayout;
class QLabel;
class QToolButton;

/// The messages of the status line: each request of the session that was refused or failed, with time and
/// reason, until the user acknowledges it or the failed write succeeds after all; and notices, which
/// disappear by themselves and never cover a failure.
class StatusMessages : public QObject
{
    Q_OBJECT

public:
    /// Appends its label and the button "Понятно" to \a line.
    StatusMessages(const CVrkCliSes* session, QHBoxLayout* line, QObject* parent);

    /// Shows a failure until it is acknowledged. A repeated text is counted, not shown again.
    void addFailure(const QString& text);
    void showNotice(const QString& text);
    /// Failures not yet acknowledged, oldest first.
    QStringList failures() const;
    /// Whether no message is shown.
    bool isEmpty() const { return m_failures.isEmpty() && m_notice.isEmpty(); }

signals:
    /// A failure was added that is not the last one again.
    void failed(const QString& text);
    /// Another message is shown, or none.
    void changed();

private:
    struct Failure {
        QString text;
        QDateTime last; ///< time
        int count = 1;
        QVector<WrittenRows> unwritten; ///< failed writes that have not succeeded yet
    };

    void requestFailed(bool write, const QString& table, const QString& reason);
    void writeEnded(bool written, const WrittenRows& rows);
    void show();

    QLabel* m_label;
    QToolButton* m_acknowledgeButton;
    QVector<Failure> m_failures;
    QString m_notice;
    QTimer m_noticeTimer;
};
