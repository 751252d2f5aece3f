#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSet>
#include <QTabBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QToolTip>

/// Walks all widgets of the process and looks for texts of other users. Such a text is made by of(): it
/// begins with markup, so a place that shows it without the tags has treated it as markup. Places are found
/// by the widgets' content, tool tips by showing them; no list of names is needed.
class TextWalk
{
public:
    /// A text that looks like markup and changes the direction of the following text, marked with its \a
    /// origin; \a file is one that nobody may open.
    static QString of(const QString& origin, const QString& file)
    {
        return QStringLiteral("<b>МЕТКА %1;</b> Р&Р <img src=\"%2\"><img src=\"//srv/share/a.png\">"
                              "<a href=\"javascript:x()\">x</a>\u202e\u200f")
            .arg(origin, file);
    }

    /// Walks once; may be called again for windows that are shown later.
    void walk()
    {
        QVector<QPointer<QWidget>> widgets; // a new tip deletes the previous one
        for (QWidget* widget : QApplication::allWidgets())
            widgets.append(widget);
        for (const QPointer<QWidget>& widget : qAsConst(widgets)) {
            if (widget && !widget->inherits("QTipLabel") && widget->window()->isVisible())
                visit(widget);
        }
    }

    const QStringList& faults() const { return m_faults; }
    /// Origins of the texts that were met.
    const QSet<QString>& origins() const { return m_origins; }
    /// "class objectName" of the widgets that showed one, with the kind of place.
    const QSet<QString>& places() const { return m_places; }

private:
    static QString described(const QWidget* widget)
    {
        QStringList path;
        for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
            path.prepend(QStringLiteral("%1(%2)").arg(
                widget->objectName(), QString::fromLatin1(widget->metaObject()->className())));
        return path.mid(qMax(0, path.size() - 3)).join(QLatin1Char('/'));
    }
    /// What Qt shows for a text with mnemonics.
    static QString withoutMnemonics(const QString& text)
    {
        QString shown;
        for (int i = 0; i < text.size(); ++i) {
            if (text.at(i) == QLatin1Char('&') && ++i == text.size())
                break;
            shown += text.at(i);
        }
        return shown;
    }
    static QString shownBy(const QLabel* label)
    {
        const bool isMarkup = label->textFormat() == Qt::RichText ||
                              (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(label->text()));
        if (!isMarkup)
            return label->buddy() ? withoutMnemonics(label->text()) : label->text();
        Document document;
        document.setHtml(label->text());
        document.adjustSize();
        return document.toPlainText() + (document.asked ? QStringLiteral(" loads a resource") : QString());
    }
    /// Reads no file, and records the request.
    class Document : public QTextDocument
    {
    public:
        bool asked = false;

    protected:
        QVariant loadResource(int, const QUrl&) override
        {
            asked = true;
            return QImage(1, 1, QImage::Format_ARGB32);
        }
    };

    /// \a held is the widget's text, \a shown what a reader sees.
    void check(const QWidget* widget, const char* place, const QString& held, const QString& shown)
    {
        static const QString mark = QStringLiteral("МЕТКА");
        int at = held.indexOf(mark);
        if (at < 0)
            return;
        const QString where = described(widget) + QLatin1Char(' ') + QLatin1String(place);
        m_places.insert(where);
        for (; at >= 0; at = held.indexOf(mark, at + 1))
            m_origins.insert(held.mid(at + mark.size() + 1).section(QLatin1Char(';'), 0, 0));
        // Initials are made from the first letter of a name, so only whole texts can be compared.
        const bool hasTags = shown.count(QStringLiteral("<b>МЕТКА")) == held.count(mark);
        const bool keepsLetters =
            !shown.contains(QStringLiteral("Р")) || shown.contains(QStringLiteral("Р&Р"));
        if (!hasTags || !keepsLetters || shown.contains(QStringLiteral("loads a resource")))
            m_faults.append(QStringLiteral("%1: %2").arg(where, shown.left(200)));
        // Where the program's own words may follow, they must stay readable.
        const QByteArray kind(place);
        if ((kind.startsWith("tip") || kind.startsWith("tab") || kind == "action") &&
            shown.contains(QChar(0x202e)))
            m_faults.append(where + QStringLiteral(" turns the words behind it"));
    }

    void checkTip(const QWidget* widget, const char* place, const QString& tip)
    {
        if (!tip.contains(QStringLiteral("МЕТКА")) || m_tips.contains(tip))
            return;
        m_tips.insert(tip);
        QToolTip::showText(QPoint(1, 1), tip);
        checkShownTip(widget, place, tip);
    }
    void checkShownTip(const QWidget* widget, const char* place, const QString& tip)
    {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            const auto* label = qobject_cast<const QLabel*>(window);
            if (label && label->isVisible() && label->inherits("QTipLabel"))
                check(widget, place, tip.isNull() ? label->text() : tip, shownBy(label));
        }
        QToolTip::hideText();
    }

    void visit(QWidget* widget)
    {
        checkTip(widget, "tip", widget->toolTip());
        check(widget, "title", widget->windowTitle(), widget->windowTitle());
        for (const QAction* action : widget->actions()) {
            check(widget, "action", action->text(), withoutMnemonics(action->text()));
            checkTip(widget, "tip of action", action->toolTip());
        }
        if (const auto* label = qobject_cast<QLabel*>(widget))
            check(label, "text", label->text(), shownBy(label));
        if (const auto* button = qobject_cast<QAbstractButton*>(widget))
            check(button, "text", button->text(), withoutMnemonics(button->text()));
        if (const auto* box = qobject_cast<QGroupBox*>(widget))
            check(box, "title", box->title(), withoutMnemonics(box->title()));
        if (const auto* line = qobject_cast<QLineEdit*>(widget))
            check(line, "text", line->text(), line->displayText());
        if (const auto* combo = qobject_cast<QComboBox*>(widget))
            check(combo, "current", combo->currentText(), combo->currentText());
        if (const auto* tabs = qobject_cast<QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                check(tabs, "tab", tabs->tabText(i), withoutMnemonics(tabs->tabText(i)));
                checkTip(tabs, "tip of tab", tabs->tabToolTip(i));
            }
        }
        if (const auto* edit = qobject_cast<QTextEdit*>(widget))
            visitDocument(edit);
        if (const auto* edit = qobject_cast<QPlainTextEdit*>(widget))
            check(edit, "text", edit->toPlainText(), edit->toPlainText());
        const auto* view = qobject_cast<QAbstractItemView*>(widget);
        if (view && view->model() && !qobject_cast<const QHeaderView*>(view))
            visitItems(view, QModelIndex(), 0);
    }

    void visitDocument(const QTextEdit* edit)
    {
        check(edit, "text", edit->toPlainText(), edit->toPlainText());
        for (QTextBlock block = edit->document()->begin(); block.isValid(); block = block.next()) {
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                const QTextCharFormat format = it.fragment().charFormat();
                if (format.isImageFormat())
                    m_faults.append(described(edit) + QStringLiteral(" holds a picture"));
                if (!format.anchorHref().isEmpty() && !format.anchorHref().startsWith(QLatin1Char('#')))
                    m_faults.append(described(edit) + QStringLiteral(" links to ") + format.anchorHref());
            }
        }
        // A view may create the tips of its passages itself.
        if (!edit->isVisible())
            return;
        for (int y = 4; y < qMin(edit->viewport()->height(), 120); y += 12) {
            for (int x = 6; x < edit->viewport()->width(); x += 40) {
                QHelpEvent help(QEvent::ToolTip, QPoint(x, y), edit->viewport()->mapToGlobal(QPoint(x, y)));
                QApplication::sendEvent(edit->viewport(), &help);
                checkShownTip(edit, "tip of passage", QString());
            }
        }
    }

    void visitItems(const QAbstractItemView* view, const QModelIndex& parent, int depth)
    {
        const QAbstractItemModel* model = view->model();
        for (int row = 0; row < model->rowCount(parent); ++row) {
            for (int column = 0; column < model->columnCount(parent); ++column) {
                const QModelIndex index = model->index(row, column, parent);
                const QString text = index.data().toString();
                check(view, "item", text, text);
                checkTip(view, "tip of item", index.data(Qt::ToolTipRole).toString());
            }
            if (depth < 8)
                visitItems(view, model->index(row, 0, parent), depth + 1);
        }
    }

    QStringList m_faults;
    QSet<QString> m_origins;
    QSet<QString> m_places;
    QSet<QString> m_tips; ///< that have been shown
};
