#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class QWidget;

/// The guide for users, docs/user-guide.ru.md, followed by the list of changes, docs/changes.ru.md: Markdown in which a
/// comment after a heading says which windows the section describes:
///
///     ## Новая запись
///     <!-- window: RecordCreatorDialog -->
///
/// A name is that of a class or of an object. A section without a comment describes no window.
class GuideText
{
public:
    struct Section {
        int level = 0; ///< of the heading: 1 to 6
        QString title;
        QStringList windows;
    };

    /// The text that is compiled into the program.
    GuideText();
    explicit GuideText(const QString& markdown);

    /// Titles of sections that the program opens itself.
    static QString firstShift();
    static QString keys();
    static QString news();

    /// The text without the comments.
    QString markdown() const { return m_markdown; }
    /// In the order of the text.
    const QVector<Section>& sections() const { return m_sections; }
    /// The section of the innermost widget that one describes: \a widget, its parents, and the windows that these
    /// belong to; -1 if there is none.
    int sectionOf(const QWidget* widget) const;
    /// By the title, or by the last part of a link to it ("#новая-запись"); -1 if there is none.
    int section(const QString& title) const;

private:
    void read(const QString& markdown);

    QString m_markdown;
    QVector<Section> m_sections;
};
