#pragma once

#include "KeptTexts.h"

#include <functional>
#include <QPointer>
#include <QTimer>

/// The text that one window holds unsaved, kept while it is typed. The window says that something was typed, which costs
/// nothing; what it holds is read some time later, and never so often that it would take a tenth of the time.
class VRK_EXPORT KeptDraft : public QObject
{
    Q_OBJECT

public:
    /// \a read tells what \a window holds; no values: nothing that is unsaved.
    KeptDraft(QWidget* window, KeptTexts* texts, std::function<KeptTexts::Values()> read);
    ~KeptDraft() override;

    /// Where the text is kept from now on.
    void setPlace(const QString& place) { m_place = place; }
    QString place() const { return m_place; }

    /// The window's text may have changed.
    void touch();
    /// Keeps what the window holds now.
    void keepNow();
    /// The window has taken this kept text: it goes on under its id.
    void take(const KeptTexts::Text& text);
    /// The window's text was written or dropped.
    void forget();
    /// The window gives its text up, as it is now, to whoever opens next.
    void release();

private:
    void store();

    QWidget* m_window;
    QPointer<KeptTexts> m_texts;
    std::function<KeptTexts::Values()> m_read;
    QString m_place;
    QByteArray m_id;
    QTimer m_timer;
    bool m_isDropped = false; ///< by the user's answer, until something is typed
};
