#pragma once

#include "VrkExport.h"

#include <QHash>
#include <QObject>
#include <QVariant>
#include <QVector>

/// Names of the settings. UserSettings.cpp has the default and the possible values of each.
namespace Setting
{
constexpr const char* theme = "theme";             ///< light, dark, system, contrast
constexpr const char* letters = "letters";         ///< percent of the desktop's size
constexpr const char* seenVersion = "seenVersion"; ///< whose first steps or news he has seen; may be empty
constexpr const char* reportFolder = "reports.folder"; ///< path; empty: the user's documents
constexpr const char* spelling = "spelling";           ///< check the spelling
constexpr const char* abbreviations = "abbreviations"; ///< unfold those of the site
constexpr const char* reportCode = "reports.code";     ///< the seal of a report also as a QR code
constexpr const char* startModules = "start.modules";  ///< names, opened after signing in
constexpr const char* savedSearches = "search.saved";  ///< of the archive, see SearchBook there
constexpr const char* bookmarks = "bookmarks";         ///< keys of records, see Bookmarks
constexpr const char* lastSearches = "search.last";

/// \name What alerts the user while he works elsewhere
/// @{
constexpr const char* noticeRecords = "notices.records";   ///< records of others
constexpr const char* noticeComments = "notices.comments"; ///< comments on his records
constexpr const char* noticeShift = "notices.shift";       ///< the shift is too long
constexpr const char* noticeFailures = "notices.failures"; ///< messages of the program
constexpr const char* noticeSound = "notices.sound";       ///< with a sound
constexpr const char* quietHours = "notices.quiet";        ///< silent from quietFrom to quietTo
constexpr const char* quietFrom = "notices.quietFrom";     ///< "hh:mm"
constexpr const char* quietTo = "notices.quietTo";
/// @}
} // namespace Setting

/// What a person has chosen for himself, kept on this computer under his login. A value that is missing,
/// damaged or not possible reads as the default. Two programs that run at the same time keep each other's
/// changes; each reads a value once. It is the application's (CVrkCliApp::settings).
///
/// The look, theme and letters, is also kept for the computer: for its sign-in windows and for persons who have
/// not chosen their own.
class VRK_EXPORT UserSettings : public QObject
{
    Q_OBJECT

public:
    explicit UserSettings(QObject* parent = nullptr);

    static QVector<const char*> names();

    /// Sets whose settings are read and written from now on; empty while nobody is signed in.
    void setUser(const QString& login);

    /// The value, always possible and of the default's type; null for an unknown name.
    QVariant value(const char* name) const;
    static QVariant defaultValue(const char* name);
    /// Keeps a value; one that is not possible is ignored. False with errorText(): it applies now, and is lost
    /// at the end of the program.
    bool setValue(const char* name, const QVariant& value);
    QString errorText() const { return m_errorText; }

    /// The folder in which reports are saved: the chosen one, or the user's documents if it does not exist.
    QString reportFolder() const;

signals:
    /// The value is another one now, because of setValue() or another user.
    void changed(const QByteArray& name);

private:
    QString m_group; ///< of the user; empty for nobody
    QString m_errorText;
    mutable QHash<QByteArray, QVariant> m_values; ///< by name, as far as they were read
};
