#include "WindowMemory.h"

#include "VrkTableTool.h"

#include <algorithm>
#include <numeric>
#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QTableView>
#include <QTabWidget>
#include <QToolBar>

namespace
{
constexpr QSize leastWindow(680, 400); ///< the bars of the journal fit into it
constexpr QSize usualFrame(8, 36);     ///< for a window that has not been shown yet
constexpr int leastPane = 40;          ///< a narrower one is almost invisible
constexpr int largestPane = 10000;
constexpr char ofOrder[] = ".order";
constexpr char ofHidden[] = ".hidden";

/// The names of a widget and of its parents: the same at every start.
QString pathOf(const QWidget* widget)
{
    QStringList names;
    for (const QWidget* one = widget; one && !one->isWindow(); one = one->parentWidget()) {
        if (!one->objectName().isEmpty() && !one->objectName().startsWith(QLatin1String("qt_")))
            names.prepend(one->objectName());
    }
    return names.join(QLatin1Char('.'));
}

/// The choice of columns is that of all tables of one name: every page of the journal shows the same.
QString layoutOf(const VrkTableTool* tool)
{
    return QStringLiteral("shown.") + tool->tableView()->objectName();
}

QVector<QRect> screensNow()
{
    QVector<QRect> rooms;
    for (const QScreen* screen : QGuiApplication::screens())
        rooms.append(screen->availableGeometry());
    return rooms;
}

bool isUseful(const QList<int>& sizes)
{
    return std::all_of(sizes.begin(), sizes.end(),
                       [](int size) { return size >= leastPane && size <= largestPane; });
}

/// A damaged file may hold a rectangle that is too large to compute with.
bool isPossible(const QRect& frame)
{
    constexpr int farthest = 100000; // no desktop is that large
    for (const int edge : {frame.left(), frame.top(), frame.right(), frame.bottom()}) {
        if (edge < -farthest || edge > farthest)
            return false;
    }
    return frame.isValid();
}

/// The window may get its size later: the splitter sets the sizes at the length for which they were saved,
/// then adapts them as if the user had resized the window.
void setSizes(QSplitter* splitter, const QList<int>& sizes)
{
    const int handles = splitter->handleWidth() * (sizes.size() - 1);
    const int length = std::accumulate(sizes.begin(), sizes.end(), handles);
    const bool isFlat = splitter->orientation() == Qt::Horizontal;
    splitter->resize(isFlat ? QSize(length, splitter->height()) : QSize(splitter->width(), length));
    splitter->setSizes(sizes);
    if (QWidget* parent = splitter->parentWidget(); parent && parent->layout())
        parent->layout()->invalidate();
}

int area(const QRect& rect)
{
    return rect.isEmpty() ? 0 : rect.width() * rect.height();
}

// A slash would open a subgroup.
QString groupOf(const QString& user)
{
    return QStringLiteral("windows/") + QString::fromLatin1(user.toUtf8().toPercentEncoding());
}
} // namespace

bool WindowMemory::knows(const QString& user)
{
    QSettings settings;
    settings.beginGroup(groupOf(user));
    return !settings.childGroups().isEmpty();
}

WindowMemory::WindowMemory(QMainWindow* window, const QString& user, const QString& module)
    : m_window(window), m_ownSize(window->size())
{
    m_group = groupOf(user) + QLatin1Char('/') + module;
    const QScreen* screen = window->screen();
    window->setMinimumSize(screen ? leastWindow.boundedTo(screen->availableSize() - usualFrame)
                                  : leastWindow);
}

QRect WindowMemory::fitted(const QRect& wanted, const QVector<QRect>& screens)
{
    if (screens.isEmpty())
        return wanted;
    QRect place(wanted.topLeft(), wanted.size().expandedTo(leastWindow));
    QRegion covered;
    for (const QRect& screen : screens)
        covered += screen;
    if (QRegion(place).subtracted(covered).isEmpty())
        return place;
    const QRect screen =
        *std::max_element(screens.begin(), screens.end(), [&place](const QRect& a, const QRect& b) {
            return area(a & place) < area(b & place);
        });
    place.setSize(place.size().boundedTo(screen.size()));
    place.moveLeft(qBound(screen.left(), place.left(), screen.right() - place.width() + 1));
    place.moveTop(qBound(screen.top(), place.top(), screen.bottom() - place.height() + 1));
    return place;
}

bool WindowMemory::restorePlace()
{
    const QSettings settings;
    const QRect frame = settings.value(key(QStringLiteral("frame"))).toRect();
    if (!m_window)
        return false;
    if (!isPossible(frame)) {
        const QScreen* screen = m_window->screen();
        m_window->resize(
            m_window->size().boundedTo(screen ? screen->availableSize() - usualFrame : m_window->size()));
        return false;
    }
    // Size of the window manager's frame; a larger value is not plausible.
    const QSize around = settings.value(key(QStringLiteral("around"))).toSize().expandedTo(QSize(0, 0));
    const QRect place = fitted(frame, screensNow());
    m_window->move(place.topLeft());
    m_window->resize(place.size() - around.boundedTo(QSize(64, 128)));
    if (settings.value(key(QStringLiteral("maximized"))).toBool())
        m_window->setWindowState(Qt::WindowMaximized);
    return true;
}

QVector<QSplitter*> WindowMemory::splitters() const
{
    QVector<QSplitter*> found;
    for (QSplitter* splitter : m_window->findChildren<QSplitter*>()) {
        if (splitter->window() == m_window)
            found.append(splitter);
    }
    return found;
}

QVector<VrkTableTool*> WindowMemory::tables() const
{
    QVector<VrkTableTool*> found;
    for (VrkTableTool* tool : m_window->findChildren<VrkTableTool*>()) {
        if (tool->tableView() && tool->tableView()->window() == m_window)
            found.append(tool);
    }
    return found;
}

bool WindowMemory::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        makeRoomForBars();
    return QObject::eventFilter(watched, event);
}

void WindowMemory::makeRoomForBars()
{
    const QScreen* screen = m_window ? m_window->screen() : nullptr;
    if (!screen)
        return;
    const int room = screen->availableSize().width() - usualFrame.width();
    int width = qMin(leastWindow.width(), room);
    for (const QToolBar* bar : m_window->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        if (bar->isVisibleTo(m_window) && bar->sizeHint().width() <= room)
            width = qMax(width, bar->sizeHint().width());
    m_window->setMinimumWidth(width);
}

void WindowMemory::restoreInside()
{
    if (!m_window)
        return;
    for (QToolBar* bar : m_window->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        bar->installEventFilter(this);
    makeRoomForBars();
    const QSettings settings;
    for (QSplitter* splitter : splitters()) {
        const QString name = pathOf(splitter);
        m_ownSplitters.insert(name, splitter->saveState());
        const int count = splitter->count();
        const QVariantList kept = settings.value(key(QStringLiteral("splitter.") + name)).toList();
        QList<int> sizes;
        for (const QVariant& size : kept)
            sizes.append(size.toInt());
        if (sizes.size() == count && isUseful(sizes))
            setSizes(splitter, sizes);
    }
    restoreTables();
    // Pages are opened later, too.
    for (const QTabWidget* tabs : m_window->findChildren<QTabWidget*>())
        QObject::connect(tabs, &QTabWidget::currentChanged, this, &WindowMemory::restoreTables,
                         Qt::UniqueConnection);
}

void WindowMemory::restoreTables()
{
    if (!m_window)
        return;
    const QSettings settings;
    m_restored.removeAll(nullptr);
    for (VrkTableTool* tool : tables()) {
        if (m_restored.contains(tool))
            continue;
        m_restored.append(tool);
        const QString place = key(layoutOf(tool));
        const QStringList order = settings.value(place + QLatin1String(ofOrder)).toStringList();
        const QStringList hidden = settings.value(place + QLatin1String(ofHidden)).toStringList();
        if (!order.isEmpty() || !hidden.isEmpty())
            tool->setUserColumns(order, hidden);
        const QString name = pathOf(tool->tableView());
        tool->setUserWidths(settings.value(key(QStringLiteral("columns.") + name)).toMap());
    }
}

void WindowMemory::save() const
{
    if (!m_window)
        return;
    QSettings settings;
    const bool isWhole = m_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    settings.setValue(key(QStringLiteral("maximized")), isWhole);
    if (!isWhole) {
        const QSize around = m_window->frameGeometry().size() - m_window->size();
        settings.setValue(key(QStringLiteral("frame")), m_window->frameGeometry());
        settings.setValue(key(QStringLiteral("around")), around);
    } else if (!settings.contains(key(QStringLiteral("frame")))) {
        settings.setValue(key(QStringLiteral("frame")), m_window->normalGeometry());
    }
    for (const QSplitter* splitter : splitters()) {
        const QList<int> sizes = splitter->sizes();
        // The size of a hidden or collapsed pane is not saved: the previous one is kept.
        if (!isUseful(sizes))
            continue;
        QVariantList kept;
        for (int size : sizes)
            kept.append(size);
        settings.setValue(key(QStringLiteral("splitter.") + pathOf(splitter)), kept);
    }
    for (const VrkTableTool* tool : tables()) {
        settings.setValue(key(QStringLiteral("columns.") + pathOf(tool->tableView())), tool->userWidths());
        const QString place = key(layoutOf(tool));
        const bool isOwn = !tool->userOrder().isEmpty() || !tool->userHidden().isEmpty();
        if (isOwn || settings.contains(place + QLatin1String(ofOrder))) {
            settings.setValue(place + QLatin1String(ofOrder), tool->userOrder());
            settings.setValue(place + QLatin1String(ofHidden), tool->userHidden());
        }
    }
}

void WindowMemory::reset()
{
    if (!m_window)
        return;
    QSettings().remove(m_group);
    m_window->setWindowState(m_window->windowState() & ~(Qt::WindowMaximized | Qt::WindowFullScreen));
    const QSize around = m_window->frameGeometry().size() - m_window->size();
    QRect place(QPoint(), m_ownSize + around);
    if (const QScreen* screen = m_window->screen())
        place.moveCenter(screen->availableGeometry().center());
    place = fitted(place, screensNow());
    m_window->move(place.topLeft());
    m_window->resize(place.size() - around);
    for (QSplitter* splitter : splitters()) {
        const auto own = m_ownSplitters.constFind(pathOf(splitter));
        if (own != m_ownSplitters.constEnd())
            splitter->restoreState(own.value());
    }
    for (VrkTableTool* tool : tables()) {
        tool->setUserColumns({}, {});
        tool->adjustColumnsWidth();
    }
}
