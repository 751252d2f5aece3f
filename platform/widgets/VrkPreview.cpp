#include "VrkPreview.h"

#include "VrkPreviewDocument.h"
#include "VrkPreviewWindow.h"

#include <QPointer>
#include <QTableView>

struct VrkPreview::Private {
    VrkPreviewDocument source;
    QPointer<QTableView> view;
    QPointer<VrkPreviewWindow> window;
    QIcon icon;
    QString title;
};

VrkPreview::VrkPreview(QObject* parent) : QObject(parent), d(new Private) {}

VrkPreview::~VrkPreview()
{
    delete d->window;
}

void VrkPreview::setView(QTableView* view)
{
    d->view = view;
}
void VrkPreview::setWindowIcon(const QIcon& icon)
{
    d->icon = icon;
}
void VrkPreview::setWindowTitle(const QString& title)
{
    d->title = title;
}
void VrkPreview::setHeaderBackgroundColor(QColor color)
{
    d->source.headerBackground = color;
}
void VrkPreview::setMaxColummnWidth(int width)
{
    d->source.maxColumnWidth = width;
}
void VrkPreview::setFooter(const QString& text)
{
    d->source.footer = text;
}

void VrkPreview::showDocument()
{
    if (!d->view)
        return;
    if (!d->window)
        d->window = new VrkPreviewWindow(d->view->window());
    d->window->setWindowIcon(d->icon);
    d->window->setWindowTitle(d->title);
    d->source.view = d->view;
    d->source.fill(d->window->document());
    d->window->updatePreview();
    d->window->show();
    d->window->raise();
    d->window->activateWindow();
}
