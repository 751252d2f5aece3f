#pragma once

#include "FillerText.h"
#include "HtmlParser.h"
#include "TemplateFiller.h"
#include "TestClient.h"
#include "Typing.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using Properties = std::vector<HtmlParser::Property>;

inline QString parameter(const char* name, const char* label, Properties more = {})
{
    Properties properties = {{"name", name}, {"locname", label}};
    properties.insert(properties.end(), more.begin(), more.end());
    return QString::fromStdString(HtmlParser::createParameter(properties, label));
}

inline QString list(const char* label, const std::vector<std::string>& values)
{
    return parameter("list", label, {{"list", HtmlParser::createListProperty(values)}});
}

/// A filler in a separate window on the session of a login.
struct Setting {
    explicit Setting(const TestStore& store, const QString& login = QStringLiteral("ivanov"))
        : client(store, login), module(client)
    {
        filler.setModule(&module);
        filler.setOrientation(Qt::Vertical);
        filler.resize(640, 560);
        filler.show();
        QApplication::setActiveWindow(&filler);
        if (!QTest::qWaitForWindowExposed(&filler))
            qFatal("the filler does not show");
    }

    template <class Widget = QWidget>
    Widget* input(int index)
    {
        auto* widget = filler.findChild<Widget*>(QStringLiteral("parameterInput_%1").arg(index));
        if (!widget)
            qFatal("no input %d", index);
        return widget;
    }
    QString label(int index)
    {
        return filler.findChild<QLabel*>(QStringLiteral("parameterLabel_%1").arg(index))->text();
    }
    QString complaint(int index)
    {
        auto* editor = filler.findChild<QWidget*>(QStringLiteral("parameterEditor_%1").arg(index));
        auto* found = editor->findChild<QLabel*>(QStringLiteral("complaint"));
        return found->isVisible() ? found->text() : QString();
    }
    /// The list of suggestions that is open, or null.
    QListView* popup()
    {
        for (QListView* view : filler.findChildren<QListView*>(QStringLiteral("suggestionPopup"))) {
            if (view->isVisible())
                return view;
        }
        return nullptr;
    }
    QStringList suggested()
    {
        QStringList texts;
        for (int row = 0; popup() && row < popup()->model()->rowCount(); ++row)
            texts << popup()->model()->index(row, 0).data().toString();
        return texts;
    }
    FillerText* text() { return filler.findChild<FillerText*>(QStringLiteral("fillerText")); }
    /// Types into the input that has the focus.
    void type(const QString& typed)
    {
        if (!QApplication::focusWidget())
            qFatal("nothing has the keyboard");
        typeText(QApplication::focusWidget(), typed);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    HtmlParser parsed() { return HtmlParser(filler.filledTemplate(true).toStdString()); }
    QString shown(unsigned i) { return QString::fromStdString(parsed().displayText(i)); }
    QString key(unsigned i) { return QString::fromStdString(parsed().propertyData(i)); }

    TestClient client;
    TestModule module;
    TemplateFiller filler;
};
