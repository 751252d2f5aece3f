#pragma once

#include "KeptTexts.h"

#include <functional>
#include <QPointer>
#include <QTimer>

/// The unsaved text of one window, kept while it is typed. The window reports a change, which costs
/// nothing; its text is read some time later, and never so often that reading takes more than a tenth of
/// the time.
class VRK_EXPORT KeptDraft : public QObject
{
    Q_OBJECT

public:
    /// \a read returns the unsaved values of \a window; no values: nothing is unsaved.
    KeptDraft(QWidget* window, KeptTexts* texts, std::function<KeptTexts::Values()> read);
    ~KeptDraft() override;

    /// Sets the place where the text is kept from now on.
    void setPlace(const QString& place) { m_place = place; }
    /// The kept texts of this place that no window shows, the latest last.
    QVector<KeptTexts::Text> offered() const;
    /// Forgets those for which \a isOver returns true: written, dropped or taken by the window.
    void forgetOffered(const std::function<bool(const KeptTexts::Text&)>& isOver);

    /// The window's text may have changed.
    void touch();
    /// Keeps the window's current text.
    void keepNow();
    /// The window has taken this kept text: the text keeps its id.
    void take(const KeptTexts::Text& text);
    /// The window's text was saved or dropped.
    void forget();
    /// The window releases its current text; the next window that opens may take it.
    void release();

private:
    void store();

    QWidget* m_window;
    QPointer<KeptTexts> m_texts;
    std::function<KeptTexts::Values()> m_read;
    QString m_place;
    QByteArray m_id;
    QTimer m_timer;
    bool m_isDropped = false; ///< dropped by the user, until something is typed
};
