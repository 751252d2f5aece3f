#include "EmptyHint.h"

#include <QAbstractItemView>
#include <QEvent>

EmptyHint::EmptyHint(QAbstractItemView* view, std::function<QString()> text)
    : QLabel(view->viewport()), m_view(view), m_ask(std::move(text))
{
    setObjectName(QStringLiteral("emptyHint"));
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(12);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setForegroundRole(QPalette::PlaceholderText);
    view->viewport()->installEventFilter(this);
    const QAbstractItemModel* model = view->model();
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model, signal, this, &EmptyHint::refresh);
    connect(model, &QAbstractItemModel::modelReset, this, &EmptyHint::refresh);
    connect(model, &QAbstractItemModel::layoutChanged, this, &EmptyHint::refresh);
    refresh();
}

void EmptyHint::refresh()
{
    const bool isEmpty = m_view->model()->rowCount() == 0;
    setText(isEmpty ? m_ask() : QString());
    setVisible(!text().isEmpty());
    // Screen readers read the view, not the label over it.
    m_view->setAccessibleDescription(text());
    place();
}

void EmptyHint::place()
{
    setGeometry(m_view->viewport()->rect());
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QLabel::eventFilter(watched, event);
}
