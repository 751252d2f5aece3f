#pragma once

#include "VrkExport.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class CVrkCliApp;
class CVrkCliMod;
class QKeyEvent;

/// Unfolds the site's abbreviations while the user types in an editor of free text, as far as he wants it: when he
/// types a blank or a punctuation mark behind one, its text takes its place, with a capital letter if the
/// abbreviation has one. One undo brings the abbreviation back; the typed character stays. Nothing is looked up at
/// any other key.
class VRK_EXPORT Abbreviations : public QObject
{
    Q_OBJECT

public:
    explicit Abbreviations(CVrkCliApp* app, QObject* parent = nullptr);

    /// Those of the site, read when an editor of a module first gets the focus.
    const QHash<QString, QString>& all() const { return m_all; }
    void setAll(const QHash<QString, QString>& all);

    /// The text of the abbreviation at the end of \a before, after which \a typed was typed; \a length is that of
    /// the abbreviation. Empty if there is none, or if it may become a longer one.
    QString textFor(const QString& before, QChar typed, int* length) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool type(QWidget* editor, QKeyEvent* event);
    void read(QWidget* editor);

    CVrkCliApp* m_app;
    QPointer<CVrkCliMod> m_module; ///< whose session was asked
    QHash<QString, QString> m_all;
    int m_longest = 0;
    bool m_isTyping = false;
};
