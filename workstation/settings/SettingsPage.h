#pragma once

#include <functional>
#include <QHash>
#include <QVariant>
#include <QVector>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QVBoxLayout;
class UserSettings;

/// Base of the pages of the settings window: rows of one setting each, with a word of explanation. A change
/// applies at once, is kept at once, and can be taken back.
class SettingsPage : public QWidget
{
    Q_OBJECT

public:
    /// The page's name in the list of pages.
    QString title() const { return m_title; }
    /// Shows only the rows that contain all words of the query in any form; all rows for an empty query.
    /// Returns the number of visible rows.
    int showMatching(const QString& query);

    /// Remembers the current values, for takeBack().
    virtual void remember();
    /// Sets the remembered values again.
    virtual void takeBack();
    virtual void setDefaults();

signals:
    /// A value could not be kept: \a text says why; empty after a success.
    void keepingFailed(const QString& text);

protected:
    SettingsPage(UserSettings* settings, const QString& title, QWidget* parent = nullptr);

    UserSettings* settings() const { return m_settings; }
    /// Appends a row: a caption before the control, unless it is empty, and the explanation below it. \a words
    /// are found by the search as well.
    void addRow(const QString& caption, QWidget* control, const QString& explanation,
                const QString& words = QString());
    /// A row with a check box for a setting that is on or off.
    QCheckBox* addSwitch(const char* name, const QString& text, const QString& explanation,
                         const QString& words = QString());
    /// A row with a list for a setting with few values.
    QComboBox* addChoice(const char* name, const QString& caption,
                         const QVector<QPair<QString, QString>>& choices, const QString& explanation,
                         const QString& words = QString());
    /// Keeps a value that the user has chosen in a control.
    void keep(const char* name, const QVariant& value);
    /// \a show is called now and whenever the setting has changed.
    void follow(const char* name, const std::function<void(const QVariant&)>& show);
    /// A name for tests and screen readers: of the setting, with a prefix of its kind.
    static QString nameOf(const char* setting, const char* kind);

private:
    struct Row {
        QWidget* widget;
        QString words;
    };

    UserSettings* m_settings;
    QString m_title;
    QVBoxLayout* m_layout;
    QVector<Row> m_rows;
    QHash<QByteArray, QVariant> m_before; ///< remembered; the settings of this page
};
