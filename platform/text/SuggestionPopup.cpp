#include "SuggestionPopup.h"

#include "SuggestionModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QWindow>

namespace
{
constexpr int rowsAtMost = 10;

/// A suggestion, followed by its detail in a weaker colour.
class SuggestionDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QString detail = index.data(SuggestionModel::DetailRole).toString();
        const bool more = index.data(SuggestionModel::MoreRole).toBool();
        row.font.setItalic(more);
        const QString text = row.text;
        row.text.clear();
        row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

        const bool marked = row.state & QStyle::State_Selected;
        const QPalette::ColorRole role = marked ? QPalette::HighlightedText : QPalette::Text;
        QRect rect = row.rect.adjusted(margin(row), 0, -margin(row), 0);
        const QFontMetrics metrics(row.font);
        painter->save();
        painter->setFont(row.font);
        painter->setPen(row.palette.color(QPalette::Active, role));
        painter->drawText(rect, Qt::AlignVCenter | Qt::TextSingleLine,
                          metrics.elidedText(text, Qt::ElideRight, rect.width()));
        rect.setLeft(rect.left() + metrics.horizontalAdvance(text + QStringLiteral("   ")));
        if (!detail.isEmpty() && rect.width() > 0) {
            QColor weak = painter->pen().color();
            weak.setAlphaF(0.65);
            painter->setPen(weak);
            painter->drawText(rect, Qt::AlignVCenter | Qt::TextSingleLine,
                              metrics.elidedText(detail, Qt::ElideRight, rect.width()));
        }
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return QSize(option.fontMetrics.averageCharWidth() * 20, option.fontMetrics.height() + 6);
    }

private:
    static int margin(const QStyleOptionViewItem& option)
    {
        return option.fontMetrics.averageCharWidth() / 2 + 2;
    }
};
} // namespace

SuggestionPopup::SuggestionPopup(QWidget* editor, SuggestionModel* model)
    : QListView(editor), m_editor(editor), m_model(model)
{
    setObjectName(QStringLiteral("suggestionPopup"));
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setModel(model);
    setItemDelegate(new SuggestionDelegate(this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    connect(this, &QListView::clicked, this, &SuggestionPopup::take);
    editor->installEventFilter(this);
}

void SuggestionPopup::suggest(int marked)
{
    if (m_model->rowCount() == 0 || !m_editor->isVisible()) {
        hide();
        return;
    }
    if (m_window != m_editor->window()) {
        m_window = m_editor->window();
        m_window->installEventFilter(this);
    }
    setPalette(m_editor->palette());
    setFont(m_editor->font());
    place();
    show();
    scrollToTop();
    mark(m_model->item(marked) ? marked : -1);
}

void SuggestionPopup::place()
{
    const QPoint below = m_editor->mapToGlobal(QPoint(0, m_editor->height()));
    const QScreen* screen = m_editor->window()->windowHandle() ? m_editor->window()->windowHandle()->screen()
                                                               : QApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    const int rows = qMin(m_model->rowCount(), rowsAtMost);
    const int tall = rows * qMax(1, sizeHintForRow(0)) + 2 * frameWidth();
    const int wide = qMin(qMax(m_editor->width(), fontMetrics().averageCharWidth() * 50), available.width());
    QRect rect(below, QSize(wide, tall));
    if (rect.bottom() > available.bottom())
        rect.moveBottom(m_editor->mapToGlobal(QPoint(0, 0)).y() - 1);
    if (rect.right() > available.right())
        rect.moveRight(available.right());
    setGeometry(rect);
}

void SuggestionPopup::mark(int row)
{
    if (row < 0)
        selectionModel()->clear();
    else
        setCurrentIndex(m_model->index(row, 0));
}

void SuggestionPopup::take(const QModelIndex& index)
{
    const int row = index.row();
    hide();
    if (index.isValid())
        emit taken(row);
}

bool SuggestionPopup::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (isVisible() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            event->accept(); // closes the list, not the dialog
            return true;
        }
        break;
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (watched == m_editor && handleKey(key->key(), key->modifiers()))
            return true;
        break;
    }
    case QEvent::FocusOut:
    case QEvent::Hide:
        if (watched == m_editor)
            hide();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowDeactivate:
        if (watched == m_window) // not the list's own scroll bars, whose events also come here
            hide();
        break;
    default:
        break;
    }
    return QListView::eventFilter(watched, event);
}

bool SuggestionPopup::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier))
        return false;
    if (!isVisible()) {
        if (key != Qt::Key_Down)
            return false;
        emit asked();
        return isVisible();
    }
    const int row = currentIndex().row();
    const int last = m_model->rowCount() - 1;
    switch (key) {
    case Qt::Key_Escape:
        hide();
        return true;
    case Qt::Key_Down:
        mark(qMin(row + 1, last));
        return true;
    case Qt::Key_Up:
        mark(row - 1);
        return true;
    case Qt::Key_PageDown:
        mark(qMin(row + rowsAtMost, last));
        return true;
    case Qt::Key_PageUp:
        mark(qMax(row - rowsAtMost, 0));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab: {
        const QModelIndex marked = currentIndex();
        take(marked);
        if (!marked.isValid() || key == Qt::Key_Tab)
            return false;                   // continue to the next editor
        return m_enterStays || isVisible(); // the user has requested more rows
    }
    default:
        return false;
    }
}
