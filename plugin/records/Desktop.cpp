#include "Desktop.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QUrl>

Desktop& Desktop::current()
{
    static Desktop desktop{[](QWidget* parent, const QString& title, const QString& folder) {
                               return QFileDialog::getOpenFileName(parent, title, folder);
                           },
                           [](QWidget* parent, const QString& title, const QString& path) {
                               return QFileDialog::getSaveFileName(parent, title, path);
                           },
                           [](const QUrl& url) { QDesktopServices::openUrl(url); }};
    return desktop;
}
