#pragma once

#include <QByteArray>
#include <QHash>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

class QMainWindow;
class QSplitter;
class VrkTableTool;

/// Where a user left a module's window, and how he arranged it: place and size, the borders between its panes, the widths
/// of columns. Kept in the settings under his login and the module's name. Dialogs keep the sizes that they give themselves.
class WindowMemory
{
public:
    WindowMemory(QMainWindow* window, const QString& user, const QString& module);

    /// Puts the window where it was, before it is shown. False when nothing is remembered: then it is only made no larger
    /// than the screen.
    bool restorePlace();
    /// Gives panes and columns their sizes, once the module has made them; what they are by themselves is noted first.
    void restoreInside();
    void save() const;
    /// Back to what the module gives itself, now and at the next start.
    void reset();

    /// \a wanted as it can be shown: as it is when screens cover it, else moved onto the screen that shows most of it; no
    /// smaller than is useful, no larger than that screen.
    static QRect fitted(const QRect& wanted, const QVector<QRect>& screens);

private:
    QString key(const QString& name) const;
    QVector<QSplitter*> splitters() const;
    QVector<VrkTableTool*> tables() const;

    QPointer<QMainWindow> m_window;
    QString m_group;
    QSize m_ownSize;
    QHash<QString, QByteArray> m_ownSplitters; ///< by name
};
