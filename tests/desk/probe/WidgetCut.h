#pragma once

class QString;
class QWidget;

/// Why not all of the widget's own text can be seen, in a few words; empty when all can.
QString widgetCut(const QWidget* widget);
