#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

class QMainWindow;
class QSplitter;
class VrkTableTool;

/// The geometry of a module's window and its layout: place and size, the borders between its panes, the
/// widths, order and visibility of columns. Kept in the settings under the user's login and the module's name. Dialogs choose
/// their own sizes.
class WindowMemory : public QObject
{
    Q_OBJECT

public:
    /// From now on the window has a minimum size at which it is usable, and all buttons of its tool bars are seen
    /// unless the screen is too narrow.
    WindowMemory(QMainWindow* window, const QString& user, const QString& module);

    /// Restores the window's place before it is shown. False if nothing is remembered: then it is only made
    /// no larger than the screen.
    bool restorePlace();
    /// Restores the sizes of panes and columns once the module has created them; remembers their defaults
    /// first.
    void restoreInside();
    void save() const;
    /// The record tables of the window.
    QVector<VrkTableTool*> tables() const;
    /// Restores the module's defaults, now and at the next start.
    void reset();

    /// Whether anything is remembered of this user's windows.
    static bool knows(const QString& user);
    /// \a wanted, adapted to the screens: unchanged if screens cover it, otherwise moved onto the screen
    /// that shows most of it; not smaller than useful, not larger than that screen.
    static QRect fitted(const QRect& wanted, const QVector<QRect>& screens);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The minimum width is that of the widest tool bar.
    void makeRoomForBars();
    QString key(const QString& name) const { return m_group + QLatin1Char('/') + name; }
    QVector<QSplitter*> splitters() const;
    void restoreTables();

    QPointer<QMainWindow> m_window;
    QString m_group;
    QSize m_ownSize;
    QHash<QString, QByteArray> m_ownSplitters; ///< by name
    QVector<QPointer<VrkTableTool>> m_restored;
};
