#pragma once

#include <QDir>
#include <QString>
#include <QStringList>
#include <QVector>

/// The page written by a tour: captioned pictures of the windows on the screen, the same scene in each
/// theme side by side.
class TourBook
{
public:
    /// Creates the folder; pictures of an earlier tour in it are overwritten.
    explicit TourBook(const QString& folder);

    /// The theme of the following pictures.
    void setTheme(const QString& name, const QString& title);
    /// Takes a picture of all visible windows in their stacking order. Scenes of a second theme are matched
    /// by their order.
    void add(const QString& caption);
    /// Writes index.html. False if the folder cannot be written.
    bool write() const;

    QString page() const { return m_folder.filePath(QStringLiteral("index.html")); }
    int pictures() const { return m_pictures; }

private:
    struct Scene {
        QString caption;
        QVector<QPair<QString, QString>> pictures; ///< title of the theme, file
    };

    QDir m_folder;
    QString m_theme;
    QString m_themeTitle;
    QVector<Scene> m_scenes;
    int m_next = 0;
    int m_pictures = 0;
};
