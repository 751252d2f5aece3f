#pragma once

#include <QObject>
#include <QStringList>

/// Texts of comments that could not be written, the last one at the end. One list for all dialogs of a window, so that a
/// text outlives the tab in which it was typed.
class KeptComments : public QObject
{
    Q_OBJECT

public:
    /// The list of \a window, which it belongs to.
    static KeptComments* of(QObject* window)
    {
        auto* kept = window->findChild<KeptComments*>(QString(), Qt::FindDirectChildrenOnly);
        return kept ? kept : new KeptComments(window);
    }

    QStringList texts;

private:
    using QObject::QObject;
};
