#include "VrkPreviewWindow.h"

#include "FileSaver.h"
#include "VrkPreviewCsv.h"
#include "VrkPreviewHtml.h"
#include "VrkPreviewPaper.h"
#include "WrapLayout.h"

#include <QAction>
#include <QApplication>
#include <QGraphicsView>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrintPreviewWidget>
#include <QProgressDialog>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
/// Shows the progress of a long operation; the user can cancel it.
class Progress
{
public:
    Progress(QWidget* parent, const QString& title, int steps)
        : m_dialog(QCoreApplication::translate("VrkPreviewWindow", "Подготовка страниц..."),
                   QCoreApplication::translate("VrkPreviewWindow", "Отмена"), 0, steps, parent)
    {
        m_dialog.setObjectName(QStringLiteral("pagesProgress"));
        m_dialog.setWindowTitle(title);
        m_dialog.setWindowModality(Qt::ApplicationModal); // the pages must not be changed in the meantime
        m_dialog.setMinimumDuration(0);
    }
    /// False if the user has cancelled.
    bool step(int done)
    {
        m_dialog.setValue(done);
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog m_dialog;
};
} // namespace

VrkPreviewWindow::Asking& VrkPreviewWindow::asking()
{
    static Asking current{[](QWidget* parent, QPrinter* printer) {
        return QPrintDialog(printer, parent).exec() == QDialog::Accepted;
    }};
    return current;
}

VrkPreviewWindow::VrkPreviewWindow(QWidget* parent)
    : QMainWindow(parent, Qt::Window), m_printer(new QPrinter(QPrinter::HighResolution))
{
    setObjectName(QStringLiteral("VrkPreviewWindow"));
    m_printer->setOutputFormat(QPrinter::PdfFormat); // a preview needs no printer
    VrkPreviewPaper::setUp(m_printer.get(), QPageLayout::Landscape);
    m_preview = std::make_unique<QPrintPreviewWidget>(m_printer.get(), this);
    m_preview->setObjectName(QStringLiteral("previewWidget"));
    if (auto* pages = m_preview->findChild<QGraphicsView*>())
        pages->setAccessibleName(tr("Страницы отчёта"));
    m_pageLabel = new QLabel(this);
    m_pageLabel->setObjectName(QStringLiteral("pageLabel"));
    m_saver = addSaver("fileSaver", tr("Сохранение в PDF"), tr("Документы PDF (*.pdf)"), "pdf");
    m_htmlSaver = addSaver("htmlSaver", tr("Сохранение в HTML"), tr("Страницы HTML (*.html)"), "html");
    m_tableSaver = addSaver("tableSaver", tr("Сохранение в CSV"), tr("Таблицы CSV (*.csv)"), "csv");
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeBar());
    for (FileSaver* saver : {m_saver, m_htmlSaver, m_tableSaver})
        column->addWidget(saver);
    column->addWidget(m_preview.get(), 1);
    setCentralWidget(page);
    connect(m_preview.get(), &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { paintPages(printer); });
    connect(m_preview.get(), &QPrintPreviewWidget::previewChanged, this, &VrkPreviewWindow::updatePageLabel);
    const int em = fontMetrics().height();
    setMinimumSize(20 * em, 16 * em);
    const QSize room = screen()->availableSize() * 9 / 10; // the frame and the title bar need some of it
    resize(QSize(70 * em, 48 * em).boundedTo(room));
}

VrkPreviewWindow::~VrkPreviewWindow() = default;

QWidget* VrkPreviewWindow::makeBar()
{
    auto* bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("previewBar"));
    auto* row = new WrapLayout(bar); // the window may be narrow and the letters large
    row->setContentsMargins(4, 4, 4, 4);
    row->setSpacing(2);
    const auto add = [this, bar, row](const char* name, const QString& text, const QKeySequence& key,
                                      auto slot) {
        auto* action = new QAction(text, this);
        addAction(action);
        connect(action, &QAction::triggered, this, slot);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        if (!key.isEmpty())
            action->setToolTip(QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
        auto* button = new QToolButton(bar);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        row->addWidget(button);
        return action;
    };
    add("printAction", tr("Печать..."), QKeySequence::Print, [this] { print(); });
    addSaving(add);
    QAction* portrait = add("portraitAction", tr("Книжная"), QKeySequence(), [] {});
    portrait->setCheckable(true);
    connect(portrait, &QAction::toggled, this, [this](bool on) {
        VrkPreviewPaper::setUp(m_printer.get(), on ? QPageLayout::Portrait : QPageLayout::Landscape);
        m_preview->updatePreview();
        if (m_isCancelled)
            close(); // a part of the pages would be mistaken for the whole document
    });
    add("fitWidthAction", tr("По ширине"), QKeySequence(), [this] { m_preview->fitToWidth(); });
    add("fitPageAction", tr("Страница целиком"), QKeySequence(), [this] { m_preview->fitInView(); });
    add("zoomInAction", tr("Крупнее"), QKeySequence::ZoomIn, [this] { m_preview->zoomIn(); });
    add("zoomOutAction", tr("Мельче"), QKeySequence::ZoomOut, [this] { m_preview->zoomOut(); });
    add("previousPageAction", tr("Назад"), QKeySequence(Qt::ALT | Qt::Key_PageUp),
        [this] { m_preview->setCurrentPage(m_preview->currentPage() - 1); });
    m_pageLabel->setMinimumHeight(row->itemAt(0)->sizeHint().height()); // in line with the buttons
    row->addWidget(m_pageLabel);
    add("nextPageAction", tr("Вперёд"), QKeySequence(Qt::ALT | Qt::Key_PageDown),
        [this] { m_preview->setCurrentPage(m_preview->currentPage() + 1); });
    auto* closeAction = new QAction(this);
    closeAction->setShortcut(Qt::Key_Escape);
    connect(closeAction, &QAction::triggered, this, &QWidget::close);
    addAction(closeAction);
    return bar;
}

FileSaver* VrkPreviewWindow::addSaver(const char* name, const QString& title, const QString& filter,
                                      const char* suffix)
{
    auto* saver = new FileSaver({title, filter, QLatin1String(suffix)}, this);
    saver->setObjectName(QLatin1String(name));
    return saver;
}

/// One line at a time says what became of a file.
void VrkPreviewWindow::save(FileSaver* saver, const std::function<bool(QByteArray* bytes)>& content)
{
    for (FileSaver* other : {m_saver, m_htmlSaver, m_tableSaver})
        if (other != saver)
            other->hide();
    saver->save(m_folder, m_fileName, content);
}

void VrkPreviewWindow::addSaving(const std::function<void(const char*, const QString&, const QKeySequence&,
                                                          const std::function<void()>&)>& add)
{
    add("pdfAction", tr("Сохранить в PDF..."), QKeySequence::Save,
        [this] { save(m_saver, [this](QByteArray* bytes) { return writePdf(bytes); }); });
    add("htmlAction", tr("Сохранить в HTML..."), QKeySequence(), [this] {
        save(m_htmlSaver, [this](QByteArray* bytes) {
            *bytes = VrkPreviewHtml::page(table());
            return true;
        });
    });
    add("tableAction", tr("Сохранить в CSV..."), QKeySequence(), [this] {
        save(m_tableSaver, [this](QByteArray* bytes) {
            *bytes = VrkPreviewCsv::table(table());
            return true;
        });
    });
}

bool VrkPreviewWindow::setTable(const VrkPreviewTable& table)
{
    m_pages.setTable(table);
    m_preview->updatePreview();
    m_preview->fitToWidth();
    updatePageLabel();
    return !m_isCancelled;
}

int VrkPreviewWindow::pageCount() const
{
    return m_preview->pageCount();
}

void VrkPreviewWindow::updatePageLabel()
{
    m_pageLabel->setText(tr(" Страница %1 из %2 ").arg(m_preview->currentPage()).arg(m_preview->pageCount()));
}

bool VrkPreviewWindow::withProgress(const std::function<bool(const VrkPreviewPages::Progress&)>& work)
{
    const int rows = m_pages.table().rows.size();
    std::unique_ptr<Progress> progress;
    if (rows >= VrkPreviewPages::manyRows)
        progress = std::make_unique<Progress>(isVisible() ? this : parentWidget(), windowTitle(), 2 * rows);
    m_isCancelled = false;
    return work([&](int done, int) {
        m_isCancelled = progress && !progress->step(done);
        return !m_isCancelled;
    });
}

bool VrkPreviewWindow::paintPages(QPagedPaintDevice* device)
{
    return withProgress([&](const VrkPreviewPages::Progress& progress) {
        return VrkPreviewPaper::paint(&m_pages, device, progress);
    });
}

void VrkPreviewWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(windowTitle());
    VrkPreviewPaper::setUp(&printer, m_printer->pageLayout().orientation());
    if (asking().printer(this, &printer) && !paintPages(&printer))
        printer.abort();
}

void VrkPreviewWindow::setFile(const QString& folder, const QString& name)
{
    m_folder = folder;
    m_fileName = name;
    for (FileSaver* saver : {m_saver, m_htmlSaver, m_tableSaver})
        saver->hide(); // it speaks about another document
}

bool VrkPreviewWindow::writePdf(QByteArray* bytes)
{
    return withProgress([&](const VrkPreviewPages::Progress& progress) {
        return VrkPreviewPaper::writePdf(&m_pages, windowTitle(), m_printer->pageLayout().orientation(),
                                         bytes, progress);
    });
}

bool VrkPreviewWindow::savePdf(const QString& file)
{
    return m_saver->write(file, [this](QByteArray* bytes) { return writePdf(bytes); });
}
