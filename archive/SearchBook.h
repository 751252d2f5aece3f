#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QVector>

class UserSettings;

/// What the form of the search contained.
struct KeptSearch {
    QString name; ///< given by the user, or the query in words
    QString words;
    QString equipment;
    QByteArray departmentKey;
    QByteArray workerKey;
    int status = -1;
    int period = 0;
    QDate from;
    QDate to;

    bool isSameQuery(const KeptSearch& other) const;
};

/// The searches that a user has saved under names, and his last ones, kept in his settings. A damaged entry is
/// ignored.
class SearchBook
{
public:
    static constexpr int mostLast = 10;

    /// \a settings is not owned.
    explicit SearchBook(UserSettings* settings) : m_settings(settings) {}

    /// Sorted by name.
    QVector<KeptSearch> saved() const;
    /// The newest first.
    QVector<KeptSearch> last() const;

    /// Replaces the one of this name.
    void save(const KeptSearch& search);
    void remove(const QString& name);
    /// Does nothing if \a to is empty; replaces another one of this name.
    void rename(const QString& from, const QString& to);
    /// The search becomes the last one.
    void remember(const KeptSearch& search);

private:
    UserSettings* m_settings;
};
