#include "TourBook.h"

#include <algorithm>
#include <QApplication>
#include <QCoreApplication>
#include <QPainter>
#include <QSaveFile>
#include <QTextStream>
#include <QWidget>

namespace
{
/// Windows are stacked in the order in which they were shown: dialogs above the module's window.
QPixmap pictureOfScreen()
{
    QWidgetList windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && !widget->size().isEmpty())
            windows << widget;
    }
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        const auto depth = [](const QWidget* widget) {
            int n = 0;
            while ((widget = widget->parentWidget()))
                ++n;
            return n;
        };
        // Of two dialogs the active one is on top.
        return std::make_pair(depth(a), a->isActiveWindow()) < std::make_pair(depth(b), b->isActiveWindow());
    });
    QRect area;
    for (const QWidget* window : windows)
        area |= window->geometry();

    QPixmap picture(area.size());
    picture.fill(QApplication::palette().color(QPalette::Dark));
    QPainter painter(&picture);
    for (QWidget* window : windows) {
        const QRect place = window->geometry().translated(-area.topLeft());
        painter.drawPixmap(place.topLeft(), window->grab());
        if (window != windows.constFirst()) {
            painter.setPen(QPen(QApplication::palette().color(QPalette::Highlight), 2));
            painter.drawRect(place.adjusted(0, 0, -1, -1));
        }
    }
    return picture;
}
} // namespace

TourBook::TourBook(const QString& folder) : m_folder(folder)
{
    QDir().mkpath(folder);
}

void TourBook::setTheme(const QString& name, const QString& title)
{
    m_theme = name;
    m_themeTitle = title;
    m_next = 0;
}

void TourBook::add(const QString& caption)
{
    const QString file = QStringLiteral("%1-%2.png").arg(m_next + 1, 2, 10, QLatin1Char('0')).arg(m_theme);
    if (m_next == m_scenes.size())
        m_scenes.append({caption, {}});
    if (pictureOfScreen().save(m_folder.filePath(file)))
        ++m_pictures;
    m_scenes[m_next++].pictures.append({m_themeTitle, file});
}

bool TourBook::write() const
{
    QSaveFile file(page());
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QString text;
    QTextStream out(&text);
    out << "<!DOCTYPE html>\n<html lang=\"ru\"><head><meta charset=\"utf-8\"><title>"
        << QCoreApplication::translate("TourBook", "Оперативный журнал: ночная смена")
        << "</title>\n<style>\n"
        << "body { font-family: sans-serif; margin: 2em; background: #f4f5f7; color: #222; }\n"
        << "figure { margin: 0 0 3em 0; } figcaption { font-size: 1.15em; margin: 0 0 .6em 0; }\n"
        // One pixel for one dot: letters of a reduced picture lose their strokes.
        << "img { display: block; max-width: none; margin: 0 0 12px 0; border: 1px solid #bbb; }\n"
        << "</style></head><body>\n<h1>"
        << QCoreApplication::translate("TourBook", "Оперативный журнал: ночная смена") << "</h1>\n";
    int number = 0;
    for (const Scene& scene : m_scenes) {
        out << "<figure><figcaption>" << ++number << ". " << scene.caption.toHtmlEscaped() << "</figcaption>";
        for (const auto& [title, picture] : scene.pictures)
            out << "<a href=\"" << picture << "\"><img src=\"" << picture << "\" alt=\""
                << scene.caption.toHtmlEscaped() << " (" << title << ")\"></a>";
        out << "</figure>\n";
    }
    out << "</body></html>\n";
    out.flush();
    file.write(text.toUtf8());
    return file.commit();
}
