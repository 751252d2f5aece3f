#pragma once

#include "HtmlParser.h"
#include "MadeTable.h"
#include "TemplateEditor.h"
#include "TemplateEditorDialog.h"
#include "TemplateEditorText.h"
#include "Typing.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTextCodec>
#include <QTreeView>

/// A template editor in a separate window, and the actions of the tests.
struct TemplateEditorBench {
    TemplateEditorBench()
    {
        editor.resize(900, 420);
        editor.show();
        QApplication::setActiveWindow(&editor);
        if (!QTest::qWaitForWindowExposed(&editor))
            qFatal("the editor does not show");
        text()->setFocus();
    }

    /// The text of a parameter; \a more is appended to name and label.
    static QString parameter(const char* name, const char* label,
                             const std::vector<HtmlParser::Property>& more = {})
    {
        std::vector<HtmlParser::Property> properties = {{"name", name}, {"locname", label}};
        properties.insert(properties.end(), more.begin(), more.end());
        return QString::fromStdString(HtmlParser::createParameter(properties, label));
    }
    static QString list(const char* label, const std::vector<std::string>& values)
    {
        return parameter("list", label, {{"list", HtmlParser::createListProperty(values)}});
    }

    template <class Child = QWidget>
    Child* child(const char* name)
    {
        auto* found = editor.findChild<Child*>(QLatin1String(name));
        if (!found)
            qFatal("no %s", name);
        return found;
    }
    TemplateEditorText* text() { return child<TemplateEditorText>("templateText"); }
    QTreeView* tree() { return child<QTreeView>("parametersTree"); }
    TemplateEditorDialog* dialog() { return editor.findChild<TemplateEditorDialog*>(); }
    QString notice()
    {
        auto* label = child<QLabel>("templateNotice");
        return label->isVisible() ? label->text() : QString();
    }
    QString preview() { return child<QTextEdit>("templatePreview")->toPlainText(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1)
    {
        QApplication::setActiveWindow(
            &editor); // the offscreen platform does not return the focus when a dialog closes
        for (int i = 0; i < times; ++i)
            QTest::keyClick(text(), key, modifiers);
    }
    void type(const QString& words) { typeText(text(), words); }
    /// Presses a key in the open dialog, in the widget with the focus.
    void pressInDialog(Qt::Key key) { QTest::keyClick(dialog()->focusWidget(), key); }
    /// The middle of the chip at a position, in the viewport.
    QPoint middleOf(int position)
    {
        QTextCursor cursor(text()->document());
        cursor.setPosition(position);
        const QRect left = text()->cursorRect(cursor);
        cursor.movePosition(QTextCursor::NextCharacter);
        const QRect right = text()->cursorRect(cursor);
        return QPoint((left.center().x() + right.center().x()) / 2, left.center().y());
    }
    QString now() const { return editor.templateText(); }

    TemplateEditor editor;
    QSignalSpy changes{&editor, &TemplateEditor::templateChanged};
};
