#pragma once

class QString;
class QWidget;

/// Why a part of the widget's own text is not visible, in a few words; empty if all of it is.
QString widgetCut(const QWidget* widget);
