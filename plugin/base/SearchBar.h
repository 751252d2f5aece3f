#pragma once

#include <functional>
#include <QModelIndex>
#include <QObject>

class QAbstractItemView;
class QLineEdit;
class QToolButton;

/// The search line of a page with its buttons: goes from hit to hit of a view while a text is typed, and
/// shows in red that there is none.
class SearchBar : public QObject
{
    Q_OBJECT

public:
    struct Controls {
        QLineEdit* edit;
        QToolButton* up;
        QToolButton* down;
        QAbstractItemView* view;
        bool isUpOnForOneHit = false; ///< after the way down to the only hit
    };
    /// \a matches returns all hits for a text in their order; \a goTo makes a hit current and visible.
    SearchBar(const Controls& controls, std::function<QModelIndexList(const QString& text)> matches,
              std::function<void(const QModelIndex& hit)> goTo, QObject* parent);

private:
    void search(const QString& text);
    void searchUp();
    void searchDown();
    void searchNext();

    Controls m_controls;
    std::function<QModelIndexList(const QString&)> m_matches;
    std::function<void(const QModelIndex&)> m_goTo;
};
