#include "SearchBar.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QToolButton>

SearchBar::SearchBar(const Controls& controls, std::function<QModelIndexList(const QString&)> matches,
                     std::function<void(const QModelIndex&)> goTo, QObject* parent)
    : QObject(parent), m_controls(controls), m_matches(std::move(matches)), m_goTo(std::move(goTo))
{
    controls.up->setEnabled(false);
    controls.down->setEnabled(false);
    connect(controls.up, &QToolButton::clicked, this, &SearchBar::searchUp);
    connect(controls.down, &QToolButton::clicked, this, &SearchBar::searchDown);
    connect(controls.edit, &QLineEdit::textChanged, this, &SearchBar::search);
    connect(controls.edit, &QLineEdit::returnPressed, this, &SearchBar::searchNext);
}

void SearchBar::search(const QString& text)
{
    m_controls.up->setEnabled(false);
    m_controls.down->setEnabled(false);
    QPalette colors = m_controls.edit->parentWidget()->palette();
    if (!text.isEmpty()) {
        const QModelIndexList hits = m_matches(text);
        if (hits.isEmpty())
            colors.setColor(QPalette::Text, QColor(QStringLiteral("#DC143C")));
        else
            m_goTo(hits.first());
        m_controls.down->setEnabled(hits.size() > 1);
    }
    m_controls.edit->setPalette(colors);
}

void SearchBar::searchUp()
{
    m_controls.down->setEnabled(true);
    const QModelIndexList hits = m_matches(m_controls.edit->text());
    const int position = hits.indexOf(m_controls.view->currentIndex());
    if (position > 0)
        m_goTo(hits.at(position - 1));
    if (position < 2)
        m_controls.up->setEnabled(false);
}

void SearchBar::searchDown()
{
    m_controls.up->setEnabled(true);
    const QModelIndexList hits = m_matches(m_controls.edit->text());
    const int next = hits.indexOf(m_controls.view->currentIndex()) + 1;
    if (next < hits.size()) {
        m_goTo(hits.at(next));
        m_controls.up->setEnabled(m_controls.isUpOnForOneHit || hits.size() > 1);
    }
    if (next >= hits.size() - 1)
        m_controls.down->setEnabled(false);
}

void SearchBar::searchNext()
{
    if (m_controls.down->isEnabled())
        searchDown();
    else if (m_controls.up->isEnabled())
        search(m_controls.edit->text());
}
