#include "VrkPreview.h"

#include "VrkPreviewWindow.h"

#include <QPointer>
#include <QTableView>

struct VrkPreview::Private {
    QPointer<QTableView> view;
    QColor headerBackground = Qt::lightGray;
    int maxColumnWidth = 0;
    QString footer;
    QString imprint;
    QByteArray code;
    QString folder;
    QString fileName;
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
    d->headerBackground = color;
}
void VrkPreview::setMaxColummnWidth(int width)
{
    d->maxColumnWidth = width;
}
void VrkPreview::setFooter(const QString& text)
{
    d->footer = text;
}
void VrkPreview::setImprint(const QString& text)
{
    d->imprint = text;
}
void VrkPreview::setCode(const QByteArray& text)
{
    d->code = text;
}

void VrkPreview::setFile(const QString& folder, const QString& name)
{
    d->folder = folder;
    d->fileName = name;
}

void VrkPreview::showDocument()
{
    if (!d->view)
        return;
    if (!d->window)
        d->window = new VrkPreviewWindow(d->view->window());
    d->window->setWindowIcon(d->icon);
    d->window->setWindowTitle(d->title);
    d->window->setFile(d->folder, d->fileName.isEmpty() ? d->title : d->fileName);
    VrkPreviewTable table = VrkPreviewTable::of(d->view, d->maxColumnWidth);
    table.headerBackground = d->headerBackground;
    table.footer = d->footer;
    table.imprint = d->imprint;
    table.code = d->code;
    const QPointer<VrkPreviewWindow> window(d->window);
    if (!window->setTable(table) || !window) {
        if (window)
            window->close();
        return;
    }
    d->window->show();
    d->window->raise();
    d->window->activateWindow();
}
