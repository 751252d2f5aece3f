#pragma once

#include <QObject>

/// Keeps labels from guessing: a label whose format is Qt::AutoText takes any text that looks like markup for markup,
/// and loads the files that it names. Names, comments and file names come from other people, so every such label of
/// the process, tool tips and message boxes included, becomes plain before it is measured or shown. A label that shows
/// markup of the program says so itself with Qt::RichText.
class PlainLabels : public QObject
{
    Q_OBJECT

public:
    explicit PlainLabels(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
