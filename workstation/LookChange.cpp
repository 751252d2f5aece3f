#include "LookChange.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace
{
/// Qt 6 only posts the change, and only to windows that have been shown: they would take it after their sheets
/// are set again, or never.
void tellWindows(QEvent::Type type)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::sendPostedEvents(nullptr, type);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        QEvent change(type);
        QCoreApplication::sendEvent(window, &change);
    }
#else
    Q_UNUSED(type);
#endif
}
} // namespace

LookChange::LookChange()
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->styleSheet().isEmpty())
            m_sheets.append({widget, widget->styleSheet()});
    }
    for (const auto& entry : qAsConst(m_sheets)) {
        if (entry.first)
            entry.first->setStyleSheet(QString());
    }
}

LookChange::~LookChange()
{
    tellWindows(QEvent::ApplicationPaletteChange);
    tellWindows(QEvent::ApplicationFontChange);
    for (const auto& entry : qAsConst(m_sheets)) {
        // A widget may have set a new sheet at the change.
        if (entry.first && entry.first->styleSheet().isEmpty())
            entry.first->setStyleSheet(entry.second);
    }
}
